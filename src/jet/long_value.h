// SPDX-License-Identifier: MIT
// Memo and OLE values (docs/jet4.md, 8).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "jet/error.h"
#include "jet/page.h"
#include "jet/pager.h"
#include "jet/schema.h"

namespace jet {

// In the row:  u32 length and kind, u32 row reference of the first record, u32 number, then the
// bytes of an inline value.
inline constexpr std::size_t kLongValueHead = 12;
inline constexpr std::uint32_t kLongValueInline = 0x80000000;
inline constexpr std::uint32_t kLongValueSingle = 0x40000000;
inline constexpr std::uint32_t kLongValueLengthMask = 0x3FFFFFFF;
inline constexpr std::size_t kMaxInline = 64;
inline constexpr std::size_t kMaxInSingle = 4076;
inline constexpr std::size_t kMaxInChainRecord = 4072;

// The bytes of a long value whose part in the row at `place` is `stored`. `scratch` may hold
// them. Raises kDamaged.
std::span<const std::byte> ReadLongValue(Pager& pager, Place place,
                                         std::span<const std::byte> stored,
                                         std::vector<std::byte>& scratch);
// Calls `visit` for each record of a value that is not inline, in order.
void ForEachLongValueRecord(Pager& pager, Place place, std::span<const std::byte> stored,
                            const std::function<void(RowId)>& visit);

}  // namespace jet
