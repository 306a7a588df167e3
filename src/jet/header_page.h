// SPDX-License-Identifier: MIT
// Page 0 (docs/jet4.md, 2).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "jet/page.h"

namespace jet {

// offset  size
//   0x00     4  00 01 00 00
//   0x04    16  "Standard Jet DB" and 00
//   0x14     4  1
//   0x18     4  row reference of the map of free pages     0x18..0x97 are masked
//   0x1C     4  row reference of a second map
//   0x20    16  definition pages of the four system tables
//   0x3C     2  code page
//   0x3E     4  0: not encrypted
//   0x42    40  password
//   0x6A     4  build number of the engine that made the file
//   0x6E     4  default collation
//   0x72     8  creation date
//   0x98     8  0x654, "4.0" and 00
//  0xE00   512  commit counters, two bytes for each user
inline constexpr std::size_t kHeaderMaskOffset = 0x18;
inline constexpr std::size_t kHeaderFreeMapOffset = 0x18;
inline constexpr std::size_t kHeaderCountersOffset = 0xE00;
inline constexpr std::size_t kUserCount = 256;
inline constexpr PageNumber kObjectsDefinition = 2;

// The key stream that hides bytes 0x18..0x97.
extern const std::array<std::uint8_t, 128> kHeaderMask;

struct HeaderFields {
  std::uint32_t build = 0;  // of the engine that made the file
  std::uint16_t code_page = 0;
  std::uint16_t lcid = 0;
  double created = 0;  // days since 1899-12-30
};

// Checks that the file is a Jet 4.0 database that can be read. Raises kForeign, kUnsupported or
// kDamaged with the reason and the remedy.
HeaderFields CheckHeader(const std::string& path, std::span<const std::byte> page,
                         std::uint64_t file_size);

// Where the map of free pages lies. `page` is page 0 as it is in the file.
RowId HeaderFreeMap(const std::byte* page);
// Masks or unmasks page 0.
void MaskHeader(std::span<std::byte> page);

}  // namespace jet
