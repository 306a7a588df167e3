// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace vbfiles {

// A Windows code page with one byte per character: the characters of bytes 0x80 to 0xFF. A byte
// that the page leaves undefined stands for the control character of its own number, so that
// every byte survives a round trip.
struct SingleByteTable {
  int number;
  char16_t high[128];
};

inline constexpr std::size_t kSingleByteTableCount = 10;
extern const SingleByteTable kSingleByteTables[kSingleByteTableCount];

}  // namespace vbfiles
