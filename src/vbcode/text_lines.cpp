// SPDX-License-Identifier: MIT
#include "vbcode/text_lines.h"

#include <algorithm>
#include <utility>

namespace vbcode {

TextLines::TextLines(std::string text) : text_(std::move(text)) {
  constexpr std::size_t kUsualLength = 32;
  lines_.reserve(text_.size() / kUsualLength);
  for (std::size_t begin = 0; begin < text_.size();) {
    const std::size_t end = std::min(text_.find('\n', begin), text_.size());
    AddLines(begin, end);
    begin = end + 1;
  }
}

void TextLines::AddLine(std::size_t begin, std::size_t end) {
  lines_.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end - begin)});
}

// What stands in front of a line feed: a line, or several apart by carriage returns.
void TextLines::AddLines(std::size_t begin, std::size_t end) {
  if (end < text_.size() && end > begin && text_[end - 1] == '\r') --end;
  for (;;) {
    const std::size_t cut = std::string_view(text_).substr(begin, end - begin).find('\r');
    if (cut == std::string_view::npos) break;
    AddLine(begin, begin + cut);
    begin += cut + 1;
  }
  if (begin < end || end < text_.size()) AddLine(begin, end);
}

}  // namespace vbcode
