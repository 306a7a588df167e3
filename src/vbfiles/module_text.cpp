// SPDX-License-Identifier: MIT
#include "vbfiles/module_text.h"

#include <algorithm>
#include <cassert>

#include "vbfiles/attribute_line.h"

namespace vbfiles {

namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kTrailerBytes("\0\x1A", 2);

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

ModuleText::ModuleText(files::Contents bytes, std::size_t header_length)
    : original_(std::move(bytes)), header_length_(header_length), body_end_(original_->size()) {
  const std::string& file = *original_;
  while (body_end_ > header_length_ &&
         kTrailerBytes.find(file[body_end_ - 1]) != std::string_view::npos) {
    --body_end_;
  }
  ReadLines();
  const bool ends_open =
      body_end_ > 0 && file[body_end_ - 1] != '\n' && file[body_end_ - 1] != '\r';
  if (!ends_open) return;
  if (!lines_.empty()) {
    FillInTerminator(MissingTerminator());
  } else if (header_length_ > 0) {
    header_end_ = kCrLf;
    filled_in_ = kCrLf.size();
  }
}

// The missing line end of the last line: that of the line above, else CR LF.
std::string_view ModuleText::MissingTerminator() const {
  const std::string_view body = Body();
  const std::size_t above = body.find_last_of("\r\n");
  if (above == std::string_view::npos || above < header_length_) return kCrLf;
  const bool pair = body[above] == '\n' && above > header_length_ && body[above - 1] == '\r';
  return pair ? kCrLf : body.substr(above, 1);
}

void ModuleText::FillInTerminator(std::string_view terminator) {
  Record& last = lines_.back();
  added_.append(Bytes(last)).append(terminator);
  last.offset = 0;
  last.added = true;
  filled_in_ = terminator.size();
  if (last.hidden > 0) {
    last.hidden += static_cast<std::uint32_t>(filled_in_);
  } else {
    last.terminator = static_cast<std::uint8_t>(filled_in_);
  }
}

void ModuleText::ReadLines() {
  const std::string_view text = Body();
  const std::string_view body = text.substr(header_length_);
  const std::size_t carriage_returns = CountOf('\r', body);
  lines_.reserve(std::max(CountOf('\n', body), carriage_returns) + 1);
  // A line feed ends a line, and a carriage return in front of it goes with it, unless carriage
  // returns stand elsewhere too.
  std::size_t pairs = 0;
  for (std::size_t begin = header_length_; begin < text.size();) {
    const std::size_t line_feed = text.find('\n', begin);
    if (line_feed == std::string_view::npos) {
      AddLine({begin, text.size(), text.size()});
      break;
    }
    const bool pair = line_feed > begin && text[line_feed - 1] == '\r';
    pairs += pair ? 1 : 0;
    AddLine({begin, line_feed - (pair ? 1 : 0), line_feed + 1});
    begin = line_feed + 1;
  }
  if (pairs == carriage_returns) return;
  lines_.clear();
  for (std::size_t begin = header_length_; begin < text.size();) {
    const PhysicalLine line = ReadPhysicalLine(text, begin);
    AddLine(line);
    begin = line.next;
  }
}

void ModuleText::AddLine(const PhysicalLine& line) {
  const std::string_view text = TextOf(*original_, line);
  if (!lines_.empty() && MayBeAttribute(text) && ParseAttributeLine(text)) {
    lines_.back().hidden += static_cast<std::uint32_t>(line.next - line.begin);
    return;
  }
  lines_.push_back(Record{static_cast<std::uint32_t>(line.begin),
                          static_cast<std::uint32_t>(line.end - line.begin), 0,
                          static_cast<std::uint8_t>(line.next - line.end), false});
}

std::string_view ModuleText::Bytes(const Record& record) const {
  return std::string_view(record.added ? added_ : *original_)
      .substr(record.offset, record.length + record.terminator + record.hidden);
}

std::string_view ModuleText::Terminator(const Record& record) const {
  return Bytes(record).substr(record.length, record.terminator);
}

// The last of the lines from `first` on, but not behind `last`, whose bytes follow each other.
std::int32_t ModuleText::LastOfRun(std::int32_t first, std::int32_t last) const {
  const Record* record = &lines_[static_cast<std::size_t>(first) - 1];
  for (; first < last; ++first, ++record) {
    const Record& next = record[1];
    const std::size_t end = record->offset + Bytes(*record).size();
    if (next.added != record->added || next.offset != end) break;
  }
  return first;
}

std::optional<std::int32_t> ModuleText::FindWord(const WordSearch& word, std::int32_t first,
                                                 std::int32_t last) const {
  constexpr std::int32_t kLinesAtOnce = 1000;  // a word that is near is found without a long walk
  while (first <= last) {
    const std::int32_t end = LastOfRun(first, std::min(last, first + kLinesAtOnce));
    const char* const begin = Line(first).data();
    const std::string_view run(begin, static_cast<std::size_t>(Line(end).end() - begin));
    for (std::size_t at = 0; (at = word.FindCandidate(run, at)) != std::string_view::npos;) {
      while (first < end && Line(first + 1).data() <= begin + at) ++first;
      if (word.IsIn(Line(first))) return first;
      // A candidate may also lie behind the line, in what is hidden there.
      at = std::max(at + 1, static_cast<std::size_t>(Line(first).end() - begin));
    }
    first = end + 1;
  }
  return std::nullopt;
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

// Of the last line itself: a carriage return in front of its line feed may end the line above.
std::size_t ModuleText::LastTerminator() const {
  const std::string_view last = lines_.empty() ? header_end_ : Bytes(lines_.back());
  return last.ends_with(kCrLf) ? kCrLf.size() : std::min<std::size_t>(last.size(), 1);
}

std::string ModuleText::CurrentBytes(std::vector<files::KeptRange>* kept,
                                     std::string buffer) const {
  const std::string& file = *original_;
  std::string bytes = std::move(buffer);
  bytes.clear();
  const std::size_t most = file.size() + header_end_.size() + added_.size();
  if (bytes.capacity() < most) bytes.reserve(most + most / 16);  // the next time it is enough, too
  bytes.append(file, 0, header_length_).append(header_end_);
  // Lines that still follow each other as in the file are copied together.
  std::size_t begin = header_length_, end = header_length_;
  const auto copy_run = [&] {
    if (kept != nullptr && begin < end) kept->push_back({begin, bytes.size(), end - begin});
    bytes.append(file, begin, end - begin);
  };
  for (const Record& record : lines_) {
    const std::string_view line = Bytes(record);
    if (!record.added && record.offset == end) {
      end += line.size();
      continue;
    }
    copy_run();
    if (record.added) bytes += line;
    begin = record.added ? 0 : record.offset;
    end = record.added ? 0 : record.offset + line.size();
  }
  copy_run();
  if (filled_in_ > 0) {
    bytes.resize(bytes.size() - LastTerminator());
    if (kept != nullptr && !kept->empty()) {
      files::KeptRange& last = kept->back();
      last.length =
          std::min(last.after + last.length, std::max<std::uint64_t>(last.after, bytes.size())) -
          last.after;
    }
  }
  return bytes.append(file, body_end_);
}

// Whether a line that was written would be found again, alone and with its hidden lines.
bool ModuleText::ReadsTheSame(const Record& record, bool first) const {
  const std::string_view bytes = Bytes(record);
  const std::string_view text = bytes.substr(0, record.length);
  // Of the lines of the file only its first one may look like an attribute and be none.
  const bool may_be_attribute = record.added || record.offset == header_length_;
  if (!first && may_be_attribute && MayBeAttribute(text) && ParseAttributeLine(text)) return false;
  if (bytes.ends_with('\r')) return false;  // joins a line feed that follows
  if (!record.added) return true;
  if (text.find_first_of(kTrailerBytes) != std::string_view::npos) return false;
  const std::string_view hidden = bytes.substr(bytes.size() - record.hidden);
  for (std::size_t begin = 0; begin < hidden.size();) {
    const PhysicalLine line = ReadPhysicalLine(hidden, begin);
    if (!ParseAttributeLine(TextOf(hidden, line))) return false;
    begin = line.next;
  }
  return true;
}

bool ModuleText::Adopt(files::Contents written, std::size_t header_length) {
  if (filled_in_ > 0 || header_length != header_length_) return false;
  for (const Record& record : lines_) {
    if (!ReadsTheSame(record, &record == &lines_.front())) return false;
  }
  const std::size_t trailer = original_->size() - body_end_;
  body_end_ = header_length;
  for (Record& record : lines_) {
    record.offset = static_cast<std::uint32_t>(body_end_);
    record.added = false;
    body_end_ += record.length + record.terminator + record.hidden;
  }
  assert(body_end_ + trailer == written->size());
  static_cast<void>(trailer);
  original_ = std::move(written);
  added_.clear();
  edited_ = false;
  return true;
}

}  // namespace vbfiles
