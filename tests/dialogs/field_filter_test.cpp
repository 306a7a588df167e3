// SPDX-License-Identifier: MIT
#include "dialogs/field_filter.h"

#include <gtest/gtest.h>

namespace dialogs {
namespace {

struct Case {
  const char* what;
  const char* text;
  std::int32_t flags;
  std::int32_t max_length;
  const char* kept;
  std::int32_t rejected;
};

TEST(FieldFilter, KeepsWhatTheKindTakes) {
  const Case cases[] = {
      {"kind 0 takes nothing", "a1_", 0, 0, "", 3},
      {"kind 0, nothing to reject", "", 0, 0, "", 0},
      {"letters: blank, digit and point go", "Tank 1.Level", 1, 0, "TankLevel", 3},
      {"neighbours of the ranges", "@AZ[`az{/09:", 1, 0, "AZaz", 8},
      {"digits with the letters", "@AZ[`az{/09:", 3, 0, "AZaz09", 6},
      {"name characters", "a(b)_1", 3, 0, "a(b)_1", 0},
      {"no digits", "1a 2,Ä", 5, 0, "a,Ä", 3},
      {"blanks allowed survive", "1a 2 ", 5 + 8, 0, "a  ", 2},
      {"no letters", "250 ms", 6, 0, "250", 3},
      {"blanks allowed without letters", "2 x 5", 6 + 8, 0, "2  5", 1},
      {"blanks allowed, but not by the kind", "a b", 1 + 8, 0, "ab", 1},
      {"blanks allowed, but not by kind 3", "a b1", 3 + 8, 0, "ab1", 1},
      {"a letter outside ASCII is one character", "Größe", 1, 0, "Gre", 2},
      {"and no letter to the kind without letters", "5µ\xE2\x82\xAC", 6, 0, "5µ€", 0},
      {"kinds without a walk", "a 1-Ä", 2, 0, "a1-Ä", 1},
      {"kinds without a walk", "a 1-Ä", 4 + 8, 0, "a 1-Ä", 0},
      {"kinds without a walk", "a 1-Ä", 7 + 8, 0, "a 1-Ä", 0},
      {"cut at the length, counted in characters", "ÄÖÜäöü", 2, 4, "ÄÖÜä", 2},
      {"only what is kept counts for the length", "a1b2c3", 1, 2, "ab", 4},
  };
  for (const Case& c : cases) {
    const FilteredText result = FilterField(c.text, c.flags, c.max_length);
    EXPECT_EQ(result.text, c.kept) << c.what << ": " << c.text;
    EXPECT_EQ(result.rejected, c.rejected) << c.what << ": " << c.text;
  }
}

}  // namespace
}  // namespace dialogs
