// SPDX-License-Identifier: MIT
// Rows as bytes (docs/jet4.md, 5).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "jet/bytes.h"
#include "jet/messages.h"
#include "jet/schema.h"
#include "jet/table_definition.h"

namespace jet {

inline constexpr std::size_t kRowHead = 2;  // the number of columns

// Bytes that a fixed-length column takes in the fixed area.
inline std::size_t FixedSize(const Column& column) {
  switch (column.type) {
    case ColumnType::kBoolean:
      return 0;
    case ColumnType::kByte:
      return 1;
    case ColumnType::kInteger:
      return 2;
    case ColumnType::kLong:
    case ColumnType::kSingle:
      return 4;
    case ColumnType::kCurrency:
    case ColumnType::kDouble:
    case ColumnType::kDate:
      return 8;
    case ColumnType::kGuid:
      return 16;
    case ColumnType::kDecimal:
      return 17;
    default:
      return column.length;
  }
}

// The parts of a stored row, with the bounds of all of them checked:
//   u16 columns | fixed area | variable data | slack | u16 end | u16 offsets (last first)
//   | u16 variable columns | null mask
class RowView {
 public:
  // Says what is wrong with the row, or null.
  const messages::Pattern* Parse(std::span<const std::byte> row);

  std::uint16_t column_count() const { return columns_; }
  std::span<const std::byte> row() const { return row_; }

  // Whether the column's bit in the null mask is set: the value of a Yes/No column.
  bool HasValue(const Column& column) const {
    if (column.id >= columns_) return false;
    return (mask_[column.id / 8] >> (column.id % 8) & std::byte{1}) != std::byte{0};
  }
  // The stored bytes of a column that has a value and is no Yes/No column; nothing when the row
  // is damaged.
  std::optional<std::span<const std::byte>> Bytes(const Column& column) const;
  // The bytes between the column count and the variable part, the fixed area.
  std::span<const std::byte> FixedArea(std::size_t size) const;

 private:
  std::span<const std::byte> row_;
  const std::byte* mask_ = nullptr;
  std::uint16_t columns_ = 0;
  std::size_t mask_at_ = 0;
  std::size_t variable_count_ = 0;
  std::size_t variable_end_ = 0;  // where the offsets of the variable columns begin; 0: not sound
};

// End of the fixed area, counted from its start: behind the highest fixed column.
std::size_t FixedAreaSize(const TableDefinition& definition);

inline const messages::Pattern* RowView::Parse(std::span<const std::byte> row) {
  row_ = row;
  if (row.size() < kRowHead) return &message::kRowTooShort;
  columns_ = Load16(row.data());
  const std::size_t mask_size = (std::size_t{columns_} + 7) / 8;
  if (row.size() < kRowHead + mask_size) return &message::kRowTooShortForColumns;
  mask_at_ = row.size() - mask_size;
  mask_ = row.data() + mask_at_;
  variable_count_ = mask_at_ < kRowHead + 2 ? 0 : Load16(mask_ - 2);
  const std::size_t trailer = 2 * (variable_count_ + 2);
  variable_end_ = mask_at_ < kRowHead + trailer ? 0 : mask_at_ - trailer;
  return nullptr;
}

inline std::optional<std::span<const std::byte>> RowView::Bytes(const Column& column) const {
  if (column.fixed) {
    const std::size_t begin = kRowHead + column.fixed_offset;
    const std::size_t size = FixedSize(column);
    if (begin + size > mask_at_) return std::nullopt;
    return row_.subspan(begin, size);
  }
  if (variable_end_ == 0) return std::nullopt;
  if (column.variable_index >= variable_count_) return std::span<const std::byte>();
  const std::byte* offset = mask_ - 4 - 2 * std::size_t{column.variable_index};
  const std::size_t begin = Load16(offset);
  const std::size_t end = Load16(offset - 2);
  if (begin < kRowHead || begin > end || end > variable_end_) return std::nullopt;
  return row_.subspan(begin, end - begin);
}

// What a row shall hold in one column.
struct Cell {
  bool has_value = false;  // the null-mask bit
  std::span<const std::byte> bytes;
};

// Assembles rows of one table.
class RowWriter {
 public:
  explicit RowWriter(const TableDefinition& definition);
  // The row for the cells, one for each column of the definition; valid until the next call.
  // `fixed_area` is what lies in the fixed area where no cell writes (of an old row, or empty).
  // The row is made at least `min_size` bytes long with slack.
  std::span<const std::byte> Write(std::span<const Cell> cells,
                                   std::span<const std::byte> fixed_area = {},
                                   std::size_t min_size = 0);

 private:
  const TableDefinition& definition_;
  std::size_t fixed_size_;
  std::vector<std::size_t> variable_;  // position of the column by variable index, or kNoColumn
  std::vector<std::byte> row_;
};

}  // namespace jet
