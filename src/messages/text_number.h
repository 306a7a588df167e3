// SPDX-License-Identifier: MIT
// The number of a text in the table of texts: a type of its own, so that neither a plain number is
// taken for a text nor a text for a number.
#pragma once

#include <concepts>
#include <cstdint>

namespace messages {

enum class TextNumber : std::int32_t {};

// Of a pattern that is the same in every language and stands in no table.
inline constexpr TextNumber kNoText{0};

constexpr std::int32_t ToInt(TextNumber number) { return static_cast<std::int32_t>(number); }

// The text that stands `distance` behind another: of texts that belong to successive values.
constexpr TextNumber operator+(TextNumber first, std::integral auto distance) {
  return TextNumber{ToInt(first) + static_cast<std::int32_t>(distance)};
}

}  // namespace messages
