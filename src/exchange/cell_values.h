// SPDX-License-Identifier: MIT
// Values as people and spreadsheets write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "exchange/contents.h"

namespace exchange {

// "true", "yes", "ja", "wahr", "1", "-1", "x" and their opposites, without regard to case.
std::optional<bool> ParseTruth(std::string_view text);

// A whole number, also with zeros behind a decimal comma or point. Nothing for anything else, and
// for "1.000", which may be one or a thousand.
std::optional<std::int32_t> ParseWholeNumber(std::string_view text);
// Whether the text is a number, but one that may be read in two ways.
bool IsUnclearNumber(std::string_view text);

// A call type by number or by its German or English name; "on Variable Change" and
// "on-variable-change" are one.
std::optional<std::int32_t> ParseCallType(std::string_view text);

// "Level:in, Pump:out, Mode:in:out, Shift", parted by comma, semicolon or line end. A name that
// holds one of the signs is quoted. Nothing when it is no such list.
std::optional<std::vector<ArgumentRow>> ParseArgumentList(std::string_view text, const Place& place,
                                                          Contents& keeper);
// Appends an argument as the list has it.
void AppendArgument(std::string& list, std::string_view alias, bool in, bool out);

// Whether a table cannot carry the character: all but tab and line ends.
bool IsControlCharacter(char c);

// Whether a spreadsheet would take the text for a formula.
bool IsUnsafeCell(std::string_view text);
// The text with an apostrophe in front when a spreadsheet would run it, or when it looks as if one
// had been put before it.
std::string SafeCell(std::string_view text);
// Takes that apostrophe off again.
std::string_view FromSafeCell(std::string_view text);

}  // namespace exchange
