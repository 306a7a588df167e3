// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "exchange/place.h"
#include "messages/text_number.h"

namespace exchange {

// Reads JSON from front to end. Strings are unescaped where they stand: the text is changed and
// must outlive them. Everything raises FormatError with line and column.
class JsonText {
 public:
  explicit JsonText(std::string& text) : text_(text) {}

  enum class Kind { kObject, kArray, kString, kNumber, kTrue, kFalse, kNull };
  // Of the value that comes next.
  Kind Peek();
  // Of that value.
  Place Here();

  // Calls `read` for each member; it reads the value.
  template <class Read>
  void ReadObject(Read read);
  // Calls `read` for each element; it reads it.
  template <class Read>
  void ReadArray(Read read);
  std::string_view ReadString();
  // As it is written.
  std::string_view ReadNumber();
  // Passes over any value.
  void Skip();
  void RequireEnd();
  // How far it was read, in bytes.
  std::size_t position() const { return at_; }

 private:
  static constexpr int kMaxDepth = 64;

  void SkipBlanks();
  bool Take(char c);
  void Require(char c);
  void Enter(char c);
  void Leave() { --depth_; }
  void TakeWord(std::string_view word);
  void Unescape(std::size_t& to);
  char32_t TakeUnit();
  [[noreturn]] void Refuse(messages::TextNumber text);

  std::string& text_;
  std::size_t at_ = 0;
  int depth_ = 0;
  std::uint32_t line_ = 1;
  std::size_t line_start_ = 0;
  std::size_t continued_ = 0;  // bytes of the line in front that begin no character
};

// A JSON string of UTF-8 text; what is not UTF-8 becomes U+FFFD.
std::string JsonString(std::string_view text);

template <class Read>
void JsonText::ReadObject(Read read) {
  Enter('{');
  if (!Take('}')) {
    do {
      SkipBlanks();
      const std::string_view name = ReadString();
      Require(':');
      read(name);
    } while (Take(','));
    Require('}');
  }
  Leave();
}

template <class Read>
void JsonText::ReadArray(Read read) {
  Enter('[');
  if (!Take(']')) {
    do {
      read();
    } while (Take(','));
    Require(']');
  }
  Leave();
}

}  // namespace exchange
