// SPDX-License-Identifier: MIT
#include "desktop/name_index.h"

#include <gtest/gtest.h>

namespace desktop {
namespace {

using Names = std::vector<std::string>;

TEST(NameIndex, FindsAnyPartTheBestFirst) {
  NameIndex index;
  index.Add({NameIndex::Kind::kFormula, 1, "FillTank", "PumpServer.CPump – upper level"});
  index.Add({NameIndex::Kind::kAlias, 1, "Tank1_Level", "Tank1.Level"});
  index.Add({NameIndex::Kind::kAlias, 2, "Level", "Tank2.Level"});
  index.Add({NameIndex::Kind::kAlias, 3, "LevelÖl", "Tank3.Ölstand"});
  struct Case {
    const char* text;
    Names found;
  };
  const Case cases[] = {
      {"level", {"Level", "LevelÖl", "Tank1_Level", "FillTank"}},
      {"tank1", {"Tank1_Level"}},
      {"ÖL", {"LevelÖl"}},
      {"level tank2", {"Level"}},
      {"tank level", {"Tank1_Level", "FillTank", "Level", "LevelÖl"}},
      {"level nothing", {}},
      {"  ", {}},
      {"level\nTank2", {"Level"}},
  };
  for (const Case& c : cases) {
    Names found;
    for (const std::size_t place : index.Find(c.text, 10)) found.push_back(index.At(place).name);
    EXPECT_EQ(found, c.found) << c.text;
  }
  EXPECT_EQ(index.Find("level", 2).size(), 2u);
}

}  // namespace
}  // namespace desktop
