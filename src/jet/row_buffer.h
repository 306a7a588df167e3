// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "jet/page.h"
#include "jet/value.h"

namespace jet {

// Memory for texts and bytes whose addresses stay valid until Clear. Reused from row to row.
class Arena {
 public:
  // Room for `size` bytes.
  char* Reserve(std::size_t size) {
    if (size > capacity_ - used_) Grow(size);
    return block_ + used_;
  }
  // Keeps the first `size` bytes of the room that Reserve returned last.
  void Keep(std::size_t size) { used_ += size; }
  void Clear() {
    used_ = 0;
    if (blocks_.size() > 1 || capacity_ > kMaxKept) Shrink();
  }

 private:
  // A larger block, which some long value needed, is given back.
  static constexpr std::size_t kMaxKept = 1 << 20;

  void Shrink();
  void Grow(std::size_t size);

  std::vector<std::unique_ptr<char[]>> blocks_;  // the last one is in use
  char* block_ = nullptr;
  std::size_t capacity_ = 0;
  std::size_t used_ = 0;
};

// A row that was read: the values of the requested columns in the requested order. Valid until
// the buffer is used for another row. Make one and use it for many rows.
class RowBuffer {
 public:
  RowId id() const { return id_; }
  std::size_t size() const { return values_.size(); }
  const Value& operator[](std::size_t i) const { return values_[i]; }
  std::span<const Value> values() const { return values_; }

  // For those who fill it.
  void Reset(RowId id, std::size_t columns) {
    id_ = id;
    values_.resize(columns);  // with what they held
    arena_.Clear();
  }
  Value& Mutable(std::size_t i) { return values_[i]; }
  Arena& arena() { return arena_; }

 private:
  RowId id_;
  std::vector<Value> values_;
  Arena arena_;
};

}  // namespace jet
