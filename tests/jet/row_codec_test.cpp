// SPDX-License-Identifier: MIT
#include "jet/row_codec.h"

#include <gtest/gtest.h>

#include "jet/data_page.h"
#include "jet/database.h"
#include "jet/row_reader.h"
#include "jet/session.h"
#include "jet/table_definition.h"
#include "jet/usage_map.h"
#include "jet/value_codec.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

// Rows of the real files, taken apart into values and built again.
class Rebuild {
 public:
  void File(const std::string& name) {
    files::MemoryFileSystem system;
    const std::string path = samples::Copy(system, name);
    const auto file = system.Open(path, files::OpenMode::kRead);
    Pager pager(*file, 64);
    std::vector<TableInfo> tables;
    {
      OpenOptions options;
      options.read_only = true;
      tables = Database::Open(system, path, options)->Tables(true);
    }
    for (const TableInfo& info : tables) {
      SCOPED_TRACE(name + ", " + info.name);
      Table(pager, ReadTableDefinition(pager, info.definition_page));
    }
  }

  std::size_t rows = 0;
  std::size_t identical = 0;

 private:
  void Table(Pager& pager, const TableDefinition& definition) {
    RowReader reader(pager, definition);
    RowWriter writer(definition);
    const UsageMap owned(pager, definition.owned_map);
    for (auto number = owned.Next(0); number; number = owned.Next(*number + 1)) {
      const PageRef page = pager.Read(*number);
      for (std::size_t i = 0; i < SlotCount(page.data()); ++i) {
        if ((GetSlot(page.data(), i).state & kSlotTarget) != 0) continue;
        SCOPED_TRACE("page " + std::to_string(*number) + ", row " + std::to_string(i));
        const StoredRow stored = reader.At(page, i);
        Row(definition, reader, writer, {*number, static_cast<std::uint8_t>(i)}, stored);
      }
    }
  }

  void Row(const TableDefinition& definition, RowReader& reader, RowWriter& writer, RowId id,
           const StoredRow& stored) {
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < definition.columns.size(); ++i) columns.push_back(i);
    RowBuffer row;
    reader.Decode(id, stored, columns, row);
    RowView view;
    view.Parse(stored.bytes);
    std::vector<std::vector<std::byte>> bytes(columns.size());
    std::vector<Cell> cells(columns.size());
    for (const std::size_t i : columns) {
      const Column& column = definition.columns[i];
      cells[i].has_value = view.HasValue(column);
      if (row[i].is_null() || column.type == ColumnType::kBoolean) continue;
      if (column.IsLongValue()) {
        cells[i].bytes = *view.Bytes(column);
        continue;
      }
      ASSERT_TRUE(EncodeValue(column, row[i], bytes[i]).empty());
      cells[i].bytes = bytes[i];
    }
    ++rows;
    const auto equal = [&](std::span<const std::byte> built) {
      return std::equal(built.begin(), built.end(), stored.bytes.begin(), stored.bytes.end());
    };
    if (equal(writer.Write(cells))) {
      ++identical;
      return;
    }
    // What is left: old bytes of Null or deleted fixed columns, slack, data of deleted columns,
    // and rows that are older than the table's last column.
    const auto fixed = view.FixedArea(FixedAreaSize(definition));
    const bool deleted = definition.max_columns != definition.columns.size();
    const bool older = view.column_count() != definition.max_columns;
    EXPECT_TRUE(deleted || older || equal(writer.Write(cells, fixed, stored.bytes.size())));
  }
};

TEST(RowCodec, RebuildsEveryRowOfTheRealFiles) {
  OV_NEED_SAMPLES();
  Rebuild rebuild;
  for (const std::string& name : samples::Names()) rebuild.File(name);
  EXPECT_GT(rebuild.rows, 1800u);
  // The rest has been looked at: each difference is one of the above.
  EXPECT_GE(rebuild.identical + 100, rebuild.rows);
}

}  // namespace
}  // namespace jet
