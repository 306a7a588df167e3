// SPDX-License-Identifier: MIT
#include "jet/row_buffer.h"

#include <algorithm>

namespace jet {
namespace {
constexpr std::size_t kMinBlock = 8192;
}  // namespace

void Arena::Shrink() {
  if (capacity_ > kMaxKept) {
    blocks_.clear();
    capacity_ = 0;
    block_ = nullptr;
  } else {
    blocks_.erase(blocks_.begin(), blocks_.end() - 1);
  }
}

void Arena::Grow(std::size_t size) {
  const std::size_t capacity = std::max({size, 2 * capacity_, kMinBlock});
  blocks_.push_back(std::make_unique_for_overwrite<char[]>(capacity));
  block_ = blocks_.back().get();
  capacity_ = capacity;
  used_ = 0;
}

}  // namespace jet
