// SPDX-License-Identifier: MIT
#include "cli/row_writer.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace cli;

namespace {

std::string Written(RowFormat format, const std::vector<std::vector<Cell>>& rows) {
  std::ostringstream out;
  RowWriter writer(out, format, {"ID", "Name", "On"});
  for (const auto& row : rows) writer.Write(row);
  writer.Finish();
  return out.str();
}

}  // namespace

TEST(RowWriter, SaysTheSameInEveryFormat) {
  const std::vector<std::vector<Cell>> rows = {
      {Cell(std::int64_t{1}), Cell("Füll\tstand\n\"1\"\\"), Cell(true)},
      {Cell(std::int64_t{20}), Cell(std::string(1, '\0')), Cell(false)},
      {Cell(), Cell(), Cell()}};
  EXPECT_EQ(Written(RowFormat::kPlain, rows),
            "1\tFüll\\tstand\\n\"1\"\\\ttrue\n20\t\tfalse\n\t\t\n");
  EXPECT_EQ(Written(RowFormat::kJson, rows),
            "[\n {\"ID\": 1, \"Name\": \"Füll\\tstand\\n\\\"1\\\"\\\\\", \"On\": true},\n"
            " {\"ID\": 20, \"Name\": \"\", \"On\": false},\n"
            " {\"ID\": null, \"Name\": null, \"On\": null}\n]\n");
  EXPECT_EQ(Written(RowFormat::kTerminal, {{Cell(std::int64_t{1}), Cell("Füll"), Cell(true)}}),
            "ID  Name  On\n1   Füll  true\n");
  EXPECT_EQ(Written(RowFormat::kJson, {}), "[]\n");
  EXPECT_EQ(Written(RowFormat::kPlain, {}), "");
  EXPECT_EQ(JsonString("bad \xFF byte \x01"), "\"bad \xEF\xBF\xBD byte \\u0001\"");
}
