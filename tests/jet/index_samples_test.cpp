// SPDX-License-Identifier: MIT
// Every index entry of real files, derived anew from its row.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/index_check.h"
#include "jet/index_cursor.h"
#include "jet/index_entries.h"
#include "jet/index_key.h"
#include "jet/pager.h"
#include "jet/row_buffer.h"
#include "jet/row_codec.h"
#include "jet/table_definition.h"
#include "jet/usage_map.h"
#include "jet/value_codec.h"

namespace jet {
namespace {

constexpr PageNumber kCatalog = 2;

using Rows = std::map<RowId, std::vector<std::byte>>;

std::vector<std::byte> MovedRow(Pager& pager, std::uint32_t reference, PageNumber table) {
  const RowId target = RowId::FromReference(reference);
  const PageRef page = pager.Read(target.page);
  const auto row = RowBytes(pager, page, target.slot, table);
  return {row.begin(), row.end()};
}

Rows ReadRows(Pager& pager, const TableDefinition& table) {
  Rows rows;
  const UsageMap owned(pager, table.owned_map);
  for (auto number = owned.Next(0); number; number = owned.Next(*number + 1)) {
    const PageRef page = pager.Read(*number);
    CheckDataPage(pager, page, table.page);
    for (std::size_t i = 0; i < SlotCount(page.data()); ++i) {
      const Slot slot = GetSlot(page.data(), i);
      if ((slot.state & kSlotTarget) != 0) continue;
      const std::byte* row = page.data() + slot.begin;
      rows[{*number, static_cast<std::uint8_t>(i)}] =
          slot.state == kSlotMoved ? MovedRow(pager, Load32(row), table.page)
                                   : std::vector<std::byte>(row, page.data() + slot.end);
    }
  }
  return rows;
}

Value ValueOf(const Column& column, const RowView& row, Arena& arena) {
  if (column.type == ColumnType::kBoolean) return Value::Boolean(row.HasValue(column));
  if (!row.HasValue(column)) return Value::Null();
  Value value;
  const auto bytes = row.Bytes(column);
  EXPECT_TRUE(bytes && DecodeValue(column, *bytes, arena, value)) << column.name;
  return value;
}

std::vector<PageNumber> Tables(Pager& pager) {
  const TableDefinition catalog = ReadTableDefinition(pager, kCatalog);
  std::vector<PageNumber> tables;
  for (const auto& [id, bytes] : ReadRows(pager, catalog)) {
    RowView row;
    EXPECT_EQ(row.Parse(bytes), nullptr);
    Arena arena;
    std::map<std::string, std::int64_t> numbers;
    for (const Column& column : catalog.columns) {
      if (column.name != "Id" && column.name != "Type") continue;
      numbers[column.name] = ValueOf(column, row, arena).integer();
    }
    if (numbers["Type"] == 1) tables.push_back(static_cast<PageNumber>(numbers["Id"]));
  }
  return tables;
}

struct Counts {
  std::size_t indexes = 0;
  std::uint64_t entries = 0;
  std::size_t without_key = 0;  // rows with a character that the collation's table lacks
  std::size_t nodes = 0;
  std::size_t prefixed = 0;
};

// Each page is in the one form that its entries have.
void CheckForm(Pager& pager, PageNumber number, Counts& counts) {
  const PageRef page = pager.Read(number);
  const IndexPage view(page.data());
  const IndexEntries entries(view);
  const auto form = entries.FormOf(0, entries.size(), kIndexCapacity);
  EXPECT_EQ(view.Prefix(), form.prefix) << "page " << number;
  counts.nodes += !view.IsLeaf();
  counts.prefixed += view.Prefix() > 0;
}

void CheckTable(Pager& pager, PageNumber number, Counts& counts) {
  const TableDefinition table = ReadTableDefinition(pager, number);
  const Rows rows = ReadRows(pager, table);
  for (const PhysicalIndex& index : table.physical) {
    std::string faults;
    IndexChecker checker(pager, {table.page, index.root, index.usage_map}, index.unique,
                         index.columns.size(), [&](PageNumber page, const std::string& text) {
                           faults += std::to_string(page) + ": " + text + "\n";
                         });
    checker.Walk([&](PageNumber page) { CheckForm(pager, page, counts); });
    const auto key_of = [&](RowId id) -> std::optional<std::vector<std::byte>> {
      const auto at = rows.find(id);
      if (at == rows.end()) return std::nullopt;
      RowView row;
      EXPECT_EQ(row.Parse(at->second), nullptr);
      Arena arena;
      std::vector<Value> values;
      for (const IndexColumn& part : index.columns) {
        values.push_back(ValueOf(table.columns[part.column], row, arena));
      }
      IndexKey key;
      key.Make(index, table.columns, values, pager.path());
      return key.HasEntry(index) ? std::optional(key.bytes) : std::nullopt;
    };
    for (const auto& [id, bytes] : rows) {
      try {
        if (const auto key = key_of(id)) checker.ExpectEntry(*key, id);
      } catch (const Error&) {
        checker.ExpectAnyEntry(id);
        ++counts.without_key;
      }
    }
    checker.Finish(key_of);
    EXPECT_EQ(faults, "") << "table at page " << number << ", root " << index.root;
    ++counts.indexes;
    counts.entries += checker.entries();
  }
}

TEST(IndexSamples, EveryEntryIsDerivedFromItsRow) {
  files::FileSystem& system = files::RealFileSystem();
  if (!system.Exists(OV_SAMPLES)) GTEST_SKIP() << "no real files in " << OV_SAMPLES;
  Counts counts;
  for (const auto& entry : system.List(OV_SAMPLES)) {
    if (entry.name.find(".mdb") == std::string::npos && entry.name != "plant.ovs") continue;
    SCOPED_TRACE(entry.name);
    const auto file = system.Open(system.Join(OV_SAMPLES, entry.name), files::OpenMode::kRead);
    Pager pager(*file, 100000);
    for (const PageNumber table : Tables(pager)) CheckTable(pager, table, counts);
  }
  EXPECT_GT(counts.entries, 2000u);
  EXPECT_LE(counts.without_key, 3u);
  EXPECT_GT(counts.nodes, 0u);
  EXPECT_GT(counts.prefixed, 0u);
}

}  // namespace
}  // namespace jet
