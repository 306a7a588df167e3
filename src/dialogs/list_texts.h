// SPDX-License-Identifier: MIT
// The texts of lists in the window, by the numbers of the text table (texts/list_rows.cpp).
#pragma once

#include <cstdint>

namespace dialogs {

enum ListTextNumber : std::int32_t {
  kTextMenuImport = 4100,
  kTextMenuExport,
  kTextImportList,
  kTextListFilter,
  kTextExportProject,
  kTextExportFilter,
  kTextExported,
  kTextCannotImport,
  kTextCannotExport,
  kTextExportedWithout,

  kTextImportCaption,
  kTextShowLines,
  kTextAllLines,
  kTextNewLines,  // by exchange::RowAction, as are the next three
  kTextChangedLines,
  kTextUnchangedLines,
  kTextRefusedLines,
  kTextColumnAction,
  kTextColumnLine,
  kTextColumnName,
  kTextColumnDetail,
  kTextColumnReason,
  kTextNew,  // by exchange::RowAction, as are the next three
  kTextChanged,
  kTextUnchanged,
  kTextRefused,
  kTextExisting,
  kTextExistingError,  // by exchange::ExistingPolicy, as are the next three
  kTextExistingSkip,
  kTextExistingUpdate,
  kTextExistingRename,
  kTextDefaultClass,
  kTextCreateAliases,
  kTextSkipRefused,
  kTextImportNow,
  kTextLinesRefused,
  kTextNothingNew,
  kTextColumnsIgnored,
  kTextNoLines,
  kTextPlanning,
  kTextImporting,
  kTextImported,
  kTextSaveRefused,
  kTextNoneRefused,
  kTextCounts,

  kTextClipboard = 4150,
  kTextCannotPaste,
  kTextPasteTitle,

  kTextMenuDuplicate = 4160,
  kTextDuplicateTip,
  kTextDuplicateCaption,
  kTextCopyName,
  kTextNameByReplacing,
  kTextCopyClass,
  kTextPairs,
  kTextSeriesHint,
  kTextCopyPreview,
  kTextNoPair,
  kTextDuplicateNow,
  kTextDuplicating,

  kTextArgumentsCaption = 4190,
  kTextAllIn,
  kTextAllOut,
  kTextKeepEach,
  kTextYes,
  kTextNo,
  kTextEditArguments,

  // Several at once (texts/frame_rows.cpp).
  kTextAddArgumentsTo = 4550,
  kTextUsedAlready,
  kTextNewAliasButton,
  kTextSelectNewAliases,
  kTextMenuSeveral,
  kTextAddAliases,
  kTextSelectNewItems,
  kTextNeedsFormulaOrAliases,
  kTextOneArgumentAdded,
  kTextArgumentsAdded,
  kTextOneAliasAdded,
  kTextAliasesAdded,
};

}  // namespace dialogs
