// SPDX-License-Identifier: MIT
#include "vbfiles/code_page.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/error.h"
#include "platform/text.h"
#include "vbfiles/code_page_tables.h"
#include "vbfiles/messages.h"

namespace vbfiles {

namespace {

constexpr std::int32_t kErrInvalidCall = 5;
constexpr char kEndOfFile = 0x1A;
constexpr char32_t kPassedThrough = 0xF700;
constexpr int kDoubleBytePages[] = {932, 936, 949, 950};

const SingleByteTable* FindTable(int number) {
  const auto* end = std::end(kSingleByteTables);
  const auto* found = std::find_if(std::begin(kSingleByteTables), end,
                                   [&](const SingleByteTable& t) { return t.number == number; });
  return found == end ? nullptr : found;
}

bool IsDoubleByte(int number) {
  return std::find(std::begin(kDoubleBytePages), std::end(kDoubleBytePages), number) !=
         std::end(kDoubleBytePages);
}

}  // namespace

CodePage::CodePage(int number) : number_(number) {
  const SingleByteTable* table = FindTable(number);
  for (unsigned byte = 0; byte < 256; ++byte) {
    characters_[byte] = static_cast<char16_t>(
        byte < 0x80 ? byte : (table != nullptr ? table->high[byte - 0x80] : kPassedThrough + byte));
    lead_[byte] =
        IsDoubleByte(number) && ((byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC) ||
                                 (number != 932 && byte >= 0x81 && byte <= 0xFE));
  }
  for (unsigned byte = 0; byte < 256; ++byte) {
    const auto lower = static_cast<char16_t>(platform::FoldCase(characters_[byte]));
    const auto* found = std::find(characters_.begin(), characters_.end(), lower);
    folded_[byte] = static_cast<unsigned char>(
        found == characters_.end() ? byte : static_cast<std::size_t>(found - characters_.begin()));
  }
}

const CodePage& CodePage::Get(int number) {
  static const std::array<CodePage, 15> pages = {
      CodePage(1252), CodePage(874),  CodePage(932),  CodePage(936),  CodePage(949),
      CodePage(950),  CodePage(1250), CodePage(1251), CodePage(1253), CodePage(1254),
      CodePage(1255), CodePage(1256), CodePage(1257), CodePage(1258), CodePage(kUtf8)};
  for (const CodePage& page : pages) {
    if (page.number_ == number) return page;
  }
  throw platform::Error(
      platform::ErrorKind::kRefused, kErrInvalidCall,
      Joined({message::kUnknownCodePage, {{"<Number>", number}}}, message::kChooseCodePage));
}

std::string CodePage::ToUtf8(std::string_view bytes) const {
  const bool ascii = std::ranges::all_of(bytes, [](char c) { return c >= 0; });
  if (ascii || number_ == kUtf8) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size());
  for (char byte : bytes) {
    platform::AppendCodePoint(text, characters_[static_cast<unsigned char>(byte)]);
  }
  return text;
}

bool CodePage::Append(std::string& bytes, char32_t character) const {
  if (character == 0 || character == kEndOfFile) return false;
  if (character < 0x80 || number_ == kUtf8) {
    platform::AppendCodePoint(bytes, character);
    return true;
  }
  const auto* found = std::find(characters_.begin() + 0x80, characters_.end(), character);
  if (found == characters_.end()) return false;
  bytes += static_cast<char>(found - characters_.begin());
  return true;
}

std::size_t CodePage::PlainLength(std::string_view text) {
  const auto* end = std::ranges::find_if(text, [](char c) { return c <= 0 || c == kEndOfFile; });
  return static_cast<std::size_t>(end - text.begin());
}

std::string CodePage::NameFromUtf8(std::string_view name) const {
  const std::size_t plain = PlainLength(name);
  std::string bytes(name.substr(0, plain));
  for (std::size_t position = plain; position < name.size();) {
    if (!Append(bytes, platform::NextCodePoint(name, position))) return "";
  }
  return bytes;
}

bool CodePage::SameName(std::string_view a, std::string_view b) const {
  if (number_ == kUtf8) return platform::EqualsIgnoringCase(a, b);
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (folded_[static_cast<unsigned char>(a[i])] != folded_[static_cast<unsigned char>(b[i])]) {
      return false;
    }
    if (IsLeadByte(a[i]) && ++i < a.size() && a[i] != b[i]) return false;
  }
  return true;
}

std::uint32_t CodePage::NameHash(std::string_view name) const {
  std::string utf8_folded;
  if (number_ == kUtf8) name = utf8_folded = platform::FoldCase(name);
  std::uint32_t hash = 2166136261u;  // FNV-1a
  bool second = false;               // byte of a two-byte character: has no case
  for (char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    hash = (hash ^ (second || number_ == kUtf8 ? byte : folded_[byte])) * 16777619u;
    second = !second && IsLeadByte(c);
  }
  return hash;
}

}  // namespace vbfiles
