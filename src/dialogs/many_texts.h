// SPDX-License-Identifier: MIT
// The texts of series in dialogs, and of rows that are dragged, by the numbers of the text table
// (texts/many_rows.cpp).
#pragma once

#include <cstdint>

namespace dialogs {

enum ManyTextNumber : std::int32_t {
  kTextAliasesOfSeries = 4750,
  kTextOrSeries = 4752,
  kTextSeriesExample,
  kTextArgumentsOfSeries,
  kTextNoSuchAlias,
  kTextAddingAliases,

  // Drag and drop.
  kTextCopyIntoTitle = 4770,
  kTextAddArgumentsTitle,

  // Clipboard.
  kTextCopyFormulas = 4780,
  kTextPasteFormulas,
};

}  // namespace dialogs
