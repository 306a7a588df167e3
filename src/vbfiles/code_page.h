// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "vbcode/source_lexer.h"

namespace vbfiles {

// A Windows code page: how source files hold text. Three kinds:
// - one byte per character (874, 1250 to 1258): converted by table, every byte round-trips;
// - one or two bytes (932, 936, 949, 950): the bytes pass through. A byte from 0x80 on is shown
//   as the private character U+F700 + byte and becomes that byte again; other characters outside
//   ASCII are lacking;
// - UTF-8 (65001), for text that a live environment delivers.
class CodePage {
 public:
  static constexpr int kWestern = 1252;
  static constexpr int kUtf8 = 65001;

  // The page of that number. Raises platform::Error (kRefused) that lists the known ones.
  static const CodePage& Get(int number);

  int number() const { return number_; }
  std::string ToUtf8(std::string_view bytes) const;
  // Appends the character in this page; false, nothing appended, when the page lacks it. U+0000
  // and the end-of-file mark U+001A are lacking: no source line can hold them.
  bool Append(std::string& bytes, char32_t character) const;
  // How many bytes at the beginning of UTF-8 text are characters that every page has as they are.
  static std::size_t PlainLength(std::string_view text);
  // The bytes of a name; "" when the page lacks one of its characters.
  std::string NameFromUtf8(std::string_view name) const;

  // Whether the byte begins a character of two bytes.
  bool IsLeadByte(char byte) const { return lead_[static_cast<unsigned char>(byte)]; }
  const vbcode::LeadBytes& lead_bytes() const { return lead_; }
  // Names as bytes of this page, compared without regard to case; equal names have equal hashes.
  bool SameName(std::string_view a, std::string_view b) const;
  std::uint32_t NameHash(std::string_view name) const;

 private:
  explicit CodePage(int number);

  int number_;
  std::array<char16_t, 256> characters_{};   // single-byte pages and ASCII
  std::array<unsigned char, 256> folded_{};  // lower-case byte
  vbcode::LeadBytes lead_{};
};

}  // namespace vbfiles
