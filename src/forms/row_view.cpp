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
  blocks_.clear();
  filter_.clear();
  folded_.clear();
  passing_.clear();
  current_id_.reset();
  selection_.clear();
  Notify(Property::kRows);
}

void RowView::Rebind() {
  auto old_id = current_id_;
  blocks_.clear();
  folded_.clear();
  if (!filter_.empty()) ApplyFilter();
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
  for (const std::size_t index : passing_) {
    if (selection_.contains(ids_[index])) passing.insert(passing.end(), ids_[index]);
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
  return filter_.empty() ? source_->RowCount() : passing_.size();
}

const Row* RowView::SourceRow(std::size_t index) const {
  std::size_t block = index / kBlockRows;
  auto found = blocks_.find(block);
  if (found == blocks_.end()) {
    if (blocks_.size() >= kBlocksKept) blocks_.clear();
    found = blocks_.emplace(block, source_->Rows(block * kBlockRows, kBlockRows)).first;
  }
  std::size_t offset = index % kBlockRows;
  return offset < found->second.size() ? &found->second[offset] : nullptr;
}

const Row* RowView::RowAt(std::size_t position) const {
  if (position >= RowCount()) return nullptr;
  return SourceRow(filter_.empty() ? position : passing_[position]);
}

std::int64_t RowView::IdAt(std::size_t position) const {
  const Row* row = RowAt(position);
  return row ? row->id : 0;
}

std::optional<std::size_t> RowView::PositionOf(std::int64_t id) const {
  if (!source_) return std::nullopt;
  auto index = source_->IndexOf(id);
  if (!index || filter_.empty()) return index;
  auto found = std::lower_bound(passing_.begin(), passing_.end(), *index);
  if (found == passing_.end() || *found != *index) return std::nullopt;
  return static_cast<std::size_t>(found - passing_.begin());
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

void RowView::ApplyFilter() {
  passing_.clear();
  if (!source_) return;
  if (folded_.empty()) ReadFoldedRows();
  std::string wanted = platform::FoldCase(filter_);
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    if (folded_[i].find(wanted) != std::string::npos) passing_.push_back(i);
  }
}

void RowView::SetFilter(std::string_view text) {
  if (filter_ == text) return;
  if (!LeaveRow()) return;
  auto old_id = current_id_;
  filter_ = text;
  known_position_ = 0;
  if (filter_.empty()) {
    passing_.clear();  // the texts stay for the next filter, until a row changes
  } else {
    ApplyFilter();
    KeepPassingSelection();
  }
  KeepCurrentRow();
  Notify(Property::kRows);
  if (current_id_ != old_id && on_current_row) on_current_row();
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
