// SPDX-License-Identifier: MIT
#include "codegen/comment_text.h"

#include <algorithm>
#include <cstddef>

#include "codegen/source_line.h"
#include "platform/text.h"

namespace codegen {
namespace {

bool IsLineBreak(char32_t c) {
  return (c >= U'\t' && c <= U'\r') || c == U'\x85' || c == U'\x2028' || c == U'\x2029';
}

// What stands in the comment for a character of the text.
char32_t Shown(char32_t c) {
  if (IsLineBreak(c)) return U' ';
  return c < U' ' || c == U'\x7F' ? U'?' : c;
}

// Most items stand in their comment as they are.
bool StandsAsItIs(std::string_view text) {
  return !text.empty() && text.back() != ' ' && text.back() != '_' &&
         std::ranges::all_of(text, [](char c) { return c >= ' ' && c < '\x7F'; });
}

// The characters of a text, runs of blanks taken together and those at its ends left out.
class Characters {
 public:
  explicit Characters(std::string_view text) : text_(TrimBlanks(text)) {}

  bool AtEnd() const { return at_ == text_.size(); }
  char32_t Next() {
    const std::size_t behind = std::min(text_.find_first_not_of(" \t", at_), text_.size());
    if (behind == at_) return platform::NextCodePoint(text_, at_);
    at_ = behind;
    return U' ';
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::string WithCommentText(std::string_view code, std::string_view text) {
  std::string line(code);
  if (StandsAsItIs(text)) return line.append(text);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    const char32_t character = platform::NextCodePoint(text, at);
    const char32_t shown = Shown(character);
    if (shown == character) {
      line += text.substr(begin, at - begin);
    } else {
      platform::AppendCodePoint(line, shown);
    }
  }
  // Some readers allow blanks behind the mark of a continued line.
  const std::size_t last = line.find_last_not_of(" \t");
  if (last != std::string::npos && IsContinued(std::string_view(line).substr(0, last + 1))) {
    line += '\'';
  }
  return line;
}

bool ShowsText(std::string_view comment, std::string_view text) {
  if (!comment.empty() && comment.substr(1) == text && StandsAsItIs(text)) return true;
  const std::string whole = WithCommentText("'", text);
  Characters written(comment.substr(std::min<std::size_t>(1, comment.size())));
  Characters wanted(std::string_view(whole).substr(1));
  while (!written.AtEnd() && !wanted.AtEnd()) {
    const char32_t is = written.Next();
    if (is != wanted.Next() && is != U'?') return false;
  }
  return written.AtEnd() && wanted.AtEnd();
}

}  // namespace codegen
