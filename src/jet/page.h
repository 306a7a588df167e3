// SPDX-License-Identifier: MIT
// Terms that every structure of the file shares (docs/jet4.md, 1).
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>

namespace jet {

using PageNumber = std::uint32_t;

inline constexpr std::size_t kPageSize = 4096;
inline constexpr PageNumber kNoPage = 0xFFFFFFFF;
inline constexpr std::uint64_t kMaxFileSize = std::uint64_t{1} << 31;
inline constexpr PageNumber kMaxPageCount = static_cast<PageNumber>(kMaxFileSize / kPageSize);

// Byte 0 of a page.
enum class PageType : std::uint8_t {
  kHeader = 0,
  kData = 1,
  kTableDefinition = 2,
  kIndexNode = 3,
  kIndexLeaf = 4,
  kUsageBitmap = 5,
};
// Set in byte 0 of a released page, which still shows what it was.
inline constexpr std::uint8_t kReleasedPage = 0x08;

// Names a row for good: page and slot where it was first stored, also after it moved. On disk a
// row reference is the slot byte and a 24-bit page number, as u32 page * 256 + slot.
struct RowId {
  PageNumber page = 0;
  std::uint8_t slot = 0;

  static constexpr RowId FromReference(std::uint32_t reference) {
    return {reference >> 8, static_cast<std::uint8_t>(reference & 0xFF)};
  }
  constexpr std::uint32_t Reference() const { return page << 8 | slot; }
  // NOLINTNEXTLINE(modernize-use-nullptr): it takes the comparison's own 0 for a pointer.
  friend constexpr auto operator<=>(const RowId&, const RowId&) = default;
};

}  // namespace jet
