// SPDX-License-Identifier: MIT
// The texts of lists in the window, by the numbers of the text table (texts/list_rows.cpp).
#pragma once

#include <cstdint>

#include "messages/text_number.h"

namespace dialogs {

inline constexpr messages::TextNumber kTextMenuImport{4100};
inline constexpr messages::TextNumber kTextMenuExport{4101};
inline constexpr messages::TextNumber kTextImportList{4102};
inline constexpr messages::TextNumber kTextListFilter{4103};
inline constexpr messages::TextNumber kTextExportProject{4104};
inline constexpr messages::TextNumber kTextExportFilter{4105};
inline constexpr messages::TextNumber kTextExported{4106};
inline constexpr messages::TextNumber kTextCannotImport{4107};
inline constexpr messages::TextNumber kTextCannotExport{4108};
inline constexpr messages::TextNumber kTextExportedWithout{4109};

inline constexpr messages::TextNumber kTextImportCaption{4110};
inline constexpr messages::TextNumber kTextShowLines{4111};
inline constexpr messages::TextNumber kTextAllLines{4112};
inline constexpr messages::TextNumber kTextNewLines{
    4113};  // by exchange::RowAction, as are the next three
inline constexpr messages::TextNumber kTextChangedLines{4114};
inline constexpr messages::TextNumber kTextUnchangedLines{4115};
inline constexpr messages::TextNumber kTextRefusedLines{4116};
inline constexpr messages::TextNumber kTextColumnAction{4117};
inline constexpr messages::TextNumber kTextColumnLine{4118};
inline constexpr messages::TextNumber kTextColumnName{4119};
inline constexpr messages::TextNumber kTextColumnDetail{4120};
inline constexpr messages::TextNumber kTextColumnReason{4121};
inline constexpr messages::TextNumber kTextNew{
    4122};  // by exchange::RowAction, as are the next three
inline constexpr messages::TextNumber kTextChanged{4123};
inline constexpr messages::TextNumber kTextUnchanged{4124};
inline constexpr messages::TextNumber kTextRefused{4125};
inline constexpr messages::TextNumber kTextExisting{4126};
inline constexpr messages::TextNumber kTextExistingError{
    4127};  // by exchange::ExistingPolicy, as are the next three
inline constexpr messages::TextNumber kTextExistingSkip{4128};
inline constexpr messages::TextNumber kTextExistingUpdate{4129};
inline constexpr messages::TextNumber kTextExistingRename{4130};
inline constexpr messages::TextNumber kTextDefaultClass{4131};
inline constexpr messages::TextNumber kTextCreateAliases{4132};
inline constexpr messages::TextNumber kTextSkipRefused{4133};
inline constexpr messages::TextNumber kTextImportNow{4134};
inline constexpr messages::TextNumber kTextLinesRefused{4135};
inline constexpr messages::TextNumber kTextNothingNew{4136};
inline constexpr messages::TextNumber kTextColumnsIgnored{4137};
inline constexpr messages::TextNumber kTextNoLines{4138};
inline constexpr messages::TextNumber kTextPlanning{4139};
inline constexpr messages::TextNumber kTextImporting{4140};
inline constexpr messages::TextNumber kTextImported{4141};
inline constexpr messages::TextNumber kTextSaveRefused{4142};
inline constexpr messages::TextNumber kTextNoneRefused{4143};
inline constexpr messages::TextNumber kTextCounts{4144};

inline constexpr messages::TextNumber kTextClipboard{4150};
inline constexpr messages::TextNumber kTextCannotPaste{4151};
inline constexpr messages::TextNumber kTextPasteTitle{4152};

inline constexpr messages::TextNumber kTextMenuDuplicate{4160};
inline constexpr messages::TextNumber kTextDuplicateTip{4161};
inline constexpr messages::TextNumber kTextDuplicateCaption{4162};
inline constexpr messages::TextNumber kTextCopyName{4163};
inline constexpr messages::TextNumber kTextNameByReplacing{4164};
inline constexpr messages::TextNumber kTextCopyClass{4165};
inline constexpr messages::TextNumber kTextPairs{4166};
inline constexpr messages::TextNumber kTextSeriesHint{4167};
inline constexpr messages::TextNumber kTextCopyPreview{4168};
inline constexpr messages::TextNumber kTextNoPair{4169};
inline constexpr messages::TextNumber kTextDuplicateNow{4170};
inline constexpr messages::TextNumber kTextDuplicating{4171};

inline constexpr messages::TextNumber kTextArgumentsCaption{4190};
inline constexpr messages::TextNumber kTextAllIn{4191};
inline constexpr messages::TextNumber kTextAllOut{4192};
inline constexpr messages::TextNumber kTextKeepEach{4193};
inline constexpr messages::TextNumber kTextYes{4194};
inline constexpr messages::TextNumber kTextNo{4195};
inline constexpr messages::TextNumber kTextEditArguments{4196};

// Several at once (texts/frame_rows.cpp).
inline constexpr messages::TextNumber kTextAddArgumentsTo{4550};
inline constexpr messages::TextNumber kTextUsedAlready{4551};
inline constexpr messages::TextNumber kTextNewAliasButton{4552};
inline constexpr messages::TextNumber kTextSelectNewAliases{4553};
inline constexpr messages::TextNumber kTextMenuSeveral{4554};
inline constexpr messages::TextNumber kTextAddAliases{4555};
inline constexpr messages::TextNumber kTextSelectNewItems{4556};
inline constexpr messages::TextNumber kTextNeedsFormulaOrAliases{4557};
inline constexpr messages::TextNumber kTextOneArgumentAdded{4558};
inline constexpr messages::TextNumber kTextArgumentsAdded{4559};
inline constexpr messages::TextNumber kTextOneAliasAdded{4560};
inline constexpr messages::TextNumber kTextAliasesAdded{4561};

}  // namespace dialogs
