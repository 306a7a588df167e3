// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_set.h"
#include "files/contents.h"
#include "vbcode/source_lines.h"
#include "vbfiles/physical_lines.h"
#include "vbfiles/word_search.h"

namespace vbfiles {

// The content of a source file as a list of visible lines. Lines are views into the file's bytes
// or into the text that edits added; whatever was not edited is written back byte for byte:
//
//   header            bytes above the first visible line
//   line terminator   a visible line and its own line end
//   hidden lines      attribute lines directly below it, which travel with it
//   trailer           zero bytes and end-of-file marks behind the last line
//
// A file that ends without a terminator keeps to that.
class ModuleText final : public vbcode::SourceLines {
 public:
  // Takes the file's bytes, of which the first `header_length` are the header.
  // REQUIRES: there are bytes.
  ModuleText(files::Contents bytes, std::size_t header_length);

  std::int32_t LineCount() const override { return static_cast<std::int32_t>(lines_.size()); }
  std::string_view Line(std::int32_t line) const override {
    const Record& record = lines_[static_cast<std::size_t>(line) - 1];
    return Bytes(record).substr(0, record.length);
  }
  // The first of the lines from `first` to `last` that holds the word.
  // REQUIRES: 1 <= first and last <= LineCount().
  std::optional<std::int32_t> FindWord(const WordSearch& word, std::int32_t first,
                                       std::int32_t last) const;
  // The hidden lines below the line with their line ends; "" when there are none.
  std::string_view HiddenLines(std::int32_t line) const;
  void SetHiddenLines(std::int32_t line, std::string_view hidden);

  // Puts the texts in front of `line`, behind the hidden lines of the line above.
  // REQUIRES: 1 <= line <= LineCount() + 1; no text holds a line end.
  void Insert(std::int32_t line, std::span<const std::string> texts);
  // REQUIRES: 1 <= line and line + count - 1 <= LineCount().
  void Erase(std::int32_t line, std::int32_t count);
  // Replaces one line; its hidden lines and line end stay with the last of the texts.
  // REQUIRES: texts is not empty.
  void Replace(std::int32_t line, std::span<const std::string> texts);

  bool edited() const { return edited_; }
  // Whether zero bytes stand before the trailer: no source text then.
  bool HasZeroBytes() const { return Body().find('\0') != std::string_view::npos; }
  const files::Contents& original() const { return original_; }
  // Appends to `kept` what stays of the original. The bytes take the room of `buffer`.
  std::string CurrentBytes(std::vector<files::KeptRange>* kept = nullptr,
                           std::string buffer = {}) const;
  // Goes on with `written`, the CurrentBytes, as the original, of which the first `header_length`
  // bytes are the header. False, and nothing is changed, when reading them would show other lines
  // than these: attributes that were switched off turn up as comments.
  bool Adopt(files::Contents written, std::size_t header_length);

 private:
  struct Record {
    std::uint32_t offset;
    std::uint32_t length;     // of the line without its terminator
    std::uint32_t hidden;     // length of the hidden lines
    std::uint8_t terminator;  // length of the terminator, 1 or 2
    bool added;               // in added_ instead of original_
  };

  std::string_view Body() const { return std::string_view(*original_).substr(0, body_end_); }
  std::string_view MissingTerminator() const;
  void FillInTerminator(std::string_view terminator);
  void ReadLines();
  bool ReadsTheSame(const Record& record, bool first) const;
  void AddLine(const PhysicalLine& line);
  std::string_view Bytes(const Record& record) const;  // line, terminator and hidden lines
  std::int32_t LastOfRun(std::int32_t first, std::int32_t last) const;
  std::string_view Terminator(const Record& record) const;
  std::string_view TerminatorNear(std::int32_t line) const;
  std::size_t LastTerminator() const;  // its length
  Record Add(std::string_view text, std::string_view terminator, std::string_view hidden);

  files::Contents original_;
  std::string added_;
  std::size_t header_length_;
  std::size_t body_end_;         // the trailer begins here
  std::string_view header_end_;  // the line end that the header lacks
  std::size_t filled_in_ = 0;    // length of the last terminator, which the file lacks
  std::vector<Record> lines_;
  bool edited_ = false;
};

}  // namespace vbfiles
