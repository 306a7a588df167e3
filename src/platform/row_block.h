// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/variant.h"

namespace platform {

// A value of a RowBlock. Text and bytes belong to the block. Converts as a Variant does.
class BlockValue {
 public:
  bool IsNull() const { return kind_ == Kind::kNull; }
  bool IsText() const { return kind_ == Kind::kText; }
  // The text where it lies; empty for a value that is none.
  std::string_view Text() const {
    return IsText() ? std::string_view(data_, size_) : std::string_view();
  }

  bool ToBool() const { return ToVariant().ToBool(); }
  std::int32_t ToLong() const { return kind_ == Kind::kLong ? number_ : ToVariant().ToLong(); }
  std::string ToText() const { return IsText() ? std::string(Text()) : ToVariant().ToText(); }
  Variant ToVariant() const;

 private:
  friend class RowBlock;
  enum class Kind : std::uint8_t { kNull, kBoolean, kLong, kDouble, kDate, kText, kBytes };

  BlockValue(Kind kind, std::int32_t number) : kind_(kind), number_(number) {}
  BlockValue(Kind kind, double real) : kind_(kind), real_(real) {}
  BlockValue(Kind kind, const char* data, std::uint32_t size)
      : kind_(kind), size_(size), data_(data) {}

  Kind kind_;
  std::uint32_t size_ = 0;
  union {
    std::int32_t number_;  // also a boolean
    double real_;          // also a date
    const char* data_;
  };
};

// Rows that were read together: the same fields of each. A hundred thousand rows cost little more
// than their reading, because they touch little memory: a value takes eight bytes, and texts lie
// one behind the other. Moved from, a block can only be given other rows.
class RowBlock {
 public:
  RowBlock() = default;
  explicit RowBlock(std::size_t fields) : fields_(fields) {}

  std::size_t FieldCount() const { return fields_; }
  std::size_t RowCount() const { return fields_ == 0 ? 0 : cells_.size() / fields_; }
  // The texts of values stay where they are when the block is moved.
  BlockValue At(std::size_t field, std::size_t row) const;

  // For those who fill it: makes room for that many rows more.
  void Reserve(std::size_t rows) { cells_.reserve(cells_.size() + rows * fields_); }
  // Adds the next value, field after field and row after row. Text and bytes are copied. Raises
  // std::length_error for more than 512 MiB at once or 4 GiB in all.
  void Add(Null) { cells_.emplace_back(Kind::kNull, 0u); }
  void Add(bool v) { cells_.emplace_back(Kind::kBoolean, v ? 1u : 0u); }
  void Add(std::int32_t v) { cells_.emplace_back(Kind::kLong, static_cast<std::uint32_t>(v)); }
  void Add(double v) { Keep(Kind::kDouble, &v, sizeof v); }
  void Add(Date v) { Keep(Kind::kDate, &v.days, sizeof v.days); }
  void Add(std::string_view v) { Keep(Kind::kText, v.data(), v.size()); }
  void Add(std::span<const std::byte> v) { Keep(Kind::kBytes, v.data(), v.size()); }
  void Add(const char*) = delete;  // it would be taken for a truth value

 private:
  using Kind = BlockValue::Kind;
  static constexpr std::size_t kPieceSize = std::size_t{32} * 1024;

  struct Cell {
    Cell(Kind kind, std::uint32_t v, std::size_t size = 0)
        : content(v), tag(static_cast<std::uint32_t>(size << 3 | static_cast<std::size_t>(kind))) {}
    Kind kind() const { return static_cast<Kind>(tag & 7); }
    std::uint32_t size() const { return tag >> 3; }

    std::uint32_t content;  // a number, or the place of what lies in the pieces
    std::uint32_t tag;      // size in bytes, and kind
  };

  void Keep(Kind kind, const void* data, std::size_t size) {
    if (size >= left_) Grow(size + 1);  // an empty text has a place, too
    if (size != 0) std::memcpy(free_, data, size);
    cells_.emplace_back(kind, next_, size);
    free_ += size;
    left_ -= size;
    next_ += static_cast<std::uint32_t>(size);
  }
  void Grow(std::size_t size);
  const char* Kept(std::uint32_t place) const {
    return pieces_[place / kPieceSize] + place % kPieceSize;
  }

  std::size_t fields_ = 0;
  std::vector<Cell> cells_;
  std::vector<std::unique_ptr<char[]>> memory_;
  std::vector<char*> pieces_;  // all of one size but the first; a long text takes several
  char* free_ = nullptr;       // behind what was kept last
  std::size_t left_ = 0;       // there
  std::uint32_t next_ = 0;     // its place
};

inline BlockValue RowBlock::At(std::size_t field, std::size_t row) const {
  assert(field < fields_ && row < RowCount());
  const Cell cell = cells_[row * fields_ + field];
  const Kind kind = cell.kind();
  if (kind >= Kind::kText) return {kind, Kept(cell.content), cell.size()};
  if (kind <= Kind::kLong) return {kind, static_cast<std::int32_t>(cell.content)};
  double real = 0;
  std::memcpy(&real, Kept(cell.content), sizeof real);
  return {kind, real};
}

}  // namespace platform
