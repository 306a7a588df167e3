// SPDX-License-Identifier: MIT
#include "dialogs/field_filter.h"

namespace dialogs {

namespace {

bool IsLetter(unsigned char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(unsigned char c) { return c >= '0' && c <= '9'; }

bool Takes(std::int32_t kind, unsigned char lead) {
  const bool name_character = IsLetter(lead) || lead == '_' || lead == '(' || lead == ')';
  switch (static_cast<FieldKind>(kind)) {
    case FieldKind::kNothing:
      return false;
    case FieldKind::kLetters:
      return name_character;
    case FieldKind::kLettersDigits:
      return name_character || IsDigit(lead);
    case FieldKind::kNoDigits:
      return !IsDigit(lead);
    case FieldKind::kNoLetters:
      return !IsLetter(lead);
  }
  return true;
}

// Length in bytes of the UTF-8 character that starts at `at`; its lead byte decides everything,
// since all the alphabets are ASCII.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
  std::size_t end = at + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  return end - at;
}

}  // namespace

FilteredText FilterField(std::string_view text, std::int32_t flags, std::int32_t max_length) {
  const std::int32_t kind = flags & kFieldKindMask;
  const bool blanks = (flags & kFieldAllowsBlanks) != 0;
  FilteredText result;
  std::int32_t kept = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = CharacterLength(text, at);
    const bool blank_rejected = text[at] == ' ' && !blanks;
    const bool full = max_length > 0 && kept >= max_length;
    if (blank_rejected || full || !Takes(kind, static_cast<unsigned char>(text[at]))) {
      ++result.rejected;
    } else {
      result.text.append(text, at, length);
      ++kept;
    }
    at += length;
  }
  return result;
}

}  // namespace dialogs
