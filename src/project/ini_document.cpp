// SPDX-License-Identifier: MIT
#include "project/ini_document.h"

#include <algorithm>
#include <iterator>

#include "platform/text.h"

namespace project {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trim(std::string_view text) {
  auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsQuoted(std::string_view text) {
  return text.size() >= 2 && text.front() == text.back() &&
         (text.front() == '"' || text.front() == '\'');
}

// What a line says, for which `text` is trimmed already.
std::optional<std::string_view> SectionName(std::string_view text) {
  if (!text.starts_with('[')) return std::nullopt;
  auto end = text.find(']');
  if (end == std::string_view::npos) return std::nullopt;
  return Trim(text.substr(1, end - 1));
}

std::optional<std::string_view> EntryName(std::string_view text) {
  auto equals = text.find('=');
  if (text.starts_with(';') || equals == std::string_view::npos) return std::nullopt;
  std::string_view name = Trim(text.substr(0, equals));
  return name.empty() ? std::nullopt : std::optional(name);
}

std::string_view EntryValue(std::string_view text) {
  std::string_view value = Trim(text.substr(text.find('=') + 1));
  return IsQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

// The value as it stands in a line: on one line, quoted where reading would take something off.
std::string ValueText(std::string_view value) {
  std::string text(value);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return Trim(text) != text || IsQuoted(text) ? '"' + text + '"' : text;
}

}  // namespace

IniDocument::IniDocument(std::string_view bytes) : encoding_(DetectEncoding(bytes)) {
  SplitLines(bytes.substr(MarkOf(encoding_).size()));
  Index();
}

void IniDocument::SplitLines(std::string_view bytes) {
  const std::string line_feed = *Encode("\n", encoding_);
  const std::size_t unit = UnitSize(encoding_);
  std::size_t start = 0;
  for (std::size_t at = 0; at + unit <= bytes.size(); at += unit) {
    if (bytes.compare(at, unit, line_feed) != 0) continue;
    lines_.emplace_back(bytes.substr(start, at + unit - start));
    start = at + unit;
  }
  if (start < bytes.size()) lines_.emplace_back(bytes.substr(start));
  if (!lines_.empty() && EndsWithLineEnd(lines_.front())) {
    bool carriage_return = Decode(lines_.front(), encoding_).ends_with("\r\n");
    line_end_ = carriage_return ? "\r\n" : "\n";
  }
}

void IniDocument::Index() {
  Section* section = nullptr;
  for (auto line = lines_.begin(); line != lines_.end(); ++line) {
    std::string decoded = Decode(*line, encoding_);
    std::string_view text = Trim(decoded);
    if (text.empty()) continue;
    if (auto name = SectionName(text)) {
      auto [place, added] = sections_.try_emplace(platform::FoldCase(*name), Section{line, {}});
      section = added ? &place->second : nullptr;
    } else if (section) {
      section->last = line;
      auto entry = EntryName(text);
      if (entry) section->entries.try_emplace(platform::FoldCase(*entry), line);
    }
  }
}

std::optional<std::string> IniDocument::Get(std::string_view section,
                                            std::string_view entry) const {
  auto found = sections_.find(platform::FoldCase(Trim(section)));
  if (found == sections_.end()) return std::nullopt;
  auto line = found->second.entries.find(platform::FoldCase(Trim(entry)));
  if (line == found->second.entries.end()) return std::nullopt;
  return std::string(EntryValue(Decode(*line->second, encoding_)));
}

void IniDocument::Set(std::string_view section, std::string_view entry, std::string_view value) {
  if (auto old = Get(section, entry); old && *old == value) return;
  auto found = sections_.find(platform::FoldCase(Trim(section)));
  Section& place = found == sections_.end() ? AddSection(Trim(section)) : found->second;
  std::string line = EncodeLine(std::string(Trim(entry)) + '=' + ValueText(value));
  std::string line_end = EncodeLine(line_end_);
  auto [known, added] = place.entries.try_emplace(platform::FoldCase(Trim(entry)), place.last);
  if (!added) {
    bool ended = EndsWithLineEnd(*known->second);
    *known->second = ended ? line + line_end : line;
    return;
  }
  EndLine(*place.last);
  place.last = known->second = lines_.insert(std::next(place.last), line + line_end);
}

IniDocument::Section& IniDocument::AddSection(std::string_view name) {
  std::string header = EncodeLine('[' + std::string(name) + ']' + line_end_);
  if (!lines_.empty()) EndLine(lines_.back());
  lines_.push_back(header);
  Section section{std::prev(lines_.end()), {}};
  return sections_.insert_or_assign(platform::FoldCase(name), section).first->second;
}

std::string IniDocument::EncodeLine(std::string_view text) {
  auto encoded = Encode(text, encoding_);
  if (!encoded) {
    ConvertToUtf16();
    encoded = Encode(text, encoding_);
  }
  return *encoded;
}

void IniDocument::ConvertToUtf16() {
  for (std::string& line : lines_) {
    line = *Encode(Decode(line, encoding_), IniEncoding::kUtf16Le);
  }
  encoding_ = IniEncoding::kUtf16Le;
}

void IniDocument::EndLine(std::string& line) {
  if (EndsWithLineEnd(line)) return;
  line.resize(line.size() + line.size() % UnitSize(encoding_));  // half a unit of a cut-off file
  line += EncodeLine(line_end_);
}

bool IniDocument::EndsWithLineEnd(const std::string& line) const {
  return line.size() % UnitSize(encoding_) == 0 && line.ends_with(*Encode("\n", encoding_));
}

std::string IniDocument::Bytes() const {
  std::string bytes(MarkOf(encoding_));
  for (const std::string& line : lines_) bytes += line;
  return bytes;
}

}  // namespace project
