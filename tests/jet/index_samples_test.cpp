// SPDX-License-Identifier: MIT
// The pages of indexes, as Access and our engine wrote them. Their entries are compared with the
// rows by Verify, which finds nothing in these files.
#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/index_check.h"
#include "jet/index_entries.h"
#include "jet/pager.h"
#include "jet/table_definition.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

// Each page is in the one form that its entries have.
TEST(IndexSamples, EveryPageHasTheFormOfItsEntries) {
  std::size_t nodes = 0, prefixed = 0;
  for (const std::string& name : samples::All()) {
    files::MemoryFileSystem system;
    const std::string path = samples::Copy(system, name);
    OpenOptions options;
    options.read_only = true;
    const auto database = Database::Open(system, path, options);
    const auto file = system.Open(path, files::OpenMode::kRead);
    Pager pager(*file, 1000);
    for (const TableInfo& info : database->Tables(true)) {
      const TableDefinition table = ReadTableDefinition(pager, info.definition_page);
      for (const PhysicalIndex& index : table.physical) {
        IndexChecker checker(pager, {table.page, index.root, index.usage_map}, index.unique,
                             index.columns.size(), [](PageNumber, const messages::Message&) {});
        checker.Walk([&](PageNumber number) {
          const PageRef page = pager.Read(number);
          const IndexPage view(page.data());
          const IndexEntries entries(view);
          EXPECT_EQ(view.Prefix(), entries.FormOf(0, entries.size(), kIndexCapacity).prefix)
              << name << ", " << info.name << ", page " << number;
          nodes += !view.IsLeaf();
          prefixed += view.Prefix() > 0;
        });
      }
    }
  }
  EXPECT_GT(nodes, 0u);
  EXPECT_GT(prefixed, 0u);
}

}  // namespace
}  // namespace jet
