// SPDX-License-Identifier: MIT
// What a layer has to say, as a value: a number, the values that belong to it, and messages inside
// it (a cause, a remedy, a place). Its sentence is made where it is shown, in the language of that
// moment.
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "messages/text_number.h"

namespace messages {

// One text of a layer, defined once, in the list of that layer ("<layer>/messages.def"). <Name>
// stands for a value. The views are of literals.
struct Pattern {
  TextNumber number = kNoText;
  std::string_view english = {};  // empty: only the text table has it
  friend bool operator==(const Pattern&, const Pattern&) = default;
};

// A copy costs a reference. Nothing of it changes after it was made.
class Message {
 public:
  struct Value;
  // The text to be filled in for a pattern.
  using Lookup = std::function<std::string(const Pattern&)>;

  Message() = default;  // says nothing
  Message(const Pattern& pattern, std::initializer_list<Value> values = {});

  // A message with values that were kept; the pattern must outlive it.
  static Message WithValues(const Pattern& pattern, std::vector<Value> values);

  // Words that stand as they are in every language: of the operating system, of a host.
  static Message Verbatim(std::string_view words);

  bool empty() const { return data_ == nullptr; }
  // kNoText when empty, verbatim, or the same in every language.
  TextNumber number() const;
  // What stands for its placeholders, in the order in which it was given.
  std::span<const Value> values() const;
  // The text or the message under the placeholder, angle brackets included; empty when there is
  // none.
  std::string Text(std::string_view placeholder) const;
  Message Part(std::string_view placeholder) const;
  // Whether `part` is this message or stands in it, however deep.
  bool Contains(const Message& part) const;
  // Whether both say the same with the same values.
  friend bool operator==(const Message& a, const Message& b);
  // The same with `words` exchanged for `others` wherever they stand in a value.
  Message Exchanged(std::string_view words, std::string_view others) const;

  // The sentence. Values are filled in in one pass: a value may hold what looks like a placeholder.
  std::string Sentence(const Lookup& lookup) const;
  std::string English() const;

 private:
  struct Data;
  std::shared_ptr<const Data> data_;
};

// What stands for a placeholder: text as it is, a number, or a message.
struct Message::Value {
  Value(std::string_view placeholder, std::string_view words) : name(placeholder), text(words) {}
  Value(std::string_view placeholder, const std::string& words) : name(placeholder), text(words) {}
  Value(std::string_view placeholder, const char* words) : name(placeholder), text(words) {}
  Value(std::string_view placeholder, std::integral auto number)
      : name(placeholder), text(std::to_string(number)) {}
  Value(std::string_view placeholder, Message inside)
      : name(placeholder), message(std::move(inside)) {}

  friend bool operator==(const Value&, const Value&) = default;

  std::string name;  // with its angle brackets
  std::string text;
  Message message;
};

// Two messages as sentences side by side, either of which may be empty.
Message Joined(const Message& first, const Message& second);
// The same, each on a line of its own.
Message Lines(const Message& first, const Message& second);

}  // namespace messages
