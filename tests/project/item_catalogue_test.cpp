// SPDX-License-Identifier: MIT
#include "project/item_catalogue.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using project::ItemCatalogue;

namespace {

std::string Dump(const ItemCatalogue& catalogue) {
  std::string text;
  for (std::size_t i = 0; i < catalogue.size(); ++i) {
    const auto item = catalogue.At(i);
    text += std::string(item.name) + "|" + std::to_string(item.type) + "|" +
            std::string(item.comment) + "\n";
  }
  for (const auto& problem : catalogue.problems()) {
    text += "line " + std::to_string(problem.line) + " kind " +
            std::to_string(static_cast<int>(problem.kind)) + "\n";
  }
  return text;
}

}  // namespace

TEST(ItemCatalogue, ReadsWhatPeopleWriteAndSkipsWhatItCannot) {
  struct Case {
    const char* file;
    const char* expected;
  };
  const Case cases[] = {
      {"item,type,comment\r\nTank1.Level,5,Level in m\r\nTank1.Pump,Boolean,\r\n",
       "Tank1.Level|5|Level in m\nTank1.Pump|11|\n"},
      {"\xEF\xBB\xBFItem,Type,Comment\nFüllstand,double\n", "Füllstand|5|\n"},
      {"F\xFCllstand,3,gro\xDF\n", "Füllstand|3|groß\n"},
      {"\"a,b\"\"c\",8,\"x, y\"\nlast", "a,b\"c|8|x, y\nlast|12|\n"},
      // As a spreadsheet writes it where the comma is decimal, and with tabs.
      {"Item;Typ;Kommentar\r\nF\xFCll.1;Double;0,5 bis 1,5\r\n\"a;b\";Long;\"x; y\"\r\n",
       "Füll.1|5|0,5 bis 1,5\na;b|3|x; y\n"},
      {"\"a,b\"\t8\tx, y; z\n", "a,b|8|x, y; z\n"},
      {" spaced , LONG , kept \n\n  \n", "spaced|3|kept\n"},
      {"ok,2,\n,5,no name\nbad,Nonsense,\nbad,-1,\nopen,\"2\n",
       "ok|2|\nline 2 kind 0\nline 3 kind 1\nline 4 kind 1\nline 5 kind 2\n"},
      {"", ""},
      {"item,type,comment\n", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(Dump(ItemCatalogue::Parse(c.file)), c.expected) << c.file;
}

TEST(ItemCatalogue, FindsByNameAndPartWithoutRegardToCase) {
  auto catalogue = ItemCatalogue::Parse(
      "Zone.ÄRGER,5,\nTank1.Level,3,\nTank2.Level,4,\ntank1.level,8,\nUntyped\n");
  EXPECT_EQ(catalogue.Find("TANK1.LEVEL"), 1u);  // the first of two
  EXPECT_EQ(catalogue.TypeOf("zone.ärger"), 5);
  EXPECT_EQ(catalogue.TypeOf("nothing"), std::nullopt);
  EXPECT_EQ(catalogue.TypeOf("Untyped"), std::nullopt);
  EXPECT_EQ(catalogue.Search("LEVEL", 2), (std::vector<std::uint32_t>{1, 2}));
  EXPECT_EQ(catalogue.Search("", 2), (std::vector<std::uint32_t>{0, 1}));
}

TEST(ItemCatalogue, SearchAgreesWithLookingAtEachName) {
  std::mt19937 random(3);
  std::string file;
  std::vector<std::string> names;
  for (int i = 0; i < 500; ++i) {
    std::string name;
    for (unsigned n = 1 + random() % 6; n > 0; --n) name += static_cast<char>('a' + random() % 3);
    names.push_back(name);
    file += name + ",5,aaa\n";
  }
  auto catalogue = ItemCatalogue::Parse(file);
  for (const char* part : {"a", "ab", "ccc", "abcabc", "absent"}) {
    std::vector<std::uint32_t> expected;
    for (std::uint32_t i = 0; i < names.size(); ++i) {
      if (names[i].find(part) != std::string::npos) expected.push_back(i);
    }
    EXPECT_EQ(catalogue.Search(part, 1000), expected) << part;
  }
}
