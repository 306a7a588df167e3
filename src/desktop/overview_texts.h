// SPDX-License-Identifier: MIT
// The texts of the overview of formulas and of going to names, by the numbers of the text table
// (texts/plant_rows.cpp).
#pragma once

namespace desktop {

enum OverviewText : int {
  kTextOverview = 4300,
  kTextFormulaName,
  kTextClass,
  kTextCallType,
  kTextScanTime,
  kTextEnabled,
  kTextArgumentCount,
  kTextFormulaComment,
  kTextFilterFormulas,
  kTextAllClasses,
  kTextAllCallTypes,
  kTextOneFormula,
  kTextFormulas,
  kTextFormulasOf,
  kTextNoFormulas,
  kTextNoFormulaFound,

  kTextOpenFormula = 4320,
  kTextNewFormula,
  kTextEditFormula,
  kTextDeleteFormulas,
  kTextShowCode,
  kTextCopyName,
  kTextEnable,
  kTextDisable,
  kTextSetCallType,
  kTextMoveToClass,

  kTextEnablingMany = 4330,
  kTextDisablingMany,
  kTextSettingCallType,
  kTextMovingMany,
  kTextAskDeleteMany,
  kTextDeleteManyDetail,
  kTextAskMove,
  kTextAskMoveOne,
  kTextAskMoveDetail,
  kTextWithCode,
  kTextWithoutCode,
  kTextOneFormulaChanged,
  kTextFormulasChanged,
  kTextOneFormulaDeleted,
  kTextFormulasDeleted,
  kTextFormulasAreSo,
  kTextSelectFormulas,
  kTextRefusedAt,
  kTextChangingFormulas,

  // The strip above a formula's arguments.
  kTextStripClass = 4350,
  kTextStripCall,
  kTextStripEnabled,
  kTextStripDisabled,
  kTextStripComment,
  kTextStripNoComment,
  kTextAsynchronousEvery,
  kTextEditField,

  // What is seen of the window.
  kTextMenuView = 4390,
  kTextViewTree,
  kTextViewCode,
  kTextViewCodeBeside,

  // Going to a name.
  kTextGoToName = 4360,
  kTextPartOfName,
  kTextNamesFound,
  kTextKindOfName,
  kTextNameDetail,
  kTextGoToHint,
  kTextNoSuchName,
  kTextItemWithoutAlias,
  kTextMenuGoToName,
  kTextFirstKindOfName = 4370,  // by NameIndex::Kind
};

}  // namespace desktop
