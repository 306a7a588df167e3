// SPDX-License-Identifier: MIT
#include "settings/setting_text.h"

#include <algorithm>
#include <cmath>

namespace settings {

using platform::Variant;

Variant ValueFromText(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  if (text == "FALSE" || text == "False" || text == "false") return Variant(false);
  if (text == "TRUE" || text == "True" || text == "true") return Variant(true);
  if (!text.empty() && text[0] >= '0' && text[0] <= '9') {
    std::string number(text);
    std::replace(number.begin(), number.end(), ',', '.');
    if (double parsed = platform::Val(number); std::isfinite(parsed)) return Variant(parsed);
  }
  return Variant(text);
}

std::string TextFromValue(const Variant& value, char decimal_sign) {
  std::string text = value.ToText();
  if (value.Get<double>()) std::replace(text.begin(), text.end(), '.', decimal_sign);
  return text;
}

}  // namespace settings
