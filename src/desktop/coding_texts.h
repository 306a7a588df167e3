// SPDX-License-Identifier: MIT
// The texts of what helps to write code in the window, by the numbers of the text table
// (texts/coding_rows.cpp).
#pragma once

namespace desktop {

enum CodingText : int {
  kTextReplaceBy = 4680,
  kTextReplaceOne,
  kTextReplaceAll,
  kTextReplacedCount,
  kTextFindClose,
  kTextMenuFindInModule,
  kTextMenuReplaceInModule,
  kTextFindWholeWord,
  kTextFindCase,

  kTextMenuComplete = 4700,
  kTextMenuQuickInfo,
  kTextMenuFold,
  kTextMenuFoldAll,
  kTextNothingToComplete,
  kTextUnknownName,
  kTextNothingKnown,
  kTextIsIn,
  kTextIsOut,
};

}  // namespace desktop
