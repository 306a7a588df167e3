// SPDX-License-Identifier: MIT
#include "vbfiles/code_page.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text.h"

namespace vbfiles {
namespace {

TEST(CodePage, EveryByteSurvivesARoundTrip) {
  for (int number :
       {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
    const CodePage& page = CodePage::Get(number);
    for (int byte = 1; byte < 256; ++byte) {
      if (byte == 0x1A) continue;
      const std::string bytes(1, static_cast<char>(byte));
      const std::string text = page.ToUtf8(bytes);
      EXPECT_TRUE(platform::IsValidUtf8(text));
      EXPECT_EQ(page.NameFromUtf8(text), bytes) << number << ": " << byte;
    }
  }
}

TEST(CodePage, CharactersAndLetterCase) {
  struct Case {
    int number;
    const char* lower;
    const char* upper;
    const char* bytes;  // of the lower case
  };
  const Case cases[] = {{1250, "żółw", "ŻÓŁW", "\xBF\xF3\xB3w"},
                        {1251, "насос", "НАСОС", "\xED\xE0\xF1\xEE\xF1"},
                        {1252, "größe€", "GRößE€",
                         "gr\xF6\xDF"
                         "e\x80"},
                        {1253, "στάθμη", "ΣΤΆΘΜΗ", "\xF3\xF4\xDC\xE8\xEC\xE7"},
                        {1254, "ığçş", "ıĞÇŞ", "\xFD\xF0\xE7\xFE"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.lower);
    const CodePage& page = CodePage::Get(c.number);
    EXPECT_EQ(page.NameFromUtf8(c.lower), c.bytes);
    const std::string upper = page.NameFromUtf8(c.upper);
    EXPECT_TRUE(page.SameName(upper, c.bytes));
    EXPECT_EQ(page.NameHash(upper), page.NameHash(c.bytes));
    EXPECT_FALSE(page.SameName(upper, upper + "x"));
    EXPECT_EQ(page.NameFromUtf8("水"), "");
  }
  const CodePage& japanese = CodePage::Get(932);
  EXPECT_FALSE(japanese.SameName("\x83\x41", "\x83\x61"));  // second bytes are no letters
  EXPECT_TRUE(
      japanese.SameName("\x83\x41"
                        "A",
                        "\x83\x41"
                        "a"));
  EXPECT_EQ(japanese.NameFromUtf8("é"), "");  // its byte would begin another character
  EXPECT_TRUE(CodePage::Get(CodePage::kUtf8).SameName("Größe", "GRÖßE"));
}

}  // namespace
}  // namespace vbfiles
