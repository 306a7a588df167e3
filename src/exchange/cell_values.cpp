// SPDX-License-Identifier: MIT
#include "exchange/cell_values.h"

#include <algorithm>
#include <charconv>

#include "platform/text.h"
#include "store/rules.h"
#include "texts/text_table.h"

namespace exchange {
namespace {

constexpr std::string_view kListSigns = ",;:\"\r\n";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string Squeezed(std::string_view name) {
  std::string squeezed = platform::FoldCase(name);
  std::erase_if(squeezed, [](char c) { return c == ' ' || c == '-' || c == '_'; });
  return squeezed;
}

bool AllDigits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// A number's digits behind its comma or point; nothing when it has none.
std::optional<std::string_view> FractionOf(std::string_view text) {
  const std::size_t point = text.find_first_of(".,");
  return point == std::string_view::npos ? std::nullopt : std::optional(text.substr(point + 1));
}

// Takes a name off the front of an argument; nothing when its quotation mark is never closed.
std::optional<std::string_view> TakeName(std::string_view& rest, Contents& keeper) {
  if (!rest.starts_with('"')) {
    const std::size_t end = std::min(rest.find_first_of(",;:\r\n"), rest.size());
    const std::string_view name = Trimmed(rest.substr(0, end));
    rest.remove_prefix(end);
    return name;
  }
  std::string name;
  for (std::size_t at = 1; at < rest.size(); ++at) {
    if (rest[at] != '"') {
      name += rest[at];
    } else if (rest.substr(at + 1).starts_with('"')) {
      name += rest[++at];
    } else {
      rest = rest.substr(at + 1);
      while (rest.starts_with(' ')) rest.remove_prefix(1);
      return keeper.Keep(std::move(name));
    }
  }
  return std::nullopt;
}

// Takes ":in" and ":out" off the front. False for any other direction.
bool TakeDirections(std::string_view& rest, ArgumentRow& argument) {
  argument.in = argument.out = false;
  while (rest.starts_with(':')) {
    const std::size_t end = std::min(rest.find_first_of(",;:\r\n", 1), rest.size());
    const std::string direction = platform::FoldCase(Trimmed(rest.substr(1, end - 1)));
    rest.remove_prefix(end);
    if (direction == "in" || direction == "ein") {
      argument.in = true;
    } else if (direction == "out" || direction == "aus") {
      argument.out = true;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

std::optional<bool> ParseTruth(std::string_view text) {
  static constexpr std::string_view kTrue[] = {"true", "1", "-1", "yes", "ja", "wahr",
                                               "x",    "y", "j",  "on",  "ein"};
  static constexpr std::string_view kFalse[] = {"false", "0", "no",  "nein", "falsch",
                                                "-",     "n", "off", "aus"};
  const std::string word = platform::FoldCase(text);
  if (std::ranges::find(kTrue, word) != std::end(kTrue)) return true;
  if (std::ranges::find(kFalse, word) != std::end(kFalse)) return false;
  return std::nullopt;
}

bool IsUnclearNumber(std::string_view text) {
  const auto fraction = FractionOf(text);
  return fraction && AllDigits(*fraction) && fraction->size() == 3 && text.front() != '0';
}

std::optional<std::int32_t> ParseWholeNumber(std::string_view text) {
  if (const auto fraction = FractionOf(text)) {
    const bool zeros = !fraction->empty() && fraction->find_first_not_of('0') == fraction->npos;
    if (!zeros || IsUnclearNumber(text)) return std::nullopt;
    text.remove_suffix(fraction->size() + 1);
  }
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<std::int32_t> ParseCallType(std::string_view text) {
  if (const auto number = ParseWholeNumber(text)) {
    return store::IsCallType(*number) ? number : std::nullopt;
  }
  for (const auto language : {texts::Language::kEnglish, texts::Language::kGerman}) {
    static const texts::TextTable kTables[] = {texts::TextTable(texts::Language::kGerman),
                                               texts::TextTable(texts::Language::kEnglish)};
    const texts::TextTable& table = kTables[language == texts::Language::kEnglish];
    for (std::int32_t type = 0; type < store::kCallTypes; ++type) {
      if (Squeezed(table.Text(store::kFirstCallTypeText + type)) == Squeezed(text)) return type;
    }
  }
  return std::nullopt;
}

std::optional<std::vector<ArgumentRow>> ParseArgumentList(std::string_view text, const Place& place,
                                                          Contents& keeper) {
  std::vector<ArgumentRow> arguments;
  for (std::string_view rest = text; !Trimmed(rest).empty();) {
    rest = rest.substr(rest.find_first_not_of(" \t\r\n"));
    ArgumentRow argument;
    argument.place = place;
    const auto name = TakeName(rest, keeper);
    if (!name || name->empty() || !TakeDirections(rest, argument)) return std::nullopt;
    argument.alias = *name;
    arguments.push_back(argument);
    if (rest.empty()) break;
    if (std::string_view(",;\r\n").find(rest.front()) == std::string_view::npos) {
      return std::nullopt;
    }
    rest.remove_prefix(1);
  }
  return arguments;
}

void AppendArgument(std::string& list, std::string_view alias, bool in, bool out) {
  if (!list.empty()) list += ", ";
  const bool plain = !alias.empty() && alias.find_first_of(kListSigns) == std::string_view::npos &&
                     Trimmed(alias) == alias;
  if (plain) {
    list += alias;
  } else {
    list += '"';
    for (const char c : alias) list.append(c == '"' ? 2 : 1, c);
    list += '"';
  }
  if (in) list += ":in";
  if (out) list += ":out";
}

bool IsControlCharacter(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (code < 0x20 && c != '\t' && c != '\r' && c != '\n') || code == 0x7F;
}

bool IsUnsafeCell(std::string_view text) {
  return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

namespace {

// Whether the text is unsafe behind apostrophes in front of it.
bool IsUnsafeInside(std::string_view text) {
  const std::size_t first = text.find_first_not_of('\'');
  return first != std::string_view::npos && IsUnsafeCell(text.substr(first));
}

}  // namespace

std::string SafeCell(std::string_view text) {
  return IsUnsafeInside(text) ? "'" + std::string(text) : std::string(text);
}

std::string_view FromSafeCell(std::string_view text) {
  return text.starts_with('\'') && IsUnsafeInside(text) ? text.substr(1) : text;
}

}  // namespace exchange
