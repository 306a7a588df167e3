// SPDX-License-Identifier: MIT
#include "project/ini_document.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace project {
namespace {

std::string Utf16(std::string_view text) {
  std::string bytes = "\xFF\xFE";
  for (char c : text) (bytes += c) += '\0';
  return bytes;
}

TEST(IniDocument, ReadsAsWindowsDoes) {
  IniDocument ini(
      "Lost=0\r\n"
      "[Formula.frmtabGrid]\r\n"
      "  tdbP.Splits(0).Columns(\"AliasID\").Width = 3000,189 \r\n"
      "; Name=comment\r\n"
      "Name=\"  quoted \"\n"
      "Half='\r\n"
      "Empty=\r\n"
      "Equals=a=b\r\n"
      "Umlaut=\xD6l\r\n"
      "no equals sign\r\n"
      "=no name\r\n"
      "[broken\r\n"
      "Name=second\r\n"
      "[Other] trailing\r\n"
      "Name=other\r\n"
      "[FORMULA.FRMTABGRID]\r\n"
      "Late=1");
  struct Case {
    const char* section;
    const char* entry;
    std::optional<std::string> value;
  };
  const Case cases[] = {
      {"formula.FRMTABGRID", "TDBP.splits(0).Columns(\"aliasid\").Width", "3000,189"},
      {"Formula.frmtabGrid", "Name", "  quoted "},
      {"Formula.frmtabGrid", "Half", "'"},
      {"Formula.frmtabGrid", "Empty", ""},
      {"Formula.frmtabGrid", "Equals", "a=b"},
      {"Formula.frmtabGrid", "Umlaut", "Öl"},
      {"Formula.frmtabGrid", "Late", std::nullopt},
      {"Formula.frmtabGrid", "", std::nullopt},
      {"Other", "Name", "other"},
      {"", "Lost", std::nullopt},
      {"Nowhere", "Name", std::nullopt},
  };
  for (const Case& c : cases) EXPECT_EQ(ini.Get(c.section, c.entry), c.value) << c.entry;
}

TEST(IniDocument, ChangesNoLineButTheOneThatIsSet) {
  struct Case {
    const char* name;
    std::string before, after;
  };
  const Case cases[] = {
      {"new file", "", "[S]\r\nK=v\r\n"},
      {"value differs", "; c\r\n[s]\r\n k = old\r\n;x\r\n[T]\r\nK=1",
       "; c\r\n[s]\r\nK=v\r\n;x\r\n[T]\r\nK=1"},
      {"value stands", "[s]\n  k =  'v'", "[s]\n  k =  'v'"},
      {"new entry before blanks", "[S]\nA=1\n\n\n[T]\n", "[S]\nA=1\nK=v\n\n\n[T]\n"},
      {"empty section", "[S]\r\n[T]\r\n", "[S]\r\nK=v\r\n[T]\r\n"},
      {"no line end", "[T]\r\nK=1", "[T]\r\nK=1\r\n[S]\r\nK=v\r\n"},
      {"last line is set", "[S]\nK=1", "[S]\nK=v"},
      {"half-written header", "[T]\r\nA=1\r\n[S", "[T]\r\nA=1\r\n[S\r\n[S]\r\nK=v\r\n"},
      {"any bytes", std::string("\x81\x00\xFF=\x8D\n[S]\r\r\n\x90", 13),
       std::string("\x81\x00\xFF=\x8D\n[S]\r\r\n\x90", 13) + "\nK=v\n"},
      {"repeated entry", "[S]\r\nK=1\r\nK=2\r\n", "[S]\r\nK=v\r\nK=2\r\n"},
      {"UTF-16", Utf16("[S]\r\nK=1\r\n;\r\n"), Utf16("[S]\r\nK=v\r\n;\r\n")},
      {"UTF-16 cut off", Utf16("[S]\r\nA=1\r\n") + "\x42", Utf16("[S]\r\nA=1\r\nK=v\r\n") + "\x42"},
      {"UTF-16 cut off before", Utf16("[T]\r\n") + "\x42", Utf16("[T]\r\nB\r\n[S]\r\nK=v\r\n")},
      {"UTF-16 mark only", Utf16(""), Utf16("[S]\r\nK=v\r\n")},
      {"UTF-8", "\xEF\xBB\xBF[S]\nK=\xC3\n", "\xEF\xBB\xBF[S]\nK=v\n"},
  };
  for (const Case& c : cases) {
    IniDocument ini(c.before);
    EXPECT_EQ(ini.Bytes(), c.before) << c.name;
    ini.Set("S", "K", "v");
    EXPECT_EQ(ini.Bytes(), c.after) << c.name;
    EXPECT_EQ(IniDocument(ini.Bytes()).Get("S", "K"), "v") << c.name;
  }
}

TEST(IniDocument, BringsBackEveryValue) {
  const std::string values[] = {"",     "a=b",   " blanks ", "\"quoted\"", "'x'",     "'",
                                "Öl €", "; not", "[no]",     "日本 😀",     "\xC2\x81"};
  for (const char* start :
       {"", "\xFF\xFE", "\xFE\xFF", "\xEF\xBB\xBF", "; \xC4rger\r\n[T]\r\nA=\xE4"}) {
    for (const std::string& value : values) {
      IniDocument ini(start);
      ini.Set("Section ß", "K", "first");
      ini.Set("Section ß", "K", value);
      IniDocument again(ini.Bytes());
      EXPECT_EQ(again.Get("section ß", "k"), value) << value;
      if (*start == ';') {
        EXPECT_EQ(again.Get("T", "A"), "ä") << value;
      }
    }
  }
  IniDocument ini;
  ini.Set("S", "K", "two\r\nK2=lines");
  EXPECT_EQ(IniDocument(ini.Bytes()).Get("S", "K"), "two  K2=lines");
  EXPECT_EQ(IniDocument(ini.Bytes()).Get("S", "K2"), std::nullopt);
}

// Foreign lines survive any sequence of changes to our section, in order and byte for byte.
TEST(IniDocument, KeepsForeignLinesOverRandomChanges) {
  std::mt19937 random(7);
  const std::vector<std::string> pieces = {"[S]",       "[T]",  "A=1", "; c", "",
                                           "\xE4=\xFC", "K1=x", "[",   "=",   "K2 = 'y'"};
  for (int round = 0; round < 300; ++round) {
    std::string before;
    for (unsigned lines = random() % 12; lines > 0; --lines) {
      before += pieces[random() % pieces.size()];
      if (lines > 1 || random() % 2) before += "\r\n";
    }
    IniDocument ini(before);
    for (int change = 0; change < 5; ++change) {
      ini.Set("S", "K" + std::to_string(random() % 3), std::to_string(random() % 3));
    }
    // Every line of the original that set nothing of ours must be found again, in order.
    std::string after = ini.Bytes();
    std::size_t at = 0;
    for (std::size_t start = 0; start < before.size();) {
      std::size_t end = std::min(before.find("\r\n", start), before.size());
      std::string line = before.substr(start, end - start);
      start = end + 2;
      if (line.starts_with("K")) continue;
      std::size_t found = after.find(line, at);
      ASSERT_NE(found, std::string::npos) << line << "\n--- before\n"
                                          << before << "\n--- after\n"
                                          << after;
      at = found + line.size();
    }
  }
}

TEST(IniDocument, StaysFastInAHugeFile) {
  std::string bytes = "[S]\r\n";
  for (int i = 0; i < 200000; ++i) bytes += "K" + std::to_string(i) + "=v\r\n";
  IniDocument ini(bytes);
  for (int i = 0; i < 100; ++i) ini.Set("S", "New" + std::to_string(i), "x");
  EXPECT_EQ(ini.Get("S", "K199999"), "v");
  EXPECT_EQ(ini.Get("S", "New99"), "x");
}

}  // namespace
}  // namespace project
