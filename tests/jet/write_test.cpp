// SPDX-License-Identifier: MIT
// What is written, and what is left alone.
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <set>

#include "jet/bytes.h"
#include "jet/pager.h"
#include "jet/table_definition.h"
#include "jet/usage_map_record.h"
#include "tests/jet/plant_tables.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

constexpr std::size_t kCounters = 0xE00;

// The pages that changes of one table may touch, though no owner stands in them.
std::set<PageNumber> PagesOfDefinition(Pager& pager, PageNumber definition_page) {
  const TableDefinition table = ReadTableDefinition(pager, definition_page);
  std::set<PageNumber> pages(table.pages.begin(), table.pages.end());
  std::vector<RowId> maps = {table.owned_map, table.free_map};
  for (const PhysicalIndex& index : table.physical) maps.push_back(index.usage_map);
  for (const RowId id : maps) {
    pages.insert(id.page);
    const MapRecord map(pager, id, 0);
    if (map.is_inline()) continue;
    for (std::size_t i = 0; i < map.reference_count(); ++i) pages.insert(map.reference(i));
  }
  return pages;
}

// Rows come and go in one table: of the others, of the catalog and of what nobody
// uses every byte stays.
TEST(Write, OtherTablesStayByteForByte) {
  for (const std::string& name : samples::Projects()) {
    SCOPED_TRACE(name);
    files::MemoryFileSystem system;
    const std::string path = samples::Copy(system, name);
    const std::string before = system.Get(path);
    PageNumber owner = 0;
    {
      const auto database = Database::Open(system, path);
      Table& table = database->OpenTable("TvbfAlias");
      owner = table.definition_page();
      Transaction transaction(*database);
      for (int i = 0; i < 500; ++i) {
        const std::string text = "Neu" + std::to_string(i);
        const ColumnValue values[] = {{table.FindColumn("ItemID").value(), Value::Text(text)},
                                      {table.FindColumn("VBAlias").value(), Value::Text(text)}};
        const RowId row = table.Insert(values).id;
        if (i % 2 == 0) table.Delete(row);
      }
      transaction.Commit();
      EXPECT_EQ(Faults(*database), "");
    }
    const std::string after = system.Get(path);
    ASSERT_GT(after.size(), before.size());
    const auto file = system.Open(path, files::OpenMode::kRead);
    Pager pager(*file, 100);
    const std::set<PageNumber> own = PagesOfDefinition(pager, owner);
    std::size_t changed = 0;
    for (PageNumber page = 0; page < before.size() / kPageSize; ++page) {
      const std::size_t at = page * kPageSize;
      const std::size_t size = page == 0 ? kCounters : kPageSize;
      if (before.compare(at, size, after, at, size) == 0) continue;
      ++changed;
      const bool is_map_of_free_pages = page == 1;
      EXPECT_TRUE(is_map_of_free_pages || own.contains(page) ||
                  Load32(pager.Read(page).data() + 4) == owner)
          << "page " << page;
    }
    EXPECT_GT(changed, 3u);
  }
}

