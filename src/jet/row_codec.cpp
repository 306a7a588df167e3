// SPDX-License-Identifier: MIT
#include "jet/row_codec.h"

#include <algorithm>
#include <cstring>

#include "jet/bytes.h"

namespace jet {
namespace {

void Append16(std::vector<std::byte>& row, std::size_t v) {
  row.push_back(static_cast<std::byte>(v & 0xFF));
  row.push_back(static_cast<std::byte>(v >> 8 & 0xFF));
}

}  // namespace

std::size_t FixedAreaSize(const TableDefinition& definition) {
  std::size_t size = 0;
  for (const Column& column : definition.columns) {
    if (column.fixed) size = std::max(size, column.fixed_offset + FixedSize(column));
  }
  return size;
}

std::span<const std::byte> RowView::FixedArea(std::size_t size) const {
  return row_.subspan(kRowHead, std::min(size, mask_at_ - kRowHead));
}

RowWriter::RowWriter(const TableDefinition& definition)
    : definition_(definition),
      fixed_size_(FixedAreaSize(definition)),
      variable_(definition.variable_columns, kNoColumn) {
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    const Column& column = definition.columns[i];
    if (!column.fixed) variable_[column.variable_index] = i;
  }
}

std::span<const std::byte> RowWriter::Write(std::span<const Cell> cells,
                                            std::span<const std::byte> fixed_area,
                                            std::size_t min_size) {
  row_.clear();
  Append16(row_, definition_.max_columns);
  row_.resize(kRowHead + fixed_size_);
  if (!fixed_area.empty()) {
    std::memcpy(&row_[kRowHead], fixed_area.data(), std::min(fixed_area.size(), fixed_size_));
  }
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const Column& column = definition_.columns[i];
    if (column.fixed && cells[i].has_value && !cells[i].bytes.empty()) {
      std::memcpy(&row_[kRowHead + column.fixed_offset], cells[i].bytes.data(),
                  cells[i].bytes.size());
    }
  }
  const std::size_t mask_size = (std::size_t{definition_.max_columns} + 7) / 8;
  const std::size_t count = variable_.size();
  std::size_t offsets_start = 0;
  std::uint16_t offsets[kMaxColumns + 1];
  if (count != 0) {
    for (std::size_t v = 0; v < count; ++v) {
      offsets[v] = static_cast<std::uint16_t>(row_.size());
      if (variable_[v] == kNoColumn) continue;
      const Cell& cell = cells[variable_[v]];
      if (cell.has_value) row_.insert(row_.end(), cell.bytes.begin(), cell.bytes.end());
    }
    offsets[count] = static_cast<std::uint16_t>(row_.size());
    offsets_start = 2 * (count + 2);
  }
  if (row_.size() + offsets_start + mask_size < min_size) {
    row_.resize(min_size - offsets_start - mask_size);
  }
  if (count != 0) {
    for (std::size_t v = count + 1; v-- > 0;) Append16(row_, offsets[v]);
    Append16(row_, count);
  }
  const std::size_t mask_at = row_.size();
  row_.resize(mask_at + mask_size);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!cells[i].has_value) continue;
    const std::uint16_t id = definition_.columns[i].id;
    row_[mask_at + id / 8] |= std::byte{static_cast<std::uint8_t>(1u << (id % 8))};
  }
  return row_;
}

}  // namespace jet
