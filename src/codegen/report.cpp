// SPDX-License-Identifier: MIT
#include "codegen/report.h"

#include <utility>

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

void Report::Refuse(std::int32_t text, Replacements values) {
  Fail(platform::Error(platform::ErrorKind::kRefused, text, texts_.Text(text, values)));
}

void Report::Fail(const platform::Error& error) {
  if (!failure_) failure_ = error;
}

std::vector<Warning> Report::TakeWarnings() {
  messages_.clear();
  return std::exchange(warnings_, {});
}

std::optional<platform::Error> Report::TakeFailure() {
  return std::exchange(failure_, std::nullopt);
}

}  // namespace codegen
