// SPDX-License-Identifier: MIT
#include "exchange/delimited_text.h"

#include <algorithm>

#include "exchange/place.h"

namespace exchange {
namespace {

bool IsBlankCharacter(char c) { return c == ' '; }

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlankCharacter(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlankCharacter(text.back())) text.remove_suffix(1);
  return text;
}

Place PlaceOf(const Record& record, std::uint32_t line) {
  return {line, static_cast<std::uint32_t>(record.cells.size() + 1)};
}

}  // namespace

bool Record::IsBlank() const {
  return std::ranges::all_of(cells,
                             [](const Cell& cell) { return cell.text.empty() && !cell.quoted; });
}

bool DelimitedText::Next(Record& record) {
  do {
    if (!ReadRecord(record)) return false;
  } while (record.IsBlank());
  return true;
}

bool DelimitedText::ReadRecord(Record& record) {
  if (at_ >= text_.size()) return false;
  record.line = line_;
  record.cells.clear();
  for (;;) {
    if (record.cells.size() == kMaxColumns) {
      throw FormatError(PlaceOf(record, line_), {{kTextTooManyColumns}, {{"<Most>", kMaxColumns}}});
    }
    record.cells.push_back(ReadCell(record));
    if (at_ < text_.size() && text_[at_] == separator_) {
      ++at_;
      continue;
    }
    if (at_ < text_.size() && text_[at_] == '\r') ++at_;
    if (at_ < text_.size() && text_[at_] == '\n') ++at_;
    ++line_;
    return true;
  }
}

// Ends at the separator, the line end or the end of the text.
Cell DelimitedText::ReadCell(const Record& record) {
  std::size_t begin = at_;
  while (begin < text_.size() && IsBlankCharacter(text_[begin]) && separator_ != ' ') ++begin;
  if (begin < text_.size() && text_[begin] == '"') {
    at_ = begin;
    return ReadQuoted(record);
  }
  const char ends[] = {separator_, '\r', '\n'};
  const std::size_t end =
      std::min(text_.find_first_of(std::string_view(ends, sizeof ends), at_), text_.size());
  if (end - at_ > kMaxCell) {
    throw FormatError(PlaceOf(record, line_), {{kTextCellTooLong}, {{"<Most>", kMaxCell}}});
  }
  const Cell cell{Trimmed(std::string_view(text_).substr(at_, end - at_))};
  at_ = end;
  return cell;
}

Cell DelimitedText::ReadQuoted(const Record& record) {
  const Place place = PlaceOf(record, line_);
  const std::size_t begin = at_ + 1;
  std::size_t end = begin;  // of what is kept
  std::size_t from = begin;
  for (;;) {
    const std::size_t quote = text_.find('"', from);
    const std::size_t stop = std::min(quote, text_.size());
    if (stop - begin > kMaxCell) {
      throw FormatError(place, {{kTextCellTooLong}, {{"<Most>", kMaxCell}}});
    }
    if (quote == std::string::npos) throw FormatError(place, {{kTextOpenQuote}});
    line_ += static_cast<std::uint32_t>(
        std::count(text_.begin() + static_cast<std::ptrdiff_t>(from),
                   text_.begin() + static_cast<std::ptrdiff_t>(quote), '\n'));
    if (end != from) std::copy(&text_[from], &text_[quote], &text_[end]);
    end += quote - from;
    from = quote + 1;
    if (from >= text_.size() || text_[from] != '"') break;
    text_[end++] = '"';
    ++from;
  }
  at_ = from;
  while (at_ < text_.size() && IsBlankCharacter(text_[at_])) ++at_;
  if (at_ < text_.size() && text_[at_] != separator_ && text_[at_] != '\r' && text_[at_] != '\n') {
    throw FormatError({line_, place.column}, {{kTextBehindQuote}});
  }
  return {std::string_view(text_).substr(begin, end - begin), true};
}

char TakeSeparatorLine(std::string& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  std::string_view line = std::string_view(text).substr(0, end);
  if (line.size() >= 2 && line.front() == '"' && line.back() == '"') {
    line = line.substr(1, line.size() - 2);
  }
  const bool named = line.size() == 5 && (line.starts_with("sep=") || line.starts_with("Sep=") ||
                                          line.starts_with("SEP="));
  if (!named) return '\0';
  const char separator = line.back();
  // The line itself stays, empty: lines keep their numbers.
  text.erase(0, end);
  return separator;
}

void AppendCell(std::string& line, std::string_view text, char separator) {
  const char specials[] = {separator, '"', '\r', '\n'};
  const bool plain =
      !text.empty() && text.front() != ' ' && text.back() != ' ' &&
      text.find_first_of(std::string_view(specials, sizeof specials)) == std::string_view::npos;
  if (plain) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += c;
    line += c;
  }
  line += '"';
}

}  // namespace exchange
