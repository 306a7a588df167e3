// SPDX-License-Identifier: MIT
#include "editor/grid_layout.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "editor/note_columns.h"
#include "platform/variant.h"

namespace editor {

namespace {

constexpr double kSplitterWidth = 60;
constexpr double kRightMargin = 60;
constexpr double kScrollBarWidth = 300;
constexpr double kShownWidth = 300;  // of a column at least, however narrow it was made

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
  const auto count = static_cast<std::int32_t>(OwnColumns(grid));
  for (std::int32_t column = 0; column < count; ++column) {
    const auto at = static_cast<std::size_t>(column);
    const bool given = at < numbers.size() && numbers[at] < count;
    grid.ColumnAt(at).SetOrder(given ? numbers[at] : column);
  }
}

std::string ColumnOrder(const forms::Grid& grid) {
  std::string text;
  const std::size_t own = OwnColumns(grid);
  for (const std::size_t column : grid.DisplayOrder()) {
    if (column < own) text += "," + std::to_string(column);
  }
  return text;
}

void ShareWidth(forms::Grid& grid) {
  double left = grid.Width() - kScrollBarWidth;
  std::size_t filling = 0;
  std::vector<forms::Column*> visible;
  for (std::size_t i = 0; i < grid.ColumnCount(); ++i) {
    forms::Column& column = grid.ColumnAt(i);
    if (!column.Visible()) continue;
    visible.push_back(&column);
    left -= std::max(column.Width(), kShownWidth);
    if (column.Fills()) ++filling;
  }
  const double share = filling == 0 ? 0 : std::max(0.0, left) / static_cast<double>(filling);
  for (forms::Column* column : visible) {
    column->SetExtra(std::max(0.0, kShownWidth - column->Width()) + (column->Fills() ? share : 0));
  }
}

SplitterDrag::SplitterDrag(forms::Splitter& splitter, forms::Grid& grid)
    : splitter_(splitter), grid_(grid) {
  columns_ = grid.Observe([this](forms::Property property) {
    const bool sized =
        property == forms::Property::kColumns || property == forms::Property::kBounds;
    if (sized && grid_.ColumnCount() > 0) FollowColumns();
  });
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

// The left split is as wide as the column in it.
void SplitterDrag::FollowColumns() {
  grid_.SplitAt(0).SetWidth(grid_.ColumnAt(0).Width());
  ShareWidth(grid_);
  Place();
}

double SplitterDrag::Border() const {
  return grid_.Left() + grid_.ColumnAt(0).Width() + grid_.ColumnAt(0).Extra() + kSplitterOffset;
}

void SplitterDrag::Place() {
  splitter_.SetBounds({Border(), grid_.Top(), kSplitterWidth, grid_.Height()});
}

void SplitterDrag::Drop() {
  dragging_ = false;
  if (splitter_.Left() == Border()) return;
  const double wanted = splitter_.Left() - grid_.Left() - kSplitterOffset;
  const double width = std::max(0.0, std::min(wanted, grid_.Width() - kRightMargin));
  grid_.ColumnAt(0).Resize(width);
}

}  // namespace editor
