// SPDX-License-Identifier: MIT
#include "jet/definition_writer.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/text_codec.h"
#include "jet/usage_map_record.h"

namespace jet {
namespace {

constexpr std::uint32_t kDefinitionSignature = 1625;
constexpr std::uint32_t kPhysicalSignature = 1923;
constexpr std::uint16_t kGeneralLcid = 0x0409;
constexpr std::uint8_t kNoCascade = 4;
constexpr std::size_t kFreeOffset = 2;
constexpr std::size_t kSignatureOffset = 12;
constexpr std::size_t kIncrementOffset = 24;

using Bytes = std::vector<std::byte>;

void Append16(Bytes& out, std::size_t v) {
  out.resize(out.size() + 2);
  Store16(&out[out.size() - 2], static_cast<std::uint16_t>(v));
}

void Append32(Bytes& out, std::uint32_t v) {
  out.resize(out.size() + 4);
  Store32(&out[out.size() - 4], v);
}

Bytes EncodeName(const std::string& name) {
  Bytes out;
  Append16(out, 0);
  AppendUtf16(name, out);
  Store16(out.data(), static_cast<std::uint16_t>(out.size() - 2));
  return out;
}

void Append(Bytes& out, const Bytes& more) { out.insert(out.end(), more.begin(), more.end()); }

Bytes EncodeColumn(const TableDefinition& definition, const Column& column) {
  Bytes out(kColumnRecordSize);
  std::byte* p = out.data();
  Store8(p, static_cast<std::uint8_t>(column.type));
  Store32(p + 1, kDefinitionSignature);
  Store16(p + 5, column.id);
  std::size_t variable = column.variable_index;
  if (column.fixed) {
    variable = static_cast<std::size_t>(
        std::count_if(definition.columns.begin(), definition.columns.end(),
                      [&](const Column& c) { return !c.fixed && c.id < column.id; }));
  }
  Store16(p + 7, static_cast<std::uint16_t>(variable));
  Store16(p + 9, column.display_position);
  if (column.type == ColumnType::kDecimal) {
    Store8(p + 11, column.precision);
    Store8(p + 12, column.scale);
  } else {
    Store16(p + 11, kGeneralLcid);
  }
  Store8(p + 15, ColumnFlags(column));
  Store8(p + 16, column.compressed ? kColumnCompressed : 0);
  Store16(p + 21, column.fixed ? column.fixed_offset : 0);
  Store16(p + 23, column.length);
  return out;
}

Bytes EncodePhysical(const TableDefinition& definition, const PhysicalIndex& index) {
  Bytes out(kPhysicalRecordSize);
  std::byte* p = out.data();
  Store32(p, kPhysicalSignature);
  for (std::size_t i = 0; i < kMaxIndexColumns; ++i) {
    const bool used = i < index.columns.size();
    Store16(p + 4 + 3 * i, used ? definition.columns[index.columns[i].column].id : kNoColumn);
    Store8(p + 6 + 3 * i, used && index.columns[i].ascending ? 1 : 0);
  }
  Store32(p + 34, index.usage_map.Reference());
  Store32(p + 38, index.root);
  Store8(p + 46, static_cast<std::uint8_t>(kIndexAlways | (index.unique ? kIndexUnique : 0) |
                                           (index.ignore_nulls ? kIndexIgnoreNulls : 0) |
                                           (index.required ? kIndexRequired : 0)));
  return out;
}

Bytes EncodeLogical(const Index& index) {
  Bytes out(kLogicalRecordSize);
  std::byte* p = out.data();
  Store32(p, kDefinitionSignature);
  Store32(p + 4, index.number);
  Store32(p + 8, static_cast<std::uint32_t>(index.physical));
  Store32(p + 13, 0xFFFFFFFF);
  Store8(p + 21, kNoCascade);
  Store8(p + 22, kNoCascade);
  Store8(p + 23, static_cast<std::uint8_t>(index.kind));
  return out;
}

void StoreCounts(Bytes& bytes, std::size_t logical, std::size_t physical) {
  Store32(&bytes[kDefinitionLogicalOffset], static_cast<std::uint32_t>(logical));
  Store32(&bytes[kDefinitionPhysicalOffset], static_cast<std::uint32_t>(physical));
  Store32(&bytes[kDefinitionLengthOffset], static_cast<std::uint32_t>(bytes.size()));
}

}  // namespace

std::uint8_t ColumnFlags(const Column& column) {
  unsigned flags = kColumnAlways;
  if (column.fixed) flags |= kColumnFixed;
  if (column.auto_number) flags |= kColumnAutoNumber;
  if (column.system) flags |= kColumnSystem;
  if (column.account) flags |= kColumnAccount;
  if (column.auto_guid) flags |= kColumnAutoGuid;
  if (column.hyperlink) flags |= kColumnHyperlink;
  return static_cast<std::uint8_t>(flags);
}

Bytes EncodeDefinition(const TableDefinition& definition) {
  Bytes out(kDefinitionCountersOffset);
  Store8(out.data(), static_cast<std::uint8_t>(PageType::kTableDefinition));
  Store8(&out[1], 1);
  Store32(&out[kSignatureOffset], kDefinitionSignature);
  Store32(&out[kIncrementOffset], 1);
  Store8(&out[kDefinitionTypeOffset], definition.type);
  Store16(&out[kDefinitionMaxColumnsOffset], definition.max_columns);
  Store16(&out[kDefinitionVariableOffset], definition.variable_columns);
  Store16(&out[kDefinitionColumnsOffset], static_cast<std::uint16_t>(definition.columns.size()));
  Store32(&out[kDefinitionOwnedMapOffset], definition.owned_map.Reference());
  Store32(&out[kDefinitionFreeMapOffset], definition.free_map.Reference());
  out.resize(out.size() + definition.physical.size() * kDefinitionCounterSize);
  for (const Column& column : definition.columns) Append(out, EncodeColumn(definition, column));
  for (const Column& column : definition.columns) Append(out, EncodeName(column.name));
  for (const PhysicalIndex& index : definition.physical) {
    Append(out, EncodePhysical(definition, index));
  }
  for (const Index& index : definition.indexes) Append(out, EncodeLogical(index));
  for (const Index& index : definition.indexes) Append(out, EncodeName(index.name));
  for (const LongValueMaps& maps : definition.long_values) {
    Append16(out, definition.columns[maps.column].id);
    Append32(out, maps.owned.Reference());
    Append32(out, maps.free.Reference());
  }
  Append16(out, kNoColumn);
  StoreCounts(out, definition.indexes.size(), definition.physical.size());
  return out;
}

// Splices the four pieces in; all other bytes stay as they are.
Bytes AddIndexToDefinition(const TableDefinition& definition, std::span<const std::byte> bytes,
                           const PhysicalIndex& physical, const Index& index) {
  const auto name_size = [&](std::size_t at) { return 2 + std::size_t{Load16(&bytes[at])}; };
  const std::size_t counters_end =
      kDefinitionCountersOffset + definition.physical.size() * kDefinitionCounterSize;
  std::size_t physical_end = counters_end + definition.columns.size() * kColumnRecordSize;
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    physical_end += name_size(physical_end);
  }
  physical_end += definition.physical.size() * kPhysicalRecordSize;
  const auto later =
      std::find_if(definition.indexes.begin(), definition.indexes.end(),
                   [&](const Index& other) { return ComesBefore(index.name, other.name); });
  const auto place = static_cast<std::size_t>(later - definition.indexes.begin());
  const std::size_t record_at = physical_end + place * kLogicalRecordSize;
  std::size_t name_at = physical_end + definition.indexes.size() * kLogicalRecordSize;
  for (std::size_t i = 0; i < place; ++i) name_at += name_size(name_at);

