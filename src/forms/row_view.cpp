// SPDX-License-Identifier: MIT
#include "forms/row_view.h"

#include <algorithm>

#include "platform/text.h"

namespace forms {

using platform::Variant;

namespace {

// A value as one cell of tab-separated text.
std::string CopiedCell(const Variant& value) {
  std::string text = value.Get<bool>() ? (value.ToBool() ? "1" : "0") : value.ToText();
  for (char& c : text) {
    if (c == '\t' || c == '\n' || c == '\r') c = ' ';
  }
  return text;
}

}  // namespace

void RowView::SetRowSource(std::shared_ptr<RowSource> source) {
  source_ = std::move(source);
  filter_.clear();
  ForgetRows();
  Arrange();
  current_id_.reset();
  selection_.clear();
  Notify(Property::kRows);
}

void RowView::ForgetRows() {
  blocks_.clear();
  folded_.clear();
  order_.clear();
}

void RowView::Rebind() {
  auto old_id = current_id_;
  ForgetRows();
  Arrange();
  KeepExistingSelection();
  KeepCurrentRow();
  Notify(Property::kRows);
  if (current_id_ != old_id && on_current_row) on_current_row();
}

void RowView::RefreshCells() {
  blocks_.clear();
  folded_.clear();
  Notify(Property::kCells);
}

void RowView::KeepPassingSelection() {
  std::set<std::int64_t> passing;
  for (const std::size_t index : shown_) {
    if (selection_.contains(ids_[index])) passing.insert(ids_[index]);
  }
  selection_ = std::move(passing);
}

void RowView::KeepExistingSelection() {
  std::set<std::int64_t> existing;
  for (const auto& row : SelectedRows()) existing.insert(existing.end(), row.second);
  selection_ = std::move(existing);
}

void RowView::KeepCurrentRow() {
  if (!current_id_) return;
  if (auto position = PositionOf(*current_id_)) {
    known_position_ = *position;
    return;
  }
  current_id_.reset();
  if (std::size_t count = RowCount(); count > 0) {
    known_position_ = std::min(known_position_, count - 1);
    current_id_ = IdAt(known_position_);
  }
}

std::size_t RowView::RowCount() const {
  if (!source_) return 0;
  return Arranged() ? shown_.size() : source_->RowCount();
}

// In another order neighbours do not lie in one block.
const Row* RowView::SourceRow(std::size_t index) const {
  const std::size_t rows = sort_ ? 1 : kBlockRows;
  const std::size_t kept = kBlocksKept * kBlockRows / rows;
  const std::size_t block = index / rows;
  auto found = blocks_.find(block);
  if (found == blocks_.end()) {
    if (blocks_.size() >= kept) blocks_.clear();
    found = blocks_.emplace(block, source_->Rows(block * rows, rows)).first;
  }
  const std::size_t offset = index % rows;
  return offset < found->second.size() ? &found->second[offset] : nullptr;
}

// Each cell that is drawn asks: a source may look into its file to count its rows.
const Row* RowView::RowAt(std::size_t position) const {
  if (!source_) return nullptr;
  if (!Arranged()) return SourceRow(position);
  return position < shown_.size() ? SourceRow(shown_[position]) : nullptr;
}

std::int64_t RowView::IdAt(std::size_t position) const {
  if (Arranged()) return position < shown_.size() ? ids_[shown_[position]] : 0;
  const Row* row = RowAt(position);
  return row ? row->id : 0;
}

std::optional<std::size_t> RowView::PositionOf(std::int64_t id) const {
  if (!source_) return std::nullopt;
  auto index = source_->IndexOf(id);
  if (!index || !Arranged()) return index;
  if (*index >= places_.size() || places_[*index] == kHidden) return std::nullopt;
  return places_[*index];
}

Variant RowView::Cell(std::size_t position, std::size_t column) const {
  const Row* row = RowAt(position);
  return row && column < row->cells.size() ? row->cells[column] : Variant();
}

void RowView::ReadFoldedRows() {
  constexpr std::size_t kBlock = 4096;
  ids_.clear();
  for (std::size_t first = 0;; first += kBlock) {
    auto rows = source_->Rows(first, kBlock);
    for (const Row& row : rows) {
      ids_.push_back(row.id);
      std::string& text = folded_.emplace_back();
      for (const Variant& cell : row.cells) {
        if (!cell.IsText()) continue;
        text += platform::FoldCase(*cell.Get<std::string>());
        text += '\n';
      }
    }
    if (rows.size() < kBlock) return;
  }
}

void RowView::Arrange() {
  shown_.clear();
  places_.clear();
  if (!source_ || !Arranged()) return;
  if (sort_ && order_.empty()) order_ = SortedRows(*source_, *sort_, ids_);
  if (!filter_.empty() && folded_.empty()) ReadFoldedRows();
  const std::string wanted = platform::FoldCase(filter_);
  places_.assign(ids_.size(), kHidden);
  for (std::size_t i = 0; i < ids_.size(); ++i) {
    const std::size_t row = sort_ ? order_[i] : i;
    if (!filter_.empty() && folded_[row].find(wanted) == std::string::npos) continue;
    places_[row] = shown_.size();
    shown_.push_back(row);
  }
}

void RowView::SetFilter(std::string_view text) {
  if (filter_ == text) return;
  if (!LeaveRow()) return;
  auto old_id = current_id_;
  filter_ = text;
  known_position_ = 0;
  Arrange();  // the texts stay for the next filter, until a row changes
  if (!filter_.empty()) KeepPassingSelection();
  KeepCurrentRow();
  Notify(Property::kRows);
  if (current_id_ != old_id && on_current_row) on_current_row();
}

void RowView::SetSort(const std::optional<RowSort>& sort) {
  if (sort_ == sort || !LeaveRow()) return;
  sort_ = sort;
  ForgetRows();
  Arrange();
  KeepCurrentRow();
  Notify(Property::kRows);
}

std::optional<std::size_t> RowView::CurrentPosition() const {
  return current_id_ ? PositionOf(*current_id_) : std::nullopt;
}

bool RowView::SetCurrentId(std::optional<std::int64_t> id) {
  if (id == current_id_) return true;
  auto position = id ? PositionOf(*id) : std::nullopt;
  if (id && !position) return false;
  if (!LeaveRow()) return false;
  known_position_ = position.value_or(0);
  Assign(current_id_, id, Property::kCurrentRow);
  if (on_current_row) on_current_row();
  return true;
}

std::vector<std::pair<std::size_t, std::int64_t>> RowView::SelectedRows() const {
  constexpr std::size_t kLookUpCost = 8;  // rows that are read while one is looked up
  std::vector<std::pair<std::size_t, std::int64_t>> selected;
  if (selection_.empty()) return selected;
  const std::size_t count = RowCount();
  if (selection_.size() * kLookUpCost >= count) {
    for (std::size_t position = 0; position < count; ++position) {
      const std::int64_t id = IdAt(position);
      if (selection_.contains(id)) selected.emplace_back(position, id);
    }
    return selected;
  }
  for (const std::int64_t id : selection_) {
    if (const auto position = PositionOf(id)) selected.emplace_back(*position, id);
  }
  std::sort(selected.begin(), selected.end());
  return selected;
}

std::vector<std::int64_t> RowView::SelectedIds() const {
  std::vector<std::int64_t> ids;
  ids.reserve(selection_.size());
  for (const auto& row : SelectedRows()) ids.push_back(row.second);
  return ids;
}

std::string RowView::SelectedText(const std::vector<std::size_t>& columns) const {
  std::string text;
  for (const auto& row : SelectedRows()) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i > 0) text += '\t';
      text += CopiedCell(Cell(row.first, columns[i]));
    }
    text += '\n';
  }
  return text;
}

void RowView::SetSelection(const std::vector<std::int64_t>& ids) {
  std::set<std::int64_t> selection(ids.begin(), ids.end());
  if (Assign(selection_, std::move(selection), Property::kSelection) && on_selection) {
    on_selection();
  }
}

}  // namespace forms
