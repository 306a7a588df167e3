// SPDX-License-Identifier: MIT
// The texts of what helps to write code in the window, by the numbers of the text table
// (texts/coding_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace desktop {

inline constexpr messages::TextNumber kTextReplaceBy{4680};
inline constexpr messages::TextNumber kTextReplaceOne{4681};
inline constexpr messages::TextNumber kTextReplaceAll{4682};
inline constexpr messages::TextNumber kTextReplacedCount{4683};
inline constexpr messages::TextNumber kTextFindClose{4684};
inline constexpr messages::TextNumber kTextMenuFindInModule{4685};
inline constexpr messages::TextNumber kTextMenuReplaceInModule{4686};
inline constexpr messages::TextNumber kTextFindWholeWord{4687};
inline constexpr messages::TextNumber kTextFindCase{4688};

inline constexpr messages::TextNumber kTextMenuComplete{4700};
inline constexpr messages::TextNumber kTextMenuQuickInfo{4701};
inline constexpr messages::TextNumber kTextMenuFold{4702};
inline constexpr messages::TextNumber kTextMenuFoldAll{4703};
inline constexpr messages::TextNumber kTextNothingToComplete{4704};
inline constexpr messages::TextNumber kTextUnknownName{4705};
inline constexpr messages::TextNumber kTextNothingKnown{4706};
inline constexpr messages::TextNumber kTextIsIn{4707};
inline constexpr messages::TextNumber kTextIsOut{4708};

}  // namespace desktop
