// SPDX-License-Identifier: MIT
#include "editor/grid_layout.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/variant.h"

namespace editor {

namespace {

constexpr double kSplitterWidth = 60;
constexpr double kRightMargin = 60;

// The numbers behind the commas; what stands before the first comma says nothing.
std::vector<std::int32_t> Numbers(std::string_view text) {
  std::vector<std::int32_t> numbers;
  for (std::size_t comma = text.find(','); comma != std::string_view::npos;) {
    const std::size_t next = text.find(',', comma + 1);
    const std::string_view part = text.substr(comma + 1, next - comma - 1);
    numbers.push_back(platform::Variant(platform::Val(part)).ToLong());
    comma = next;
  }
  return numbers;
}

}  // namespace

void ApplyColumnOrder(forms::Grid& grid, std::string_view text) {
  const std::vector<std::int32_t> numbers = Numbers(text);
  const auto count = static_cast<std::int32_t>(grid.ColumnCount());
  for (std::int32_t column = 0; column < count; ++column) {
    const auto at = static_cast<std::size_t>(column);
    const bool given = at < numbers.size() && numbers[at] < count;
    grid.ColumnAt(at).SetOrder(given ? numbers[at] : column);
  }
}

std::string ColumnOrder(const forms::Grid& grid) {
  std::string text;
  for (const std::size_t column : grid.DisplayOrder()) text += "," + std::to_string(column);
  return text;
}

SplitterDrag::SplitterDrag(forms::Splitter& splitter, forms::Grid& grid)
    : splitter_(splitter), grid_(grid) {
  splitter_.SetMousePointer("COLUMNSHIFT");
  splitter_.on_mouse_down = [this](const forms::MouseEvent& event) {
    if (event.button == forms::kLeftButton) dragging_ = true;
  };
  splitter_.on_mouse_move = [this](const forms::MouseEvent& event) {
    if (!dragging_ || event.button != forms::kLeftButton) return;
    forms::Bounds bounds = splitter_.GetBounds();
    bounds.left += event.x;
    splitter_.SetBounds(bounds);
  };
  splitter_.on_mouse_up = [this](const forms::MouseEvent& event) {
    if (dragging_ && event.button == forms::kLeftButton) Drop();
  };
}

void SplitterDrag::Place() {
  splitter_.SetBounds({grid_.Left() + grid_.SplitAt(0).Width() + kSplitterOffset, grid_.Top(),
                       kSplitterWidth, grid_.Height()});
}

void SplitterDrag::Drop() {
  dragging_ = false;
  const double wanted = splitter_.Left() - grid_.Left() - kSplitterOffset;
  const double width = std::max(0.0, std::min(wanted, grid_.Width() - kRightMargin));
  grid_.SplitAt(0).SetWidth(width);
  grid_.ColumnAt(0).SetWidth(width);
  Place();
}

}  // namespace editor
