// SPDX-License-Identifier: MIT
#include "platform/variant.h"

#include <gtest/gtest.h>

#include <string>

using platform::Val;
using platform::Variant;

TEST(Val, ReadsTheLeadingNumberAsVisualBasicDoes) {
  struct Case {
    const char* text;
    double value;
  };
  const Case cases[] = {
      {"250ms", 250},   {"abc", 0},         {"", 0},      {"  12", 12},
      {"1 2 3", 123},   {"-5", -5},         {"- 5", -5},  {"+7x", 7},
      {".5", 0.5},      {"1.5.2", 1.5},     {"1,5", 1},   {"1e3", 1000},
      {"1d3", 1000},    {"1D-2", 0.01},     {"1e", 1},    {"&H10", 16},
      {"&hFFFF", -1},   {"&H10000", 65536}, {"&O17", 15}, {"&HFFFFFFFF", -1},
      {"\t12\n3", 123}, {"--5", 0},         {"e5", 0},    {"&Hxyz", 0},
      {"inf", 0},       {"nan", 0},         {"&", 0},
  };
  for (const Case& c : cases) EXPECT_EQ(Val(c.text), c.value) << c.text;
}

TEST(Variant, ConvertsAsVisualBasicDoes) {
  EXPECT_EQ(Variant(true).ToLong(), -1);
  EXPECT_EQ(Variant(true).ToText(), "True");
  EXPECT_EQ(Variant(2.5).ToLong(), 2);
  EXPECT_EQ(Variant(3.5).ToLong(), 4);
  EXPECT_EQ(Variant(1e20).ToLong(), 2147483647);
  EXPECT_EQ(Variant("12 apples").ToLong(), 12);
  EXPECT_TRUE(Variant("True").ToBool());
  EXPECT_FALSE(Variant(platform::Null{}).ToBool());
  EXPECT_EQ(Variant(1995.024).ToText(), "1995.024");
  EXPECT_EQ(Variant(std::string(1, '\0')).ToText().size(), 1u);
}
