// SPDX-License-Identifier: MIT
#include "vbcode/unknown_names.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/text.h"
#include "tests/vbcode/sources.h"
#include "vbcode/spelled_words.h"

namespace vbcode {
namespace {

// The unknown names of the class, apart by blanks.
std::string Unknown(const std::string& text) {
  const Program program = MakeProgram(text, {{"MMain", "Proj", ModuleKind::kStandard,
                                              "Public Shift As Long\nPrivate Hidden As Long\n"
                                              "Public Enum State\n  StateOpen\nEnd Enum\n"}});
  std::string names;
  for (const Place& place : FindUnknownNames(program, 0)) {
    names += names.empty() ? "" : " ";
    names += program.module(0).lines->Line(place.line).substr(place.column, place.length);
  }
  return names;
}

TEST(UnknownNamesTest, AreThoseThatNobodyDeclares) {
  const std::string head = "Public Level As Double\nPublic Sub Fill(ByVal by As Long)\n";
  struct Case {
    const char* line;
    const char* unknown;
  };
  for (const auto& [line, unknown] : std::initializer_list<Case>{
           {"Level = Levle + by", "Levle"},
           {"Levle = 1: LEVEL = 2", "Levle"},
           {"Dim n: n = Shift + StateOpen", ""},
           {"Level = Hidden", "Hidden"},
           {"'Levle\nDebug.Print \"Levle\"", ""},
           {"Level = Now + Timer + Len(Levle)", "Levle"},
           {"Again: GoTo Again", ""},
           // These may come from a library.
           {"Level = vbCrLf & adOpenStatic", ""},
           {"adOpenStatic = 1", "adOpenStatic"},
           {"Log.Add 1: Print1 3: Level = Func(2)", ""},
           {"Me.Levle = 1", ""},
       }) {
    EXPECT_EQ(Unknown(head + line + "\nEnd Sub\n"), unknown) << line;
  }
}

TEST(SpelledWordsTest, AreWordsOfTheLanguageInOrder) {
  const auto folded = [](std::string_view word) { return platform::FoldCase(word); };
  EXPECT_TRUE(std::ranges::is_sorted(kSpelledWords, {}, folded));
  for (const std::string_view word : kSpelledWords) {
    EXPECT_TRUE(std::ranges::any_of(kLanguageWords, [&](const LanguageWord& known) {
      return known.text == folded(word);
    })) << word;
  }
}

}  // namespace
}  // namespace vbcode
