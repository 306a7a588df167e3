// SPDX-License-Identifier: MIT
#include "editor/node_key.h"

#include <gtest/gtest.h>

namespace editor {
namespace {

TEST(NodeKey, SplitsIntoKindAndNumber) {
  struct Case {
    const char* key;
    const char* kind;
    std::int32_t number;
    bool own;
    bool formula;
    std::int32_t topic;
  };
  const Case cases[] = {
      {"FOR0", "FOR0", -1, true, false, 90002},
      {"FORF0", "FORF", 0, true, false, 90023},
      {"FORF12", "FORF", 12, true, true, 90023},
      {"FORF", "FORF", -1, true, true, 90023},
      {"FORA0", "FORA", 0, true, false, 90029},
      {"", "", -1, false, false, 0},
      {"FOR", "FOR", -1, false, false, 0},
      {"VARX7", "VARX", 7, false, false, 0},
      {"forf7", "forf", 7, false, false, 0},
      {"FORFx", "FORF", 0, true, false, 90023},
      {"FORF2.5", "FORF", 2, true, true, 90023},
      {"FORF 1 7", "FORF", 17, true, true, 90023},
      {"FORF99999999999", "FORF", 2147483647, true, true, 90023},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(KeyKind(c.key), c.kind) << c.key;
    EXPECT_EQ(KeyNumber(c.key), c.number) << c.key;
    EXPECT_EQ(IsOwnKey(c.key), c.own) << c.key;
    EXPECT_EQ(IsFormulaKey(c.key), c.formula) << c.key;
    EXPECT_EQ(HelpTopic(c.key), c.topic) << c.key;
    EXPECT_EQ(KeyIcon(c.key).empty(), !c.own) << c.key;
  }
  EXPECT_EQ(KeyNumber(FormulaKey(7)), 7);
}

}  // namespace
}  // namespace editor
