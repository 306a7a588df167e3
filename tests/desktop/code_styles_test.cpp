// SPDX-License-Identifier: MIT
#include "desktop/code_styles.h"

#include <gtest/gtest.h>

namespace desktop {
namespace {

// One letter for each byte: plain, comment, keyword, string, number, date.
std::string Letters(std::string_view code) {
  std::string letters = StylesOf(code);
  for (char& style : letters) style = ".cksnd"[static_cast<unsigned char>(style)];
  return letters;
}

TEST(CodeStyles, FollowTheLanguage) {
  struct Case {
    const char* code;
    const char* styles;
  };
  const Case cases[] = {
      {"Public Sub A()", "kkkkkk.kkk...."},
      {"1000#: End Function", "nnnnn..kkk.kkkkkkkk"},  // a number, no date
      {"x = #1/2/1999# 'a", "....dddddddddd.cc"},
      {"x = 1# + 2#", "....nn...nn"},
      {"#If Win32 Then", ".kk.......kkkk"},
      {"s = \"a'\"\"b\" & y", "....sssssss...."},
      {"s = \"open", "....sssss"},
      {"o.Print = [End] &HFF&", "................nnnnn"},
      {"Rem a: b\nBeep", "cccccccc....."},
      {"'a _\nb\nEnd", "cccccc.kkk"},  // the comment goes on
      {"If a _\n Then", "kk......kkkk"},
      {"Größe = 1", "..........n"},
      {"", ""},
      {"\n\n", ".."},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Letters(c.code), c.styles) << c.code;
  }
}

TEST(CodeStyles, KnowWhichLineGoesOn) {
  EXPECT_TRUE(GoesOn("x _\ny", 3));
  EXPECT_TRUE(GoesOn("a\nx _", 5));
  EXPECT_FALSE(GoesOn("x_\ny", 2));
  EXPECT_FALSE(GoesOn("x\n", 1));
}

}  // namespace
}  // namespace desktop
