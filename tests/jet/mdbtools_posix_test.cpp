// SPDX-License-Identifier: MIT
// Another reader finds the same tables and rows in what we wrote.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>
#include <sstream>

#include "files/file_system.h"
#include "jet/database.h"
#include "tests/files/temporary_folder.h"
#include "tests/jet/plant_tables.h"

namespace jet {
namespace {

std::string Output(const std::string& command) {
  std::string text;
  if (FILE* pipe = ::popen(command.c_str(), "r")) {
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
      text.append(buffer, n);
    }
    ::pclose(pipe);
  }
  return text;
}

std::multiset<std::string> Lines(const std::string& text) {
  std::multiset<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.insert(line);
  return lines;
}

// Enough rows that maps grow, rows move and indexes have several levels. The reader visits moved
// rows in another order.
TEST(Mdbtools, ReadTheSame) {
  if (std::system("mdb-ver -M >/dev/null 2>&1") != 0) GTEST_SKIP() << "mdbtools is not installed";
  TemporaryFolder folder;
  const std::string path = folder / "plant.mdb";
  std::string expected = "ID,Item,Note\n";
  {
    const auto database = Database::Create(files::RealFileSystem(), path);
    Table& table = database->CreateTable(ItemsSpec());
    std::mt19937 random(5);
    Transaction transaction(*database);
    std::vector<InsertResult> rows;
    rows.reserve(2000);
    for (int i = 0; i < 2000; ++i) {
      rows.push_back(AddItem(table, "Tank" + std::to_string(i) + std::string(random() % 100, 'a'),
                             std::string(1 + random() % 3000, 'm')));
    }
    for (std::size_t i = 0; i < rows.size(); i += 2) {
      const std::string text = "Ventil" + std::to_string(i) + std::string(random() % 200, 'b');
      const ColumnValue values[] = {{1, Value::Text(text)}};
      table.Update(rows[i].id, values);
    }
    for (std::size_t i = 0; i < rows.size(); i += 5) table.Delete(rows[i].id);
    transaction.Commit();
    EXPECT_EQ(Faults(*database), "");
    EXPECT_GT(database->Header().page_count, 600u);  // the first map of free pages holds 512
    RowBuffer row;
    for (Scan scan = table.OpenScan(); scan.Next(row);) {
      expected += std::to_string(row[0].integer()) + ",\"" + std::string(row[1].text()) + "\",\"" +
                  std::string(row[2].text()) + "\"\n";
    }
  }
  EXPECT_EQ(Output("mdb-tables -1 " + path), "Items\n");
  EXPECT_EQ(Output("mdb-count " + path + " Items"), "1600\n");
  EXPECT_TRUE(Lines(Output("mdb-export " + path + " Items")) == Lines(expected));
}

}  // namespace
}  // namespace jet
