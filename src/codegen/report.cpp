// SPDX-License-Identifier: MIT
#include "codegen/report.h"

#include <utility>

#include "codegen/refused.h"
#include "messages/text_number.h"

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

void Report::Warn(messages::TextNumber text, Values values) {
  std::string key = std::to_string(ToInt(text));
  for (const messages::Message::Value& value : values)
    key += '\n' + value.text + value.message.English();
  if (known_.insert(std::move(key)).second) warnings_.push_back(messages::Message({text}, values));
}

void Report::Refuse(messages::TextNumber text, Values values) {
  throw Refused(platform::ErrorKind::kRefused, ToInt(text), messages::Message({text}, values));
}

std::vector<messages::Message> Report::TakeWarnings() {
  known_.clear();
  return std::exchange(warnings_, {});
}

}  // namespace codegen
