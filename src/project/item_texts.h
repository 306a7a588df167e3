// SPDX-License-Identifier: MIT
// The texts about lines of an item catalogue, by the numbers of the text table
// (texts/desktop_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace project {

inline constexpr messages::TextNumber kTextItemNoName{1550};
inline constexpr messages::TextNumber kTextItemUnknownType{1551};
inline constexpr messages::TextNumber kTextItemOpenQuote{1552};
inline constexpr messages::TextNumber kTextItemTooLong{1553};
inline constexpr messages::TextNumber kTextItemMoreSkipped{1554};

}  // namespace project
