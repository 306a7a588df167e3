// SPDX-License-Identifier: MIT
#include "project/item_catalogue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>
#include <utility>

#include "platform/text.h"

namespace project {

namespace {

constexpr std::size_t kMaxField = 0xFFFF;
constexpr std::size_t kShown = 80;  // bytes of a line in a message

constexpr std::array<std::pair<std::string_view, std::int32_t>, 12> kTypeNames = {{
    {"integer", 2},
    {"long", 3},
    {"single", 4},
    {"double", 5},
    {"currency", 6},
    {"date", 7},
    {"string", 8},
    {"object", 9},
    {"boolean", 11},
    {"variant", 12},
    {"decimal", 14},
    {"byte", 17},
}};

constexpr std::int32_t kNoType = 0;  // that of an empty variant

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// What parts the fields: the first of ",", ";" and a tab in the first line that has one, outside of
// quotes. A spreadsheet takes ";" where the comma is decimal.
char FindSeparator(std::string_view text) {
  bool quoted = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    if (c == '\n') quoted = false;
    if (!quoted && (c == ',' || c == ';' || c == '\t')) return c;
  }
  return ',';
}

// Takes the next field off a line. A quoted field is unquoted in place. False for a quote that
// never closes.
bool TakeField(char*& next, char* end, char separator, std::string_view& field) {
  if (next == end || *next != '"') {
    char* stop = std::find(next, end, separator);
    field = Trim(std::string_view(next, static_cast<std::size_t>(stop - next)));
    next = stop == end ? end : stop + 1;
    return true;
  }
  char* out = next;
  char* begin = next;
  for (++next; next != end; ++next) {
    if (*next != '"') {
      *out++ = *next;
    } else if (next + 1 != end && next[1] == '"') {
      *out++ = *next++;
    } else {
      field = std::string_view(begin, static_cast<std::size_t>(out - begin));
      next = std::find(next + 1, end, separator);
      if (next != end) ++next;
      return true;
    }
  }
  return false;
}

}  // namespace

std::optional<std::int32_t> ParseItemType(std::string_view text) {
  if (text.empty()) return kNoType;
  std::int32_t code = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), code);
  if (error == std::errc() && end == text.data() + text.size()) {
    return code >= 0 && code <= 0xFF ? std::optional(code) : std::nullopt;
  }
  for (const auto& [name, value] : kTypeNames) {
    if (platform::EqualsIgnoringCase(name, text)) return value;
  }
  return std::nullopt;
}

ItemCatalogue ItemCatalogue::Parse(std::string bytes) {
  ItemCatalogue catalogue;
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
  if (!platform::IsValidUtf8(bytes)) bytes = platform::Windows1252ToUtf8(bytes);
  catalogue.text_ = std::move(bytes);
  const char separator = FindSeparator(catalogue.text_);
  std::size_t line = 0;
  for (std::size_t begin = 0; begin < catalogue.text_.size();) {
    std::size_t end = std::min(catalogue.text_.find('\n', begin), catalogue.text_.size());
    const std::size_t next = end + 1;
    if (end > begin && catalogue.text_[end - 1] == '\r') --end;
    catalogue.ReadLine(++line, begin, end, separator);
    begin = next;
  }
  catalogue.IndexNames();
  return catalogue;
}

