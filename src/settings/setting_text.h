// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/variant.h"

namespace settings {

// Value of a setting's text. Leading blanks do not count. "True" and "False" (also all upper or
// all lower case) are booleans; a text that begins with a digit is a number, with decimal comma
// or point; everything else, "-5" included, stays text.
platform::Variant ValueFromText(std::string_view text);

// Text of a setting's value: "True" or "False", text as it is, numbers with the decimal sign.
std::string TextFromValue(const platform::Variant& value, char decimal_sign);

}  // namespace settings
