// SPDX-License-Identifier: MIT
#include "editor/column_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace editor {
namespace {

using testing::ElementsAre;

const std::vector<int> kArgumentSplits = {0, 1, 1};
const std::vector<int> kAliasSplits = {0, 1};

TEST(ColumnOrder, RanksInsideTheSplit) {
  struct Case {
    const char* text;
    std::vector<int> order;
  };
  const Case cases[] = {
      {"", {0, 1, 2}},           {",2,3,4", {0, 1, 2}},   {",0,1,2", {0, 1, 2}},
      {",0,2,1", {0, 2, 1}},     {"9,0,2,1", {0, 2, 1}},  {",2,1,0", {0, 2, 1}},
      {",0,2", {0, 1, 2}},       {",0,2,x", {0, 2, 1}},   {",,,", {0, 1, 2}},
      {",0,1,1,7,7", {0, 1, 2}}, {",1,-1,-2", {0, 2, 1}}, {",99999999999,0,0", {0, 1, 2}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ReadColumnOrder(c.text, kArgumentSplits), c.order) << c.text;
  }
}

// A restart reads what the exit before wrote.
std::string AfterRestarts(std::string text, const std::vector<int>& splits, int restarts) {
  for (int i = 0; i < restarts; ++i) text = WriteColumnOrder(ReadColumnOrder(text, splits));
  return text;
}

TEST(ColumnOrder, SurvivesRestarts) {
  EXPECT_EQ(AfterRestarts(",2,3,4", kArgumentSplits, 3), ",0,1,2");
  EXPECT_EQ(AfterRestarts(",2,3", kAliasSplits, 3), ",0,1");
  EXPECT_EQ(AfterRestarts(",0,2,1", kArgumentSplits, 3), ",0,2,1");
  EXPECT_THAT(ReadColumnOrder(AfterRestarts(",0,2,1", kArgumentSplits, 3), kArgumentSplits),
              ElementsAre(0, 2, 1));
}

}  // namespace
}  // namespace editor