  Bytes out;
  std::size_t done = 0;
  const auto splice = [&](std::size_t at, const Bytes& piece) {
    out.insert(out.end(), bytes.begin() + static_cast<std::ptrdiff_t>(done),
               bytes.begin() + static_cast<std::ptrdiff_t>(at));
    Append(out, piece);
    done = at;
  };
  splice(counters_end, Bytes(kDefinitionCounterSize));
  splice(physical_end, EncodePhysical(definition, physical));
  splice(record_at, EncodeLogical(index));
  splice(name_at, EncodeName(index.name));
  splice(bytes.size(), {});
  StoreCounts(out, definition.indexes.size() + 1, definition.physical.size() + 1);
  return out;
}

void StoreDefinition(Pager& pager, std::span<const PageNumber> pages,
                     std::span<const std::byte> bytes) {
  std::vector<PageNumber> all(pages.begin(), pages.end());
  const std::size_t per_page = kPageSize - kContinuationHead;
  const std::size_t rest = bytes.size() > kPageSize ? bytes.size() - kPageSize : 0;
  while (all.size() < 1 + (rest + per_page - 1) / per_page) {
    all.push_back(pager.Allocate().number());
  }
  std::size_t done = 0;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const PageEdit page = pager.Modify(all[i]);
    const std::size_t head = i == 0 ? 0 : kContinuationHead;
    const std::size_t size = std::min(bytes.size() - done, kPageSize - head);
    std::memset(page.data(), 0, kPageSize);
    std::memcpy(page.data() + head, bytes.data() + done, size);
    done += size;
    Store8(page.data(), static_cast<std::uint8_t>(PageType::kTableDefinition));
    Store8(page.data() + 1, 1);
    const std::size_t unused = kPageSize - head - size;
    Store16(page.data() + kFreeOffset, static_cast<std::uint16_t>(unused < 8 ? 0 : unused - 8));
    Store32(page.data() + kDefinitionNextOffset, i + 1 < all.size() ? all[i + 1] : 0);
  }
}

RowId AddEmptyMap(Pager& pager, PageNumber& map_page) {
  const std::vector<std::byte> map(kNewMapSize);
  if (map_page != 0) {
    const PageRef page = pager.Read(map_page);
    CheckDataPage(pager, page, 0);
    if (!HasRoom(page.data(), map.size())) map_page = 0;
  }
  if (map_page == 0) {
    const PageEdit page = pager.Allocate();
    InitDataPage(page.data(), 0);
    map_page = page.number();
  }
  return {map_page, AddRow(pager.Modify(map_page).data(), map, kSlotLive)};
}

}  // namespace jet