TEST(Write, EveryTypeComesBack) {
  files::MemoryFileSystem system;
  TableSpec spec;
  spec.name = "Types";
  const std::pair<const char*, ColumnType> columns[] = {
      {"bool", ColumnType::kBoolean},      {"byte", ColumnType::kByte},
      {"integer", ColumnType::kInteger},   {"long", ColumnType::kLong},
      {"currency", ColumnType::kCurrency}, {"single", ColumnType::kSingle},
      {"double", ColumnType::kDouble},     {"date", ColumnType::kDate},
      {"binary", ColumnType::kBinary},     {"text", ColumnType::kText},
      {"ole", ColumnType::kOle},           {"memo", ColumnType::kMemo},
      {"guid", ColumnType::kGuid}};
  for (const auto& [name, type] : columns) spec.columns.push_back({name, type});
  spec.indexes = {{"byte", {{"byte", true}, {"date", false}}},
                  {"guid", {{"guid", true}}},
                  {"double", {{"double", true}, {"bool", false}}},
                  {"text", {{"text", false}}}};
  // Long values of each form: in the row, one record, a chain.
  std::mt19937 random(1);
  std::vector<std::byte> bytes(20000);
  for (std::byte& b : bytes) b = static_cast<std::byte>(random());
  const std::string long_text(9000, 'm');
  using Limits = std::numeric_limits<std::int64_t>;
  const auto guid = std::span(bytes).first<16>();
  const std::vector<std::vector<Value>> rows = {
      std::vector<Value>(std::size(columns), Value()),
      {Value::Boolean(true), Value::Integer(255), Value::Integer(-32768),
       Value::Integer(-2147483648LL), Value::Currency(Limits::min()), Value::Real(-0.5),
       Value::Real(1e-300), Value::Date(-1.25), Value::Binary({}), Value::Text(""),
       Value::Binary({}), Value::Text(""), Value::Guid(guid)},
      {Value::Boolean(false), Value::Integer(0), Value::Integer(32767), Value::Integer(2147483647),
       Value::Currency(Limits::max()), Value::Real(0.25), Value::Real(-1e300),
       Value::Date(45000.75), Value::Binary(std::span(bytes).first(510)), Value::Text("Größe €"),
       Value::Binary(std::span(bytes).first(4000)), Value::Text("\xF0\x9F\x98\x80"),
       Value::Guid(guid)},
      {Value::Boolean(false), Value::Integer(7), Value::Integer(0), Value::Integer(0),
       Value::Currency(-1), Value::Real(0), Value::Real(0), Value::Date(0),
       Value::Binary(std::span(bytes).first(1)), Value::Text(std::string_view("\0", 1)),
       Value::Binary(bytes), Value::Text(long_text), Value()}};
  const std::string path = "/types.mdb";
  // Each row is inserted once as it is, and once over another row.
  const auto expect = [&](Table& table, RowId id, const std::vector<Value>& values) {
    RowBuffer row;
    ASSERT_TRUE(table.Read(id, row));
    for (std::size_t i = 0; i < values.size(); ++i) {
      const Value& found = row[table.FindColumn(columns[i].first).value()];
      const bool no_bool = i == 0 && values[i].is_null();
      EXPECT_EQ(found, no_bool ? Value::Boolean(false) : values[i]) << columns[i].first;
    }
  };
  const auto given = [&](Table& table, const std::vector<Value>& values) {
    std::vector<ColumnValue> all;
    for (std::size_t i = 0; i < values.size(); ++i) {
      all.push_back({table.FindColumn(columns[i].first).value(), values[i]});
    }
    return all;
  };
  std::vector<RowId> inserted, updated;
  {
    const auto database = Database::Create(system, path);
    Table& table = database->CreateTable(spec);
    for (const auto& row : rows) {
      inserted.push_back(table.Insert(given(table, row)).id);
      updated.push_back(table.Insert(given(table, rows.front())).id);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) table.Update(updated[i], given(table, rows[i]));
  }
  const auto database = Database::Open(system, path);
  Table& table = database->OpenTable("Types");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(i);
    expect(table, inserted[i], rows[i]);
    expect(table, updated[i], rows[i]);
  }
  EXPECT_EQ(Faults(*database), "");
}

// Definitions of several pages: as many columns as there can be, with long names, and as many
// indexes, some added later.
TEST(Write, TheWidestTableThereCanBe) {
  files::MemoryFileSystem system;
  const std::string path = "/wide.mdb";
  constexpr std::size_t kFirstIndexes = 20;
  TableSpec spec;
  spec.name = "Wide";
  const auto name = [](std::size_t i) {
    return std::string(50, static_cast<char>('a' + i % 26)) + std::to_string(i);
  };
  const auto index = [&](std::size_t i) {
    return IndexSpec{"By" + name(i), {{name(i), i % 2 == 0}}, false, false, i % 3 == 0, false};
  };
  for (std::size_t i = 0; i < kMaxColumns; ++i) {
    spec.columns.push_back({name(i), i % 5 == 4 ? ColumnType::kLong : ColumnType::kText, 10});
  }
  for (std::size_t i = 0; i < kFirstIndexes; ++i) spec.indexes.push_back(index(i));
  std::vector<RowId> rows;
  {
    const auto database = Database::Create(system, path);
    Table& table = database->CreateTable(spec);
    for (int n = 0; n < 30; ++n) {
      const std::string text = "t" + std::to_string(n % 7);
      std::vector<ColumnValue> values;
      for (std::size_t i = 0; i < kMaxColumns; ++i) {
        if (i % 11 == 3) continue;
        values.push_back({i, i % 5 == 4 ? Value::Integer(n) : Value::Text(text)});
      }
      rows.push_back(table.Insert(values).id);
    }
    for (std::size_t i = kFirstIndexes; i < kMaxIndexes; ++i)
      database->CreateIndex("Wide", index(i));
    EXPECT_THROW(database->CreateIndex("Wide", index(kMaxIndexes)), Error);
    EXPECT_EQ(Faults(*database), "");
  }
  const auto database = Database::Open(system, path);
  EXPECT_EQ(Faults(*database), "");
  Table& table = database->OpenTable("Wide");
  EXPECT_EQ(table.columns().size(), kMaxColumns);
  EXPECT_EQ(table.indexes().size(), kMaxIndexes);
  RowBuffer row;
  ASSERT_TRUE(table.Read(rows[8], row));
  EXPECT_EQ(row[0].text(), "t1");
  EXPECT_EQ(row[254].integer(), 8);
  EXPECT_TRUE(row[3].is_null());
  IndexCursor cursor = table.OpenCursor(table.FindIndex("By" + name(31)).value());
  const Value key[] = {Value::Text("T3")};
  std::size_t found = 0;
  for (bool more = cursor.Seek(key); more; more = cursor.NextEqual()) ++found;
  EXPECT_EQ(found, 4u);
  for (const RowId id : rows) table.Delete(id);
  EXPECT_EQ(Faults(*database), "");
}

}  // namespace
}  // namespace jet
