// SPDX-License-Identifier: MIT
// The texts of the overview of formulas and of going to names, by the numbers of the text table
// (texts/plant_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace desktop {

inline constexpr messages::TextNumber kTextOverview{4300};
inline constexpr messages::TextNumber kTextFormulaName{4301};
inline constexpr messages::TextNumber kTextClass{4302};
inline constexpr messages::TextNumber kTextCallType{4303};
inline constexpr messages::TextNumber kTextScanTime{4304};
inline constexpr messages::TextNumber kTextEnabled{4305};
inline constexpr messages::TextNumber kTextArgumentCount{4306};
inline constexpr messages::TextNumber kTextFormulaComment{4307};
inline constexpr messages::TextNumber kTextFilterFormulas{4308};
inline constexpr messages::TextNumber kTextAllClasses{4309};
inline constexpr messages::TextNumber kTextAllCallTypes{4310};
inline constexpr messages::TextNumber kTextOneFormula{4311};
inline constexpr messages::TextNumber kTextFormulas{4312};
inline constexpr messages::TextNumber kTextFormulasOf{4313};
inline constexpr messages::TextNumber kTextNoFormulas{4314};
inline constexpr messages::TextNumber kTextNoFormulaFound{4315};

inline constexpr messages::TextNumber kTextOpenFormula{4320};
inline constexpr messages::TextNumber kTextNewFormula{4321};
inline constexpr messages::TextNumber kTextEditFormula{4322};
inline constexpr messages::TextNumber kTextDeleteFormulas{4323};
inline constexpr messages::TextNumber kTextShowCode{4324};
inline constexpr messages::TextNumber kTextCopyName{4325};
inline constexpr messages::TextNumber kTextEnable{4326};
inline constexpr messages::TextNumber kTextDisable{4327};
inline constexpr messages::TextNumber kTextSetCallType{4328};
inline constexpr messages::TextNumber kTextMoveToClass{4329};

inline constexpr messages::TextNumber kTextEnablingMany{4330};
inline constexpr messages::TextNumber kTextDisablingMany{4331};
inline constexpr messages::TextNumber kTextSettingCallType{4332};
inline constexpr messages::TextNumber kTextMovingMany{4333};
inline constexpr messages::TextNumber kTextAskDeleteMany{4334};
inline constexpr messages::TextNumber kTextDeleteManyDetail{4335};
inline constexpr messages::TextNumber kTextAskMove{4336};
inline constexpr messages::TextNumber kTextAskMoveOne{4337};
inline constexpr messages::TextNumber kTextAskMoveDetail{4338};
inline constexpr messages::TextNumber kTextWithCode{4339};
inline constexpr messages::TextNumber kTextWithoutCode{4340};
inline constexpr messages::TextNumber kTextOneFormulaChanged{4341};
inline constexpr messages::TextNumber kTextFormulasChanged{4342};
inline constexpr messages::TextNumber kTextOneFormulaDeleted{4343};
inline constexpr messages::TextNumber kTextFormulasDeleted{4344};
inline constexpr messages::TextNumber kTextFormulasAreSo{4345};
inline constexpr messages::TextNumber kTextSelectFormulas{4346};
inline constexpr messages::TextNumber kTextRefusedAt{4347};
inline constexpr messages::TextNumber kTextChangingFormulas{4348};

// The strip above a formula's arguments.
inline constexpr messages::TextNumber kTextStripClass{4350};
inline constexpr messages::TextNumber kTextStripCall{4351};
inline constexpr messages::TextNumber kTextStripEnabled{4352};
inline constexpr messages::TextNumber kTextStripDisabled{4353};
inline constexpr messages::TextNumber kTextStripComment{4354};
inline constexpr messages::TextNumber kTextStripNoComment{4355};
inline constexpr messages::TextNumber kTextEditField{4357};

// What is seen of the window.
inline constexpr messages::TextNumber kTextMenuView{4390};
inline constexpr messages::TextNumber kTextViewTree{4391};
inline constexpr messages::TextNumber kTextViewCode{4392};
inline constexpr messages::TextNumber kTextViewCodeBeside{4393};

// Going to a name.
inline constexpr messages::TextNumber kTextGoToName{4360};
inline constexpr messages::TextNumber kTextPartOfName{4361};
inline constexpr messages::TextNumber kTextNamesFound{4362};
inline constexpr messages::TextNumber kTextKindOfName{4363};
inline constexpr messages::TextNumber kTextNameDetail{4364};
inline constexpr messages::TextNumber kTextGoToHint{4365};
inline constexpr messages::TextNumber kTextNoSuchName{4366};
inline constexpr messages::TextNumber kTextItemWithoutAlias{4367};
inline constexpr messages::TextNumber kTextMenuGoToName{4368};
inline constexpr messages::TextNumber kTextFirstKindOfName{4370};  // by NameIndex::Kind

}  // namespace desktop
