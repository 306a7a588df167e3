// SPDX-License-Identifier: MIT
#include "jet/text_key.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/hex.h"

namespace jet {
namespace {

std::string Key(std::u16string_view text, SortOrder order = SortOrder::kAscending) {
  std::vector<std::byte> key;
  EXPECT_EQ(AppendTextKey(text, order, key), std::nullopt);
  return testing_support::Hex(key);
}

TEST(TextKey, MatchesKeysOfRealIndexes) {
  const struct {
    std::u16string_view text;
    const char* key;
  } kRows[] = {
      {u"another row", "4A62646D575169076964730100"},
      {u"only ascii chars", "64625E76074A6B4D5959074D574A696B0100"},
      {u"ümlaut", "6F605E4A6F6D011300"},
      {u"ääkkösiä", "4A4A5C5C646B594A01131302021302021300"},
      {u"3L9\x1D"
       u"52\x02"
       u"_AB(¥\x05"
       u"!!V",
       "3C5E48403A2B034A4C1434A9090971010101018013061A801B0604802F060700"},
      {u"", "0100"},
      {u"Tank-1", "6D4A625C38010101018017068200"},
      {u"O'Ring", "646959625501010101800B068000"},
      {u"Straße", "6B6D694A6B6B510100"},
      {u"Level_1", "5E5171515E2B03380100"},
      {u"€/t", "35A11E6D0100"},
      {u"Max–Min", "604A75605962010101018013068900"},
      {u"ä-ö", "4A64011313010101800B068200"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Key(row.text), row.key);
  }
  EXPECT_EQ(Key(u"A", SortOrder::kDescending), "B5FEFF00");
}

TEST(TextKey, HoldsEqualWhatTheDatabaseHoldsEqual) {
  const struct {
    std::u16string_view a, b;
    bool equal;
  } kRows[] = {
      {u"STRASSE", u"Straße", true}, {u"æther", u"AETHER", true},
      {u"Œuvre", u"oeuvre", true},   {u"Þing", u"thing", true},
      {u"Tank  ", u"tank", true},    {std::u16string_view(u"\0", 1), u"", true},
      {u" Tank", u"Tank", false},    {u"Käse", u"Kase", false},
      {u"co-op", u"coop", false},    {u"O'Ring", u"ORing", false},
      {u"a\tb", u"ab", false},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Key(row.a) == Key(row.b), row.equal) << Key(row.a) << " and " << Key(row.b);
  }
}

TEST(TextKey, OnlyTheFirst255UnitsCount) {
  const std::u16string longest(255, u'a');
  EXPECT_EQ(Key(longest), Key(longest + u"b"));
  EXPECT_NE(Key(longest), Key(longest.substr(1) + u"b"));
  // Trailing blanks are dropped after the text is cut.
  EXPECT_EQ(Key(std::u16string(250, u'a') + u"          b"), Key(std::u16string(250, u'a')));
  EXPECT_EQ(Key(longest + u"\u4E2D"), Key(longest));
}

TEST(TextKey, NamesTheCharacterThatHasNoKey) {
  const struct {
    std::u16string_view text;
    char32_t character;
  } kRows[] = {{u"a\u4E2Db", 0x4E2D},
               {u"\u0100", 0x100},
               {u"x\U0001F600", 0x1F600},
               {u"\xD83D", 0xD83D},
               {u"\xFEFF", 0xFEFF}};
  for (const auto& row : kRows) {
    std::vector<std::byte> key(3);
    EXPECT_EQ(AppendTextKey(row.text, SortOrder::kAscending, key), row.character);
    EXPECT_EQ(key.size(), 3u);
  }
}

TEST(TextKey, DescendingReversesTheOrder) {
  const std::u16string_view kSorted[] = {u"", u"a", u"ab", u"aä", u"a-b", u"b"};
  for (const auto a : kSorted) {
    for (const auto b : kSorted) {
      if (Key(a) == Key(b)) continue;
      EXPECT_EQ(Key(a) < Key(b), Key(a, SortOrder::kDescending) > Key(b, SortOrder::kDescending));
    }
  }
}

}  // namespace
}  // namespace jet
