// SPDX-License-Identifier: MIT
#include "codegen/report.h"

#include <utility>

#include "codegen/refused.h"

namespace codegen {

std::string NamesInShort(const std::vector<std::string>& names) {
  constexpr std::size_t kShown = 10;
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i == kShown) return text + ", ... (" + std::to_string(names.size()) + ")";
    text += (text.empty() ? "" : ", ") + names[i];
  }
  return text;
}

void Report::Warn(std::int32_t text, Replacements values) {
  std::string message = texts_.Text(text, values);
  if (messages_.insert(message).second) warnings_.push_back({text, std::move(message)});
}

void Report::Refuse(std::int32_t text, Replacements values) const {
  throw Refused(platform::ErrorKind::kRefused, text, texts_.Text(text, values));
}

std::vector<Warning> Report::TakeWarnings() {
  messages_.clear();
  return std::exchange(warnings_, {});
}

}  // namespace codegen
