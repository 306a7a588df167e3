// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vbfiles/physical_lines.h"
#include "vbfiles/source_lines.h"

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
class ModuleText final : public SourceLines {
 public:
  // Takes the file's bytes, of which the first `header_length` are the header.
  ModuleText(std::string bytes, std::size_t header_length);

  std::int32_t LineCount() const override { return static_cast<std::int32_t>(lines_.size()); }
  std::string_view Line(std::int32_t line) const override {
    const Record& record = lines_[static_cast<std::size_t>(line) - 1];
    return Bytes(record).substr(0, record.length);
  }
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
  // Whether the visible lines are the same.
  bool ShowsTheLinesOf(const ModuleText& other) const;
  // Whether zero bytes stand before the trailer: no source text then.
  bool HasZeroBytes() const { return original_.find('\0') != std::string::npos; }
  std::string OriginalBytes() const;
  std::string CurrentBytes() const;

 private:
  struct Record {
    std::uint32_t offset;
    std::uint32_t length;     // of the line without its terminator
    std::uint32_t hidden;     // length of the hidden lines
    std::uint8_t terminator;  // length of the terminator, 1 or 2
    bool added;               // in added_ instead of original_
  };

  std::size_t FillInLastTerminator();
  void ReadLines();
  void AddLine(const PhysicalLine& line);
  std::string_view Bytes(const Record& record) const;  // line, terminator and hidden lines
  std::string_view Terminator(const Record& record) const;
  std::string_view TerminatorNear(std::int32_t line) const;
  Record Add(std::string_view text, std::string_view terminator, std::string_view hidden);

  std::string original_;  // without trailer; a missing last terminator is filled in
  std::string added_;
  std::string trailer_;
  std::size_t header_length_;
  std::size_t filled_in_ = 0;  // length of the terminator that was filled in
  std::vector<Record> lines_;
  bool edited_ = false;
};

}  // namespace vbfiles
