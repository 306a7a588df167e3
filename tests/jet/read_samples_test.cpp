// SPDX-License-Identifier: MIT
// Reading the real Access files through the public interface.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "jet/database.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

OpenOptions ReadOnly() {
  OpenOptions options;
  options.read_only = true;
  return options;
}

std::unique_ptr<Database> OpenSample(std::string_view name) {
  return Database::Open(files::RealFileSystem(), samples::Path(name), ReadOnly());
}

// Every row of every table can be read, their number is the definition's, and each row found by
// the scan is found by its identity with the same values. So can the properties and relations.
TEST(ReadSamples, EveryRowOfEveryTable) {
  OV_NEED_SAMPLES();
  std::size_t rows = 0, tables = 0, properties = 0;
  for (const std::string& name : samples::Names()) {
    SCOPED_TRACE(name);
    const auto database = OpenSample(name);
    EXPECT_NO_THROW(database->Relations());
    for (const TableInfo& info : database->Tables(true)) {
      SCOPED_TRACE(info.name);
      EXPECT_NO_THROW(properties += database->Properties(info.name).size());
      Table& table = database->OpenTable(info.name);
      RowBuffer row, again;
      std::uint32_t count = 0;
      for (Scan scan = table.OpenScan(); scan.Next(row); ++count) {
        ASSERT_TRUE(table.Read(row.id(), again));
        for (std::size_t i = 0; i < row.size(); ++i) ASSERT_EQ(row[i], again[i]);
      }
      if (!info.system) {
        EXPECT_EQ(count, table.RowCount());
      }
      rows += count;
      ++tables;
    }
  }
  EXPECT_GT(tables, 80u);
  EXPECT_GT(rows, 1800u);
  EXPECT_GT(properties, 100u);
}

// Long values of several records.
TEST(ReadSamples, LongMemos) {
  OV_NEED_SAMPLES();
  const auto database = OpenSample("plant.ovs");
  Table& notes = database->OpenTable("shiftnotes");
  RowBuffer row;
  const auto memo = std::find_if(notes.columns().begin(), notes.columns().end(),
                                 [](const Column& c) { return c.type == ColumnType::kMemo; });
  ASSERT_NE(memo, notes.columns().end());
  const auto at = static_cast<std::size_t>(memo - notes.columns().begin());
  std::size_t longest = 0;
  for (Scan scan = notes.OpenScan(); scan.Next(row);) {
    if (!row[at].is_null()) longest = std::max(longest, row[at].text().size());
  }
  EXPECT_GT(longest, 4076u / 2);
}

// As another reader of such files lists them.
TEST(ReadSamples, Properties) {
  OV_NEED_SAMPLES();
  std::map<std::string, std::map<std::string, std::string>> found;  // texts by column and name
  for (const Property& property :
       OpenSample("testIndexPropertiesV2000.mdb")->Properties("TableIgnoreNulls2")) {
    found[property.column][property.name] = property.text;
  }
  const auto names = [&](const char* column) {
    std::string text;
    for (const auto& [name, value] : found[column]) text += (text.empty() ? "" : " ") + name;
    return text;
  };
  EXPECT_EQ(names(""), "DefaultView GUID NameMap OrderByOn Orientation");
  EXPECT_EQ(names("row"),
            "AllowZeroLength ColumnHidden ColumnOrder ColumnWidth DisplayControl GUID "
            "IMEMode IMESentenceMode Required UnicodeCompression");
  EXPECT_EQ(found[""]["NameMap"].size(), 2u * 274);  // binary, in hex
  EXPECT_EQ(found["data2"]["DefaultValue"], "0");
  EXPECT_EQ(found["data2"]["DecimalPlaces"], "255");
  EXPECT_EQ(found["data1"]["ColumnWidth"], "-1");
  EXPECT_EQ(found["data1"]["DisplayControl"], "109");
}

}  // namespace
}  // namespace jet
