// SPDX-License-Identifier: MIT
#include "platform/text.h"

#include <gtest/gtest.h>

#include <string>

using namespace platform;

TEST(Text, EveryByteStringSurvivesCodePoints) {
  const std::string texts[] = {"",
                               "plain",
                               "Ä ß € 😀",
                               std::string("a\0b", 3),
                               "\xC3",
                               "\xE0\x80\x80",
                               "\xFF\xC4\x80",
                               "\xED\xA0\x80",
                               "\xF5\x80\x80\x80",
                               "\xC0\xAF"};
  for (const std::string& text : texts) {
    std::string again;
    for (std::size_t position = 0; position < text.size();)
      AppendCodePoint(again, NextCodePoint(text, position));
    EXPECT_EQ(again, text);
  }
  EXPECT_FALSE(IsValidUtf8("\xC0\xAF"));
  EXPECT_FALSE(IsValidUtf8("caf\xE9"));
  EXPECT_TRUE(IsValidUtf8("café"));
}

TEST(Text, EveryByteOfWindows1252IsOneCodePointAndBack) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(ToWindows1252(FromWindows1252(static_cast<std::uint8_t>(byte))), byte);
  }
  EXPECT_EQ(FromWindows1252(0x80), U'€');
  EXPECT_EQ(ToWindows1252(U'Ω'), std::nullopt);
  EXPECT_EQ(ToWindows1252(U'\x80'), std::nullopt);
}

TEST(Text, LetterCaseDoesNotCount) {
  struct Case {
    const char *a, *b;
    bool equal;
  };
  const Case cases[] = {{"Level", "LEVEL", true}, {"Ä1", "ä1", true},    {"Ÿ", "ÿ", true},
                        {"Ж", "ж", true},         {"Σ", "σ", true},      {"Š", "š", true},
                        {"Ž", "ž", true},         {"×", "÷", false},     {"a", "ab", false},
                        {"\xC4", "Ä", false},     {"Łódź", "łÓDŹ", true}};
  for (const Case& c : cases) EXPECT_EQ(EqualsIgnoringCase(c.a, c.b), c.equal) << c.a;
  for (char32_t c = 0; c < 0x500; ++c) {
    std::string before, after;
    AppendCodePoint(before, c);
    AppendCodePoint(after, FoldCase(c));
    EXPECT_EQ(before.size(), after.size()) << static_cast<unsigned>(c);
    EXPECT_EQ(FoldCase(FoldCase(c)), FoldCase(c));
  }
}
