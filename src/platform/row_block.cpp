// SPDX-License-Identifier: MIT
#include "platform/row_block.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace platform {

Variant BlockValue::ToVariant() const {
  switch (kind_) {
    case Kind::kNull:
      break;
    case Kind::kBoolean:
      return number_ != 0;
    case Kind::kLong:
      return number_;
    case Kind::kDouble:
      return real_;
    case Kind::kDate:
      return Date{real_};
    case Kind::kText:
      return Text();
    case Kind::kBytes:
      return std::vector<std::uint8_t>(data_, data_ + size_);
  }
  return Null{};
}

// The first piece is small: most blocks hold a few rows.
void RowBlock::Grow(std::size_t size) {
  constexpr std::size_t kFirstSize = 512;
  constexpr std::size_t kMaxAtOnce = (std::size_t{1} << 29) - 1;
  constexpr std::uint64_t kMaxInAll = std::numeric_limits<std::uint32_t>::max();
  const std::size_t room = std::max(size, pieces_.empty() ? kFirstSize : kPieceSize);
  const std::uint64_t place = std::uint64_t{pieces_.size()} * kPieceSize;
  if (size > kMaxAtOnce || place + room > kMaxInAll) {
    throw std::length_error("The rows hold more text than can be read at once.");
  }
  memory_.push_back(std::make_unique_for_overwrite<char[]>(room));
  char* const memory = memory_.back().get();
  for (std::size_t at = 0; at < room; at += kPieceSize) pieces_.push_back(memory + at);
  free_ = memory;
  left_ = room;
  next_ = static_cast<std::uint32_t>(place);
}

}  // namespace platform
