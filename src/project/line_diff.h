// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace project {

using Lines = std::vector<std::string_view>;

// The lines of a text without their ends, LF or CR LF.
Lines SplitLines(std::string_view text);

struct LineEdit {
  char kind;  // ' ' kept, '-' removed, '+' added
  std::string_view line;
};

// The lines of an editor's text, without their ends, LF or CR LF: an empty text is one empty line,
// and so is what follows a last line end.
Lines EditorLines(std::string_view text);

// The shortest script that turns `a` into `b`, removals before additions. Refers to the lines of
// both.
std::vector<LineEdit> DiffLines(const Lines& a, const Lines& b);

// `count` lines from number `first` of the old text, from 0, become `lines`.
struct LineChange {
  std::size_t first = 0, count = 0;
  Lines lines;
  friend bool operator==(const LineChange&, const LineChange&) = default;
};

// The same script as changes from top to bottom, none of which touches the next one.
std::vector<LineChange> LineChanges(const Lines& a, const Lines& b);

// Carries out on `base` what differs from it in `mine` and in `theirs`, texts of an editor.
// Nothing when both changed the same lines, or neighbouring ones, differently.
std::optional<std::string> MergeTexts(std::string_view base, std::string_view mine,
                                      std::string_view theirs);

}  // namespace project
