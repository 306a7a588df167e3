// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "messages/text_number.h"

namespace check {

enum class Severity {
  kError,    // will fail, or loses something
  kWarning,  // rows and code are out of step
  kHint,
};

// Something that is looked for.
struct Rule {
  std::string_view code;  // three letters and three digits
  Severity severity;
  messages::TextNumber text;  // number of what is wrong; the remedy has the next one
  bool repairable;            // by itself, where nothing stands against it
};

namespace rule {
#define RULE(name, code, severity, text, repairable) \
  inline constexpr Rule name{code, Severity::severity, messages::TextNumber{text}, repairable};
#include "check/rules.def"
#undef RULE
}  // namespace rule

// All of them, in the order of the list.
std::span<const Rule* const> Rules();
// The rule of that code, in whatever letter case; null when there is none.
const Rule* FindRule(std::string_view code);

}  // namespace check