void ItemCatalogue::ReadLine(std::size_t line, std::size_t begin, std::size_t end, char separator) {
  const std::string_view whole(text_.data() + begin, end - begin);
  if (Trim(whole).empty()) return;
  char* next = text_.data() + begin;
  char* const stop = text_.data() + end;
  // Quoted fields are put in order where they stand.
  const std::string quoted(whole.find('"') == std::string_view::npos ? ""
                                                                     : whole.substr(0, kShown));
  std::string_view name, type, comment;
  if (!TakeField(next, stop, separator, name) || !TakeField(next, stop, separator, type) ||
      !TakeField(next, stop, separator, comment)) {
    return Report(line, Problem::Kind::kOpenQuote, quoted);
  }
  if (line == 1 && platform::EqualsIgnoringCase(name, "item")) return;
  if (name.empty()) return Report(line, Problem::Kind::kNoName, whole);
  const auto code = ParseItemType(type);
  if (!code) return Report(line, Problem::Kind::kUnknownType, type);
  if (name.size() > kMaxField || comment.size() > kMaxField) {
    return Report(line, Problem::Kind::kTooLong, name);
  }
  // The comment moves up behind the name, so that one offset finds both.
  const auto offset = static_cast<std::size_t>(name.data() - text_.data());
  std::copy(comment.begin(), comment.end(), text_.data() + offset + name.size());
  items_.push_back({static_cast<std::uint32_t>(offset), static_cast<std::uint16_t>(name.size()),
                    static_cast<std::uint16_t>(comment.size()), static_cast<std::uint8_t>(*code)});
}

void ItemCatalogue::Report(std::size_t line, Problem::Kind kind, std::string_view text) {
  if (++problem_count_ <= kMaxProblems)
    problems_.push_back({line, kind, std::string(text.substr(0, kShown))});
}

void ItemCatalogue::IndexNames() {
  folded_offsets_.reserve(items_.size());
  for (std::size_t i = 0; i < items_.size(); ++i) {
    folded_offsets_.push_back(static_cast<std::uint32_t>(folded_.size()));
    folded_ += platform::FoldCase(At(i).name);
    folded_ += '\n';
  }
  by_name_.resize(items_.size());
  std::iota(by_name_.begin(), by_name_.end(), 0u);
  std::stable_sort(by_name_.begin(), by_name_.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return Folded(a) < Folded(b); });
}

std::string_view ItemCatalogue::Folded(std::size_t index) const {
  const std::size_t begin = folded_offsets_[index];
  const std::size_t end =
      index + 1 < folded_offsets_.size() ? folded_offsets_[index + 1] : folded_.size();
  return std::string_view(folded_).substr(begin, end - begin - 1);
}

ItemCatalogue::Item ItemCatalogue::At(std::size_t index) const {
  const Entry& entry = items_.at(index);
  const std::string_view text = text_;
  return {text.substr(entry.offset, entry.name_length),
          entry.type == kNoType ? kVariant : entry.type,
          text.substr(entry.offset + entry.name_length, entry.comment_length)};
}

std::optional<std::size_t> ItemCatalogue::Find(std::string_view name) const {
  const std::string folded = platform::FoldCase(name);
  const auto found = std::lower_bound(
      by_name_.begin(), by_name_.end(), folded,
      [&](std::uint32_t index, const std::string& key) { return Folded(index) < key; });
  if (found == by_name_.end() || Folded(*found) != folded) return std::nullopt;
  return *found;
}

std::optional<std::int32_t> ItemCatalogue::TypeOf(std::string_view name) const {
  const auto index = Find(name);
  if (!index || items_[*index].type == kNoType) return std::nullopt;
  return items_[*index].type;
}

std::vector<std::uint32_t> ItemCatalogue::Search(std::string_view text, std::size_t limit) const {
  std::vector<std::uint32_t> found;
  const std::string folded = platform::FoldCase(text);
  if (folded.empty()) {
    found.resize(std::min(limit, items_.size()));
    std::iota(found.begin(), found.end(), 0u);
    return found;
  }
  for (std::size_t at = folded_.find(folded); at != std::string::npos && found.size() < limit;) {
    const auto next = std::upper_bound(folded_offsets_.begin(), folded_offsets_.end(), at);
    found.push_back(static_cast<std::uint32_t>(next - folded_offsets_.begin() - 1));
    at = next == folded_offsets_.end() ? std::string::npos : folded_.find(folded, *next);
  }
  return found;
}

}  // namespace project
