// SPDX-License-Identifier: MIT
// ADO's numbers of schema recordsets and of what stands in them, as the provider of Access files
// reports it.
#pragma once

#include <cstdint>

namespace com {

// What can be asked for.
inline constexpr std::int32_t kSchemaColumns = 4;
inline constexpr std::int32_t kSchemaIndexes = 12;
inline constexpr std::int32_t kSchemaStatistics = 19;
inline constexpr std::int32_t kSchemaTables = 20;

// Types that have other numbers than those of fields: texts and bytes, short or long.
inline constexpr std::int32_t kBytes = 128;
inline constexpr std::int32_t kWideText = 130;

// Flags of a column whose number the database gives, of others, and of a long one.
inline constexpr std::int32_t kAutoIncrementFlags = 90;
inline constexpr std::int32_t kOrdinaryFlags = 122;
inline constexpr std::int32_t kLongFlag = 128;

}  // namespace com
