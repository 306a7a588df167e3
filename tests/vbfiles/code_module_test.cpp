// SPDX-License-Identifier: MIT
// The editing operations of a code module.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/vbfiles/class_project.h"

namespace vbfiles {
namespace {

using platform::CodeModule;
using platform::ProcKind;

std::int32_t NumberOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const platform::Error& error) {
    return error.number();
  }
  return 0;
}

std::string WithCrLf(std::string text) {
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2) {
    text.insert(at, "\r");
  }
  return text;
}

TEST(CodeModule, Edits) {
  struct Case {
    const char* what;
    std::function<void(CodeModule&)> edit;
    const char* after;
  };
  const std::string before = "Option Explicit\r\n\r\nSub A()\r\nEnd Sub\r\n";
  const Case cases[] = {
      {"insert", [](CodeModule& m) { m.InsertLines(2, "Public X As Long"); },
       "Option Explicit\nPublic X As Long\n\nSub A()\nEnd Sub\n"},
      {"a last line end inserts an empty line",
       [](CodeModule& m) { m.InsertLines(2, "a\r\nb\r\n"); },
       "Option Explicit\na\nb\n\n\nSub A()\nEnd Sub\n"},
      {"LF and CR end lines too", [](CodeModule& m) { m.InsertLines(1, "a\nb\rc"); },
       "a\nb\nc\nOption Explicit\n\nSub A()\nEnd Sub\n"},
      {"insert behind the end", [](CodeModule& m) { m.InsertLines(5, "' tail"); },
       "Option Explicit\n\nSub A()\nEnd Sub\n' tail\n"},
      {"insert far behind the end", [](CodeModule& m) { m.InsertLines(99, "' tail"); },
       "Option Explicit\n\nSub A()\nEnd Sub\n' tail\n"},
      {"replace by two", [](CodeModule& m) { m.ReplaceLine(2, "'1\r\n'2"); },
       "Option Explicit\n'1\n'2\nSub A()\nEnd Sub\n"},
      {"delete past the end", [](CodeModule& m) { m.DeleteLines(3, 99); }, "Option Explicit\n\n"},
      {"delete all", [](CodeModule& m) { m.DeleteLines(1, 4); }, ""},
      {"delete nothing", [](CodeModule& m) { m.DeleteLines(3, 0); },
       "Option Explicit\n\nSub A()\nEnd Sub\n"},
      {"append", [](CodeModule& m) { m.AddFromString("Sub B()\r\nEnd Sub"); },
       "Option Explicit\n\nSub A()\nEnd Sub\nSub B()\nEnd Sub\n"},
      {"append with a last line end",
       [](CodeModule& m) { m.AddFromString("Sub B()\r\nEnd Sub\r\n"); },
       "Option Explicit\n\nSub A()\nEnd Sub\nSub B()\nEnd Sub\n"},
      {"append to nothing",
       [](CodeModule& m) {
         m.DeleteLines(1, 4);
         m.AddFromString("\r\nx");
       },
       "\nx\n"},
      {"append behind a comment that goes on",
       [](CodeModule& m) {
         m.InsertLines(5, "' open _");
         m.AddFromString("Sub B()\r\nEnd Sub");
       },
       "Option Explicit\n\nSub A()\nEnd Sub\n' open _\n\nSub B()\nEnd Sub\n"},
      {"append nothing", [](CodeModule& m) { m.AddFromString(""); },
       "Option Explicit\n\nSub A()\nEnd Sub\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ClassProject project(before);
    c.edit(project.Module());
    EXPECT_EQ(project.Text(), c.after);
    EXPECT_EQ(project.Written(), ClassProject::Header() + WithCrLf(c.after));
  }
}

TEST(CodeModule, ErrorNumbersAndNothingChanged) {
  const std::string code = "Private mX\r\nSub A()\r\nEnd Sub\r\n";
  ClassProject project(code);
  CodeModule& m = project.Module();
  EXPECT_EQ(m.Lines(2, 0), "");
  EXPECT_EQ(m.Lines(3, 99), "End Sub");
  const std::function<void()> subscript[] = {
      [&] { m.Lines(0, 1); },         [&] { m.Lines(4, 1); },
      [&] { m.Lines(1, -1); },        [&] { m.InsertLines(0, "x"); },
      [&] { m.ReplaceLine(0, "x"); }, [&] { m.ReplaceLine(4, "x"); },
      [&] { m.DeleteLines(4, 1); },   [&] { m.DeleteLines(0, 1); },
      [&] { m.DeleteLines(1, -1); },  [&] { m.Pane().SetTopLine(0); }};
  for (const auto& call : subscript) EXPECT_EQ(NumberOf(call), platform::kErrSubscript);
  const std::function<void()> unknown[] = {[&] { m.ProcStartLine("B", ProcKind::kProc); },
                                           [&] { m.ProcBodyLine("A", ProcKind::kGet); },
                                           [&] { m.ProcCountLines("mX", ProcKind::kProc); },
                                           [&] { m.ProcCountLines("", ProcKind::kProc); }};
  for (const auto& call : unknown) EXPECT_EQ(NumberOf(call), platform::kErrProcNotDefined);
  EXPECT_EQ(m.ProcOfLine(0).name, "");
  EXPECT_EQ(m.ProcOfLine(4).name, "");
  EXPECT_EQ(project.Written(), ClassProject::Header() + code);
}

TEST(CodeModule, HiddenLines) {
  struct Case {
    const char* what;
    const char* before;
    std::function<void(CodeModule&)> edit;
    const char* after;
  };
  constexpr const char* kItem =
      "Private WithEvents mPort As CPort\n"
      "Attribute mPort.VB_VarHelpID = -1\n"
      "\n"
      "Public Function Item(ByVal Key As String, _\n"
      "                     Optional ByVal D As Variant) As Variant\n"
      "Attribute Item.VB_Description = \"Returns one element.\"\n"
      "Attribute Item.VB_ProcData.VB_Invoke_Func = \" \\n14\"\n"
      "    Item = 1\n"
      "End Function\n";
  const Case cases[] = {
      {"nothing gets between declaration and attributes", kItem,
       [](CodeModule& m) {
         EXPECT_EQ(m.CountOfLines(), 6);
         EXPECT_EQ(m.ProcBodyLine("Item", ProcKind::kProc), 3);
         m.InsertLines(2, "Public X");
         m.InsertLines(6, "    Beep");
       },
       "Private WithEvents mPort As CPort\nAttribute mPort.VB_VarHelpID = -1\nPublic X\n\n"
       "Public Function Item(ByVal Key As String, _\n"
       "                     Optional ByVal D As Variant) As Variant\n"
       "Attribute Item.VB_Description = \"Returns one element.\"\n"
       "Attribute Item.VB_ProcData.VB_Invoke_Func = \" \\n14\"\n"
       "    Beep\n    Item = 1\nEnd Function\n"},
      {"rename carries them along, also from below the continuation", kItem,
       [](CodeModule& m) {
         m.ReplaceLine(3, "Public Sub Value()");
         m.ReplaceLine(4, "'" + m.Lines(4, 1));
       },
       "Private WithEvents mPort As CPort\nAttribute mPort.VB_VarHelpID = -1\n\n"
       "Public Sub Value()\n"
       "Attribute Value.VB_Description = \"Returns one element.\"\n"
       "Attribute Value.VB_ProcData.VB_Invoke_Func = \" \\n14\"\n"
       "'                     Optional ByVal D As Variant) As Variant\n"
       "    Item = 1\nEnd Function\n"},
      {"commenting out takes them along", kItem,
       [](CodeModule& m) {
         for (std::int32_t line = 3; line <= 6; ++line) m.ReplaceLine(line, "'" + m.Lines(line, 1));
         EXPECT_EQ(m.CountOfLines(), 6);  // they stay hidden for now
       },
       "Private WithEvents mPort As CPort\nAttribute mPort.VB_VarHelpID = -1\n\n"
       "'Public Function Item(ByVal Key As String, _\n"
       "'                     Optional ByVal D As Variant) As Variant\n"
       "'Attribute Item.VB_Description = \"Returns one element.\"\n"
       "'Attribute Item.VB_ProcData.VB_Invoke_Func = \" \\n14\"\n"
       "'    Item = 1\n'End Function\n"},
      {"taking it back restores them", kItem,
       [](CodeModule& m) {
         const std::string line = m.Lines(1, 1);
         m.ReplaceLine(1, "'" + line);
         m.ReplaceLine(1, line);
       },
       kItem},
      {"a variable is renamed", "Private WithEvents mA As CPort\nAttribute mA.VB_VarHelpID = -1\n",
       [](CodeModule& m) { m.ReplaceLine(1, "Private WithEvents mB As CPort"); },
       "Private WithEvents mB As CPort\nAttribute mB.VB_VarHelpID = -1\n"},
      {"of a list only what is gone is switched off",
       "Private a, b\nAttribute a.VB_VarHelpID = -1\nAttribute b.VB_VarHelpID = -1\n",
       [](CodeModule& m) { m.ReplaceLine(1, "Private B, c"); },
       "Private B, c\n'Attribute a.VB_VarHelpID = -1\nAttribute b.VB_VarHelpID = -1\n"},
      {"a body line with attributes of nothing is left alone", "x = 1\nAttribute Y.VB_HelpID = 1\n",
       [](CodeModule& m) { m.InsertLines(1, "' top"); },
       "' top\nx = 1\nAttribute Y.VB_HelpID = 1\n"},
      {"deletion", kItem,
       [](CodeModule& m) {
         m.DeleteLines(3, 4);
         m.DeleteLines(1, 1);
       },
       "\n"},
      {"what only looks like an attribute is visible",
       " Attribute X.VB_Y = 1\nAttribute = 1\n'Attribute X.VB_Y = 1\nAttributeX.Y = 1\n",
       [](CodeModule& m) { m.DeleteLines(1, 4); }, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ClassProject project(WithCrLf(c.before));
    c.edit(project.Module());
    EXPECT_EQ(project.Written(), ClassProject::Header() + WithCrLf(c.after));
  }
}

TEST(CodeModule, CharactersThatTheCodePageLacks) {
  ClassProject project("Option Explicit\r\n");
  CodeModule& m = project.Module();
  const std::string before = project.Written();
  struct Refused {
    const char* text;
    const char* named;
  };
  const Refused refused[] = {{"Public Ω As Long", "U+03A9"},
                             {"Public X As String, s\nx = \"Ω 'Ω\"", "line 3"},
                             {"x = 1 _\n + Ω", "U+03A9"},
                             {"Public X ' fine\nPublic Ω", "U+03A9"}};
  for (const Refused& r : refused) {
    SCOPED_TRACE(r.text);
    try {
      m.InsertLines(2, r.text);
      ADD_FAILURE() << "not refused";
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.kind(), platform::ErrorKind::kRefused);
      EXPECT_NE(error.description().find(r.named), std::string::npos) << error.description();
      EXPECT_NE(error.description().find(ClassProject::kPath), std::string::npos);
    }
  }
  EXPECT_THROW(m.InsertLines(1, std::string("Public X\0Y", 10)), platform::Error);
  EXPECT_THROW(m.InsertLines(1, "'" + std::string(1023, 'x')), platform::Error);
  EXPECT_EQ(project.Written(), before);
  EXPECT_TRUE(project.environment.TakeReplacedCharacters().empty());

  m.InsertLines(2, "Public Größe as Double 'Tank1.Ω→Größe _\r\nΨ also\r\nRem €Ж");
  const auto replaced = project.environment.TakeReplacedCharacters();
  ASSERT_EQ(replaced.size(), 3u);
  EXPECT_EQ(replaced[0].characters, "Ω→");
  EXPECT_EQ(replaced[1].line, 3);
  EXPECT_EQ(replaced[2].characters, "Ж");
  EXPECT_EQ(project.Written(), before +
                                   "Public Gr\xF6\xDF"
                                   "e as Double 'Tank1.??Gr\xF6\xDF"
                                   "e _\r\n? also\r\nRem \x80?\r\n");
  EXPECT_TRUE(m.FindMember("GRÖßE"));
}

}  // namespace
}  // namespace vbfiles
