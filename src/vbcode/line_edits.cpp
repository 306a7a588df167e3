// SPDX-License-Identifier: MIT
#include "vbcode/line_edits.h"

namespace vbcode {

void LineEdits::Replace(std::int32_t module, std::int32_t line, std::size_t begin,
                        std::size_t length, std::string_view text) {
  pieces_[{module, line}].emplace(begin, Piece{length, std::string(text)});
}

std::vector<LineEdit> LineEdits::Lines() const {
  std::vector<LineEdit> edits;
  for (const auto& [number, pieces] : pieces_) {
    const auto& [module, line] = number;
    const std::string_view before = program_.module(module).lines->Line(line);
    LineEdit edit{module, line, {}};
    std::size_t at = 0;
    for (const auto& [begin, piece] : pieces) {
      if (begin < at) continue;  // within the piece in front
      edit.text += before.substr(at, begin - at);
      edit.text += piece.text;
      at = begin + piece.length;
    }
    edit.text += before.substr(at);
    if (edit.text != before) edits.push_back(std::move(edit));
  }
  return edits;
}

}  // namespace vbcode
