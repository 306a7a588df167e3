// SPDX-License-Identifier: MIT
#include "messages/message.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "messages/error.h"

namespace messages {

struct Message::Data {
  Pattern pattern;
  std::vector<Value> values;

  const Value* Find(std::string_view placeholder) const {
    const auto found = std::ranges::find(values, placeholder, &Value::name);
    return found == values.end() ? nullptr : &*found;
  }
};

namespace {

constexpr Pattern kVerbatim{messages::kNoText, "<Words>"};
constexpr Pattern kJoined{messages::kNoText, "<First> <Second>"};
constexpr Pattern kLines{messages::kNoText, "<First>\n<Second>"};

Message Together(const Pattern& pattern, const Message& first, const Message& second) {
  if (first.empty()) return second;
  if (second.empty()) return first;
  return Message(pattern, {{"<First>", first}, {"<Second>", second}});
}

// A sentence goes on behind a value: a name that holds line ends makes no lines of it.
std::string OnOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return text;
}

}  // namespace

Message::Message(const Pattern& pattern, std::initializer_list<Value> values)
    : data_(std::make_shared<const Data>(Data{pattern, values})) {}

Message Message::WithValues(const Pattern& pattern, std::vector<Value> values) {
  Message message;
  message.data_ = std::make_shared<const Data>(Data{pattern, std::move(values)});
  return message;
}

Message Message::Verbatim(std::string_view words) {
  return words.empty() ? Message() : Message(kVerbatim, {{"<Words>", words}});
}

TextNumber Message::number() const { return data_ ? data_->pattern.number : kNoText; }

std::span<const Message::Value> Message::values() const {
  return data_ ? std::span<const Value>(data_->values) : std::span<const Value>();
}

std::string Message::Text(std::string_view placeholder) const {
  const Value* value = data_ ? data_->Find(placeholder) : nullptr;
  return value ? value->text : std::string();
}

Message Message::Part(std::string_view placeholder) const {
  const Value* value = data_ ? data_->Find(placeholder) : nullptr;
  return value ? value->message : Message();
}

bool operator==(const Message& a, const Message& b) {
  if (!a.data_ || !b.data_) return a.data_ == b.data_;
  return a.data_->pattern == b.data_->pattern && a.data_->values == b.data_->values;
}

bool Message::Contains(const Message& part) const {
  if (*this == part) return true;
  return data_ && std::ranges::any_of(data_->values, [&](const Value& value) {
           return !value.message.empty() && value.message.Contains(part);
         });
}

Message Message::Exchanged(std::string_view words, std::string_view others) const {
  if (!data_) return {};
  Data data = *data_;
  for (Value& value : data.values) {
    value.message = value.message.Exchanged(words, others);
    for (std::size_t at = 0; (at = value.text.find(words, at)) != std::string::npos;) {
      value.text.replace(at, words.size(), others);
      at += others.size();
    }
  }
  Message message;
  message.data_ = std::make_shared<const Data>(std::move(data));
  return message;
}

std::string Message::Sentence(const Lookup& lookup) const {
  if (!data_) return {};
  const std::string text = lookup(data_->pattern);
  const bool keeps_lines = data_->pattern == kVerbatim;
  std::string sentence;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t open = std::min(rest.find('<'), rest.size());
    sentence += rest.substr(0, open);
    rest.remove_prefix(open);
    if (rest.empty()) break;
    const std::size_t close = rest.find('>');
    const Value* value =
        close == std::string_view::npos ? nullptr : data_->Find(rest.substr(0, close + 1));
    const std::size_t taken = value ? close + 1 : 1;
    if (!value) {
      sentence += rest.substr(0, taken);
    } else if (!value->message.empty()) {
      sentence += value->message.Sentence(lookup);
    } else {
      sentence += keeps_lines ? value->text : OnOneLine(value->text);
    }
    rest.remove_prefix(taken);
  }
  return sentence;
}

std::string Message::English() const {
  return Sentence([](const Pattern& pattern) { return std::string(pattern.english); });
}

Message Joined(const Message& first, const Message& second) {
  return Together(kJoined, first, second);
}

Message Lines(const Message& first, const Message& second) {
  return Together(kLines, first, second);
}

Message MessageOf(const std::exception& error) {
  const auto* ours = dynamic_cast<const Error*>(&error);
  return ours ? ours->message() : Message::Verbatim(error.what());
}

}  // namespace messages
