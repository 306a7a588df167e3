// SPDX-License-Identifier: MIT
// What the generator asks of single physical lines of Visual Basic source.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace codegen {

// Visual Basic takes no longer line.
inline constexpr std::int32_t kMaxLineLength = 1023;
// Visual Basic takes about this many lines in a module.
inline constexpr std::int32_t kMaxModuleLines = 65000;

// The text without blanks and tabs at its ends.
std::string_view TrimBlanks(std::string_view text);

// Whether a byte of UTF-8 can be part of a name: a digit, a letter of any script, "_".
bool IsNameByte(char c);

bool IsBlankLine(std::string_view line);
// Holds nothing but a comment. A line that continues a comment is not recognised by itself.
bool IsCommentLine(std::string_view line);
// Ends with a blank and "_", so that the next line belongs to it, comments included.
bool IsContinued(std::string_view line);
// A conditional compilation line.
bool IsDirective(std::string_view line);

// Where the line's comment begins, outside string literals; the line's length when it has none.
std::size_t CommentStart(std::string_view line);

// Whether the line's code ends with "End Sub" or its kin.
bool IsProcedureEnd(std::string_view line);
// Whether a comment line is the commented-out end of a procedure ("'End Sub 'done").
bool IsCommentedProcedureEnd(std::string_view line);

// Whether the lines mean the same: the width of blanks does not count, nor do blanks and letter
// case in code. The development environment rewrites them, and tabs to blanks.
bool SameLine(std::string_view a, std::string_view b);

// The text without any blanks and tabs.
std::string WithoutBlanks(std::string_view text);

// Splits at CR LF, CR and LF. A text that ends with a line break has an empty last line; the
// empty text has no lines.
std::vector<std::string> SplitLines(std::string_view text);
std::string JoinLines(const std::vector<std::string>& lines);

}  // namespace codegen
