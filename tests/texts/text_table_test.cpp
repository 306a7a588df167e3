// SPDX-License-Identifier: MIT
#include "texts/text_table.h"
#include "messages/text_number.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

#include "texts/rows.h"

namespace texts {
namespace {

using messages::TextNumber;

TEST(Language, OnlyAmericanEnglishIsEnglish) {
  for (std::int32_t lcid : {1031, 2057, 1036, 0, -1, 9}) {
    EXPECT_EQ(LanguageOfLcid(lcid), Language::kGerman) << lcid;
  }
  EXPECT_EQ(LanguageOfLcid(1033), Language::kEnglish);
}

TEST(TextTable, LooksUpByNumberAndLanguage) {
  struct Case {
    std::int32_t number;
    const char* german;
    const char* english;
  };
  const Case cases[] = {
      {111, "Übergabewert", "Input Value"},
      {134, "&Löschen", "Delete"},
      {153, "&Löschen", "&Delete"},
      {181, "  Formeldefinition: ", "  Formula Definition: "},
      {190, "Sollen die selektierten VB-Aliase wirklich gelöscht werden ?",
       "You really want to delete the selected Alias?"},
      {192, "Soll die selektierte Formel wirklich gelöscht werden ?", ""},
      {407, "Resource 407 not found", "Resource 407 not found"},
      {551, "Zurückschreiben Argumentedialog fehlgeschlagen",
       "Data Storage  of Arguments Dialog failed"},
      {600, "'********************************************************",
       "'********************************************************"},
      {601, "'OrvanaStudio Formel \"<Name>\"\r\n", "'OrvanaStudio Formula '<Name>'\r\n"},
      {703, "&Statuszeile anzeigen", "Show &Status Bar"},
      {100192, "", "You really want to delete the selected Formula?"},
      {100600, "'********************************************************",
       "Resource 100600 not found"},
      {-1, "Resource -1 not found", "Resource -1 not found"},
      {2147483647, "Resource 2147483647 not found", "Resource 2147483647 not found"},
  };
  const TextTable german(Language::kGerman);
  const TextTable english(Language::kEnglish);
  for (const Case& c : cases) {
    EXPECT_EQ(german.Text(TextNumber{c.number}), c.german) << c.number;
    EXPECT_EQ(english.Text(TextNumber{c.number}), c.english) << c.number;
  }
}

TEST(TextTable, ReplacesPlaceholdersOnce) {
  const TextTable english(Language::kEnglish);
  EXPECT_EQ(english.Text(TextNumber{601}, {{"<Name>", "<Name><Name>"}}),
            "'OrvanaStudio Formula '<Name><Name>'\r\n");
  EXPECT_EQ(english.Text(TextNumber{10}, {{"", "x"}, {"<Name>", "y"}}), "OK");
}

std::multiset<std::string> Placeholders(const std::string& text) {
  static const std::regex pattern("<[A-Za-z]+>");
  return {std::sregex_token_iterator(text.begin(), text.end(), pattern), {}};
}

bool HasMnemonic(std::string_view text) {
  auto at = text.find('&');
  return at != std::string_view::npos && at + 1 < text.size() && text[at + 1] != ' ' &&
         text[at + 1] != '&';
}

TEST(Rows, AreCompleteInBothLanguages) {
  std::set<TextNumber> seen;
  for (const Area& area : Areas()) {
    for (const Row& row : area.rows) {
      SCOPED_TRACE(std::string(area.name) + " " + std::to_string(ToInt(row.number)));
      EXPECT_TRUE(seen.insert(row.number).second) << "number used twice";
      EXPECT_GE(row.number, area.first);
      EXPECT_LE(row.number, area.last);
      ASSERT_TRUE(row.german && *row.german) << "no German text";
      if (row.number == TextNumber{192}) continue;         // its second slot is left out
      if (area.name.starts_with("messages of")) continue;  // the layer has the English one
      ASSERT_TRUE(row.english && *row.english) << "no English text";
      EXPECT_EQ(Placeholders(row.german), Placeholders(row.english));
      if (row.number >= TextNumber{1000}) {
        EXPECT_EQ(HasMnemonic(row.german), HasMnemonic(row.english)) << "mnemonic in one language";
      }
    }
  }
  EXPECT_GE(seen.size(), 81u);  // the shared texts alone
}

}  // namespace
}  // namespace texts
