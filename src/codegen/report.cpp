// SPDX-License-Identifier: MIT
#include "codegen/report.h"

#include <utility>

namespace codegen {

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
