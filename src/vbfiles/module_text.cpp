// SPDX-License-Identifier: MIT
#include "vbfiles/module_text.h"

#include <algorithm>
#include <cassert>

#include "vbfiles/attribute_line.h"

namespace vbfiles {

namespace {

constexpr std::string_view kCrLf = "\r\n";

// Counts in blocks whose count fits into a byte, which compilers turn into wide operations.
std::size_t CountOf(char wanted, std::string_view text) {
  std::size_t total = 0;
  for (std::size_t begin = 0; begin < text.size(); begin += 255) {
    unsigned char count = 0;
    for (char c : text.substr(begin, 255)) count += c == wanted ? 1 : 0;
    total += count;
  }
  return total;
}

bool MayBeAttribute(std::string_view line) {
  return !line.empty() && (line.front() == 'A' || line.front() == 'a');
}

}  // namespace

ModuleText::ModuleText(std::string bytes, std::size_t header_length)
    : original_(std::move(bytes)), header_length_(header_length) {
  std::size_t end = original_.size();
  while (end > header_length_ && (original_[end - 1] == '\0' || original_[end - 1] == '\x1A')) {
    --end;
  }
  trailer_ = original_.substr(end);
  original_.resize(end);

  if (end > header_length_ && original_.back() != '\n' && original_.back() != '\r') {
    filled_in_ = FillInLastTerminator();
  }
  ReadLines();
  if (lines_.empty() && header_length_ > 0 && original_.back() != '\n' &&
      original_.back() != '\r') {
    filled_in_ = kCrLf.size();
    original_ += kCrLf;
    header_length_ = original_.size();
  }
}

// The missing line end of the last line: that of the line above, else CR LF. Returns its length.
std::size_t ModuleText::FillInLastTerminator() {
  const std::size_t above = original_.find_last_of("\r\n");
  std::string terminator(kCrLf);
  if (above != std::string::npos && above >= header_length_) {
    const bool pair =
        original_[above] == '\n' && above > header_length_ && original_[above - 1] == '\r';
    terminator = pair ? std::string(kCrLf) : std::string(1, original_[above]);
  }
  original_ += terminator;
  return terminator.size();
}

void ModuleText::ReadLines() {
  const std::string_view body = std::string_view(original_).substr(header_length_);
  const std::size_t carriage_returns = CountOf('\r', body);
  lines_.reserve(std::max(CountOf('\n', body), carriage_returns));
  // A line feed ends a line, and a carriage return in front of it goes with it, unless carriage
  // returns stand elsewhere too.
  std::size_t pairs = 0;
  for (std::size_t begin = header_length_; begin < original_.size();) {
    const std::size_t line_feed = original_.find('\n', begin);
    if (line_feed == std::string::npos) break;
    const bool pair = line_feed > begin && original_[line_feed - 1] == '\r';
    pairs += pair ? 1 : 0;
    AddLine({begin, line_feed - (pair ? 1 : 0), line_feed + 1});
    begin = line_feed + 1;
  }
  if (pairs == carriage_returns) return;
  lines_.clear();
  for (std::size_t begin = header_length_; begin < original_.size();) {
    const PhysicalLine line = ReadPhysicalLine(original_, begin);
    AddLine(line);
    begin = line.next;
  }
}

void ModuleText::AddLine(const PhysicalLine& line) {
  const std::string_view text = TextOf(original_, line);
  if (!lines_.empty() && MayBeAttribute(text) && ParseAttributeLine(text)) {
    lines_.back().hidden += static_cast<std::uint32_t>(line.next - line.begin);
    return;
  }
  lines_.push_back(Record{static_cast<std::uint32_t>(line.begin),
                          static_cast<std::uint32_t>(line.end - line.begin), 0,
                          static_cast<std::uint8_t>(line.next - line.end), false});
}

std::string_view ModuleText::Bytes(const Record& record) const {
  return std::string_view(record.added ? added_ : original_)
      .substr(record.offset, record.length + record.terminator + record.hidden);
}

std::string_view ModuleText::Terminator(const Record& record) const {
  return Bytes(record).substr(record.length, record.terminator);
}

std::string_view ModuleText::HiddenLines(std::int32_t line) const {
  const Record& record = lines_[static_cast<std::size_t>(line) - 1];
  return Bytes(record).substr(record.length + record.terminator);
}

void ModuleText::SetHiddenLines(std::int32_t line, std::string_view hidden) {
  if (HiddenLines(line) == hidden) return;
  Record& record = lines_[static_cast<std::size_t>(line) - 1];
  record = Add(Line(line), Terminator(record), hidden);
}

// The line end for a new line in front of `line`: that of the line above, else of the line below.
std::string_view ModuleText::TerminatorNear(std::int32_t line) const {
  if (lines_.empty()) return kCrLf;
  return Terminator(lines_[line > 1 ? static_cast<std::size_t>(line) - 2 : 0]);
}

ModuleText::Record ModuleText::Add(std::string_view text, std::string_view terminator,
                                   std::string_view hidden) {
  std::string bytes;  // the views may point into added_
  bytes.reserve(text.size() + terminator.size() + hidden.size());
  bytes.append(text).append(terminator).append(hidden);
  const Record record{static_cast<std::uint32_t>(added_.size()),
                      static_cast<std::uint32_t>(text.size()),
                      static_cast<std::uint32_t>(hidden.size()),
                      static_cast<std::uint8_t>(terminator.size()), true};
  added_ += bytes;
  edited_ = true;
  return record;
}

void ModuleText::Insert(std::int32_t line, std::span<const std::string> texts) {
  assert(line >= 1 && line <= LineCount() + 1);
  const std::string terminator(TerminatorNear(line));
  std::vector<Record> records;
  records.reserve(texts.size());
  for (const std::string& text : texts) records.push_back(Add(text, terminator, ""));
  lines_.insert(lines_.begin() + (line - 1), records.begin(), records.end());
}

void ModuleText::Erase(std::int32_t line, std::int32_t count) {
  assert(line >= 1 && count >= 0 && line + count - 1 <= LineCount());
  lines_.erase(lines_.begin() + (line - 1), lines_.begin() + (line - 1 + count));
  edited_ = edited_ || count > 0;
}

void ModuleText::Replace(std::int32_t line, std::span<const std::string> texts) {
  assert(line >= 1 && line <= LineCount() && !texts.empty());
  Record& record = lines_[static_cast<std::size_t>(line) - 1];
  record = Add(texts.back(), Terminator(record), HiddenLines(line));
  if (texts.size() > 1) Insert(line, texts.first(texts.size() - 1));
}

bool ModuleText::ShowsTheLinesOf(const ModuleText& other) const {
  if (lines_.size() != other.lines_.size()) return false;
  for (std::int32_t line = 1; line <= LineCount(); ++line) {
    if (Line(line) != other.Line(line)) return false;
  }
  return true;
}

std::string ModuleText::OriginalBytes() const {
  return original_.substr(0, original_.size() - filled_in_) + trailer_;
}

std::string ModuleText::CurrentBytes() const {
  std::string bytes;
  bytes.reserve(original_.size() + added_.size() + trailer_.size());
  // Lines that still follow each other as in the file are copied together.
  std::size_t begin = 0, end = header_length_;
  for (const Record& record : lines_) {
    const std::string_view line = Bytes(record);
    if (!record.added && record.offset == end) {
      end += line.size();
      continue;
    }
    bytes.append(original_, begin, end - begin);
    if (record.added) bytes += line;
    begin = record.added ? 0 : record.offset;
    end = record.added ? 0 : record.offset + line.size();
  }
  bytes.append(original_, begin, end - begin);
  if (filled_in_ > 0) {
    if (bytes.ends_with(kCrLf)) {
      bytes.resize(bytes.size() - kCrLf.size());
    } else if (!bytes.empty()) {
      bytes.pop_back();
    }
  }
  bytes += trailer_;
  return bytes;
}

}  // namespace vbfiles
