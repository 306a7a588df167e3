// SPDX-License-Identifier: MIT
#include "codegen/identifier.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/text.h"

namespace codegen {
namespace {

// Reserved identifiers of the language, lower case, sorted.
constexpr std::array kReservedWords = std::to_array<std::string_view>({
    "abs",      "addressof", "and",        "any",      "array",   "as",         "attribute",
    "boolean",  "byref",     "byte",       "byval",    "call",    "case",       "cbool",
    "cbyte",    "ccur",      "cdate",      "cdbl",     "cdec",    "cdecl",      "cint",
    "circle",   "clng",      "close",      "const",    "csng",    "cstr",       "currency",
    "cvar",     "cverr",     "date",       "debug",    "decimal", "declare",    "defbool",
    "defbyte",  "defcur",    "defdate",    "defdbl",   "defdec",  "defint",     "deflng",
    "defobj",   "defsng",    "defstr",     "defvar",   "dim",     "do",         "doevents",
    "double",   "each",      "else",       "elseif",   "empty",   "end",        "endif",
    "enum",     "eqv",       "erase",      "event",    "exit",    "false",      "fix",
    "for",      "friend",    "function",   "get",      "global",  "gosub",      "goto",
    "if",       "imp",       "implements", "in",       "input",   "inputb",     "int",
    "integer",  "is",        "lbound",     "len",      "lenb",    "let",        "like",
    "lock",     "long",      "loop",       "lset",     "me",      "mod",        "new",
    "next",     "not",       "nothing",    "null",     "on",      "open",       "option",
    "optional", "or",        "paramarray", "preserve", "print",   "private",    "pset",
    "public",   "put",       "raiseevent", "redim",    "rem",     "resume",     "return",
    "rset",     "scale",     "seek",       "select",   "set",     "sgn",        "shared",
    "single",   "spc",       "static",     "stop",     "string",  "sub",        "tab",
    "then",     "to",        "true",       "type",     "typeof",  "ubound",     "unlock",
    "until",    "variant",   "wend",       "while",    "with",    "withevents", "write",
    "xor",
});
static_assert(std::is_sorted(kReservedWords.begin(), kReservedWords.end()));
constexpr std::size_t kLongestReservedWord =
    std::ranges::max(kReservedWords, {}, &std::string_view::size).size();

constexpr std::uint8_t kUnmapped = '?';  // what the code page makes of a foreign character

std::uint8_t AnsiCode(char32_t code_point) {
  return platform::ToWindows1252(code_point).value_or(kUnmapped);
}

bool IsDigit(std::uint8_t code) { return code >= '0' && code <= '9'; }
bool IsAsciiLetter(std::uint8_t code) {
  return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
}
// What the cleaning allows in every place.
bool IsAllowed(std::uint8_t code) {
  return IsAsciiLetter(code) || code == '_' || (code >= 128 && code <= 254);
}
// Which of the codes from 128 on are letters.
bool IsUpperHalfLetter(std::uint8_t code) {
  constexpr std::string_view kLetters = "\x83\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB5\xBA";
  return code >= 0xC0 ? code != 0xD7 && code != 0xF7
                      : kLetters.find(static_cast<char>(code)) != std::string_view::npos;
}

std::string OneCharacter(char32_t code_point) {
  std::string text;
  platform::AppendCodePoint(text, code_point);
  return text;
}

}  // namespace

std::string CleanIdentifier(std::string_view name) {
  std::string result;
  result.reserve(name.size());
  char32_t first_digit = 0;
  for (std::size_t at = 0; at < name.size();) {
    const bool first = at == 0;
    const char32_t character = platform::NextCodePoint(name, at);
    const std::uint8_t code = AnsiCode(character);
    if (first && IsDigit(code)) first_digit = character;
    if (IsAllowed(code) || (IsDigit(code) && character != first_digit)) {
      platform::AppendCodePoint(result, character);
    } else {
      result += '_';
    }
  }
  return result;
}

IdentifierHint CheckIdentifier(std::string_view name) {
  if (name.empty()) return {IdentifierProblem::kEmpty, {}};
  if (IsDigit(static_cast<std::uint8_t>(name[0]))) {
    return {IdentifierProblem::kLeadingDigit, std::string(1, name[0])};
  }
  IdentifierHint sign;
  for (std::size_t at = 0; at < name.size();) {
    const auto byte = static_cast<std::uint8_t>(name[at]);
    if (byte < 0x80 && (IsAllowed(byte) || IsDigit(byte))) {
      ++at;
      continue;
    }
    const char32_t character = platform::NextCodePoint(name, at);
    const std::uint8_t code = AnsiCode(character);
    if (!IsAllowed(code) && !IsDigit(code)) {
      return {IdentifierProblem::kForbiddenCharacter, OneCharacter(character)};
    }
    if (code >= 128 && !IsUpperHalfLetter(code) && !sign) {
      sign = {IdentifierProblem::kNotALetter, OneCharacter(character)};
    }
  }
  if (name == "_") return {IdentifierProblem::kLoneUnderscore, "_"};
  if (name[0] == '_') return {IdentifierProblem::kLeadingUnderscore, "_"};
  if (sign) return sign;
  if (IsReservedWord(name)) return {IdentifierProblem::kReservedWord, {}};
  if (CharacterCount(name) > kMaxIdentifierLength) return {IdentifierProblem::kTooLong, {}};
  return {};
}

std::string ValidIdentifier(std::string_view name) {
  constexpr std::size_t kLength = kMaxIdentifierLength - 10;
  std::string result;
  std::size_t length = 0;
  for (std::size_t at = 0; at < name.size() && length < kLength;) {
    const char32_t character = platform::NextCodePoint(name, at);
    const std::uint8_t code = AnsiCode(character);
    const bool letter = IsAsciiLetter(code) || (IsAllowed(code) && IsUpperHalfLetter(code));
    if (result.empty() && !letter) {
      if (!IsDigit(code)) continue;
      result = 'A';
      ++length;
    }
    platform::AppendCodePoint(result, letter || IsDigit(code) ? character : U'_');
    ++length;
  }
  if (result.empty() || IsReservedWord(result)) result += result.empty() ? "A" : "_";
  return result;
}

bool IsDeclarable(std::string_view name) {
  switch (CheckIdentifier(name).problem) {
    case IdentifierProblem::kNone:
    case IdentifierProblem::kNotALetter:
    case IdentifierProblem::kLeadingUnderscore:
      return CharacterCount(name) <= kMaxIdentifierLength;
    default:
      return false;
  }
}

bool IsReservedWord(std::string_view word) {
  if (word.size() > kLongestReservedWord) return false;
  const std::string lower = platform::FoldCase(word);
  return std::binary_search(kReservedWords.begin(), kReservedWords.end(), std::string_view(lower));
}

std::string FirstFreeName(const std::string& name,
                          const std::function<bool(const std::string& candidate)>& is_taken) {
  int number = 0;
  return FirstFreeName(name, is_taken, number);
}

std::string FirstFreeName(const std::string& name,
                          const std::function<bool(const std::string& candidate)>& is_taken,
                          int& number) {
  for (;; ++number) {
    std::string candidate = number == 0 ? name : name + std::to_string(number);
    if (!is_taken(candidate)) return candidate;
  }
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<std::uint8_t>(byte) & 0xC0) != 0x80;
  }));
}

}  // namespace codegen
