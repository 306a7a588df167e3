// SPDX-License-Identifier: MIT
// The record of a usage map (docs/jet4.md, 3.1).
#pragma once

#include <optional>
#include <span>

#include "jet/bytes.h"
#include "jet/page.h"
#include "jet/pager.h"

namespace jet {

// inline:     00, u32 first page, bitmap; bit k stands for page first + k
// references: 01, u32 pages of type 05; page i holds the bits of pages i * 32736 and following
inline constexpr std::uint8_t kInlineMap = 0;
inline constexpr std::uint8_t kReferenceMap = 1;
inline constexpr std::size_t kMapHead = 5;
inline constexpr std::size_t kNewMapSize = 69;
inline constexpr std::size_t kMaxInlineMap = 1029;  // longer ones are turned into references
inline constexpr std::size_t kBitmapHead = 4;
inline constexpr std::size_t kPagesPerBitmap = (kPageSize - kBitmapHead) * 8;

// A map record, checked and kept in memory.
class MapRecord {
 public:
  // Raises kDamaged when there is no map.
  MapRecord(Pager& pager, RowId record, std::uint32_t owner);

  bool is_inline() const { return Load8(row_.data()) == kInlineMap; }
  std::size_t size() const { return row_.size(); }
  std::size_t offset() const { return static_cast<std::size_t>(row_.data() - page_.data()); }
  PageNumber first_page() const { return Load32(row_.data() + 1); }
  std::span<const std::byte> bits() const { return row_.subspan(kMapHead); }
  std::size_t reference_count() const { return (row_.size() - 1) / 4; }
  PageNumber reference(std::size_t i) const { return Load32(row_.data() + 1 + 4 * i); }

 private:
  PageRef page_;
  std::span<const std::byte> row_;
};

// The lowest set bit that is not below `from`.
std::optional<std::size_t> FindBit(std::span<const std::byte> bits, std::size_t from);
PageRef ReadBitmapPage(Pager& pager, PageNumber page);
PageEdit NewBitmapPage(Pager& pager);

}  // namespace jet
