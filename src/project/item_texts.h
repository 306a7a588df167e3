// SPDX-License-Identifier: MIT
// The texts about lines of an item catalogue, by the numbers of the text table
// (texts/desktop_rows.cpp).
#pragma once

namespace project {

enum ItemText : int {
  kTextItemNoName = 1550,
  kTextItemUnknownType,
  kTextItemOpenQuote,
  kTextItemTooLong,
  kTextItemMoreSkipped,
};

}  // namespace project
