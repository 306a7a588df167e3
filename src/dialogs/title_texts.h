// SPDX-License-Identifier: MIT
// Titles of dialogs and of the window in the workbench, by the numbers of the text table
// (texts/look_rows.cpp).
#pragma once

namespace dialogs {

enum TitleText : int {
  kTextNewFormulaTitle = 4940,
  kTextFormulaTitle,
  kTextNewArgumentTitle,
  kTextArgumentTitle,
  kTextNewAliasTitle,
  kTextAliasTitle,
  kTextAliasesTitle,
  kTextFormulasTitle,
  kTextMakeAlias,
};

}  // namespace dialogs
