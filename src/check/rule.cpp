// SPDX-License-Identifier: MIT
#include "check/rule.h"

#include <algorithm>

#include "platform/text.h"

namespace check {

std::span<const Rule* const> Rules() {
  static constexpr const Rule* kRules[] = {
#define RULE(name, code, severity, text, repairable) &rule::name,
#include "check/rules.def"
#undef RULE
  };
  return kRules;
}

const Rule* FindRule(std::string_view code) {
  const auto found = std::ranges::find_if(
      Rules(), [&](const Rule* rule) { return platform::EqualsIgnoringCase(rule->code, code); });
  return found == Rules().end() ? nullptr : *found;
}

}  // namespace check
