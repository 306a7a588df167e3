// SPDX-License-Identifier: MIT
// The texts of what the window finds in code, by the numbers of the text table
// (texts/search_rows.cpp).
#pragma once

namespace desktop {

enum SearchText : int {
  kTextMenuCode = 3900,
  kTextMenuFindInAllCode,
  kTextMenuUses,
  kTextMenuDefinition,

  kTextPlacesInCode = 3905,
  kTextProcedure,
  kTextFileColumn,
  kTextLine,
  kTextKind,
  kTextText,
  kTextDeclaration = 3917,
  kTextUses = 3919,
  kTextFound,
  kTextNotUsed,
  kTextNowhere,
  kTextNoNameAtCaret,
  kTextNotDeclared,
  kTextDeclarations,
  kTextSaveFirst,
  kTextChooseName,
  kTextFindLabel,
  kTextReplaceLabel,
  kTextWholeWord,
  kTextMatchCase,
  kTextFind,
  kTextReplace,
  kTextReplaceTitle,
  kTextReplaceHeading,
  kTextReplaceNow,
  kTextMorePlaces,
  kTextCannotSearch,
  kTextCannotReplace,
  kTextReplaced,
  kTextNotice,
  kTextNotices,
};

}  // namespace desktop
