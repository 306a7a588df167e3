// SPDX-License-Identifier: MIT
#include "cli/suggest.h"

#include <gtest/gtest.h>

TEST(Nearest, FindsWhatWasMeantAndNothingElse) {
  const std::vector<std::string> names = {"formula", "argument", "alias",
                                          "report",  "recover",  "Tank1_Level"};
  struct Case {
    const char* word;
    const char* expected;
  };
  const Case cases[] = {{"formla", "formula"},
                        {"FORMULA", "formula"},
                        {"alais", "alias"},
                        {"reprot", "report"},
                        {"Tank_Level", "Tank1_Level"},
                        {"xyz", ""},
                        {"", ""},
                        {"a", ""}};
  for (const Case& c : cases) EXPECT_EQ(cli::Nearest(c.word, names), c.expected) << c.word;
}
