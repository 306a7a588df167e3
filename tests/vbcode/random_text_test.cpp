// SPDX-License-Identifier: MIT
// Modules made of pieces at random: what holds for every text.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/vbcode/sources.h"
#include "tests/vbfiles/text_lines.h"
#include "vbcode/rename.h"
#include "vbfiles/source_index.h"

namespace vbcode {
namespace {

constexpr const char* kNames[] = {"Level", "Pump", "Fill", "x", "Me", "o", "Left"};
constexpr const char* kPieces[] = {"Public ",
                                   "Private ",
                                   "Dim ",
                                   "Sub ",
                                   "End Sub\n",
                                   "Function ",
                                   "End Function\n",
                                   "Property Get ",
                                   "Property Let ",
                                   "End Property\n",
                                   "()\n",
                                   "(",
                                   ")",
                                   ", ",
                                   " = ",
                                   " + ",
                                   ".",
                                   "!",
                                   "\n",
                                   "\n",
                                   "\n",
                                   " _\n",
                                   ": ",
                                   "'",
                                   "\"",
                                   "Rem ",
                                   "With ",
                                   "End With\n",
                                   "If ",
                                   " Then ",
                                   " Else ",
                                   "End If\n",
                                   "#If A Then\n",
                                   "#Else\n",
                                   "#End If\n",
                                   "For Each ",
                                   " In ",
                                   "Next ",
                                   "Set ",
                                   "Let ",
                                   "Call ",
                                   "Type ",
                                   "End Type\n",
                                   "Enum ",
                                   "End Enum\n",
                                   " As Long",
                                   " As C",
                                   " As New C",
                                   "ReDim ",
                                   "Mid$(",
                                   "Get #1, , ",
                                   "RaiseEvent ",
                                   "Event ",
                                   "Implements ",
                                   "AddressOf ",
                                   "New ",
                                   "[",
                                   "]",
                                   ":=",
                                   "#1/2/3#",
                                   "1E5",
                                   "&HFF",
                                   "ByVal ",
                                   "\xC3\xA4",
                                   "GoTo ",
                                   "CallByName(o, \"Level\")"};

template <typename Array>
const char* Pick(std::mt19937& random, const Array& array) {
  return array[random() % std::size(array)];
}

// A module that is mostly right, with garbage between.
std::string RandomText(std::mt19937& random) {
  std::string text = random() % 4 == 0 ? "" : "Public Level As Double, Pump As C\n";
  for (int sub = 0; sub < 3; ++sub) {
    text += "Sub S" + std::to_string(sub) + "(" + (random() % 4 == 0 ? "Level" : "") + ")\n";
    for (unsigned i = 0; i < random() % 30; ++i) {
      text += random() % 2 == 0 ? Pick(random, kNames) : Pick(random, kPieces);
      if (random() % 3 == 0) text += ' ';
    }
    text += "\nLevel = Pump.Level + Me.Level\nEnd Sub\n";
  }
  return text;
}

std::string TextOf(const Program& program, const std::vector<LineEdit>& edits) {
  std::string text;
  auto edit = edits.begin();
  const TextLines& lines = *program.module(0).lines;
  for (std::int32_t line = 1; line <= lines.LineCount(); ++line) {
    const bool edited = edit != edits.end() && edit->line == line;
    text += edited ? edit++->text : std::string(lines.Line(line));
    text += '\n';
  }
  return text;
}

void ExpectUsesStandThere(const Program& program, const std::string& name) {
  for (const Use& use : program.Uses(0, name)) {
    const std::string line(program.module(use.module).lines->Line(use.line));
    ColumnCounter columns;
    const std::size_t begin = columns.ByteOf(line, use.column - 1);
    const std::size_t end = columns.ByteOf(line, use.column - 1 + use.length);
    EXPECT_TRUE(platform::EqualsIgnoringCase(line.substr(begin, end - begin), name)) << line;
    EXPECT_EQ(use.procedure, program.ProcedureOfLine(use.module, use.line));
  }
}

// Twice is there and back: the text is the same, and so are the uses in between.
void ExpectRenamedBack(const Program& program) {
  const Renaming there =
      RenameMember(program, {{0}, "Level", "Stand", kNone, false, false, /*declarations=*/true});
  if (!there.refusals.empty()) return;
  const Program renamed = MakeProgram(TextOf(program, there.edits));
  std::vector<Use> sure;
  for (const Use& use : renamed.Uses(0, "Stand")) {
    if (use.binding == Binding::kMember) sure.push_back(use);
  }
  ASSERT_EQ(sure.size(), there.changed.size()) << TextOf(program, {});
  const Renaming back =
      RenameMember(renamed, {{0}, "Stand", "Level", kNone, false, false, /*declarations=*/true});
  if (!back.refusals.empty()) return;
  EXPECT_EQ(TextOf(renamed, back.edits), TextOf(program, {}));
}

// Both readers find the same procedures.
void ExpectSameProcedures(const Program& program, const std::string& text) {
  const ::TextLines lines(text);
  const vbfiles::SourceIndex index(lines, vbfiles::CodePage::Get(vbfiles::CodePage::kUtf8));
  const auto& procedures = program.module(0).code.procedures;
  ASSERT_EQ(procedures.size(), index.procedures().size()) << text;
  for (std::size_t i = 0; i < procedures.size(); ++i) {
    const vbfiles::Procedure& other = index.procedures()[i];
    EXPECT_EQ(procedures[i].first_line, other.body_line) << text;
    if (other.end_line != vbfiles::kToModuleEnd) {
      EXPECT_EQ(procedures[i].last_line, other.end_line) << text;
    }
  }
}

TEST(RandomText, HoldsForAll) {
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  SCOPED_TRACE("seed " + std::to_string(seed));
  for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
    const std::string text = RandomText(random);
    const Program program = MakeProgram(text);
    for (const char* name : kNames) ExpectUsesStandThere(program, name);
    ExpectRenamedBack(program);
    ExpectSameProcedures(program, text);
  }
}

// Cut anywhere, a text is read as far as it goes.
TEST(RandomText, CutAnywhere) {
  const std::string text =
      "Public Level As Double\nSub S(ByVal a As C, Optional b = \"x\")\n#If A Then\nWith "
      "Me\n#Else\n"
      "With a.b(1, [c d]!e)\n#End If\n.Level = Mid$(.x, &HF) _\n + #1/2/3#: If a Then Level: Else "
      "x\n"
      "ReDim Preserve Level(1 To 2) As Long: Get #1, , .Level: Line Input #1, Level\nEnd With\nEnd "
      "Sub";
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const Program program = MakeProgram(text.substr(0, length));
    ExpectUsesStandThere(program, "Level");
    ExpectSameProcedures(program, text.substr(0, length));
  }
  const Program deep = MakeProgram("Sub S()\nx = " + std::string(100000, '(') + "Level\nEnd Sub");
  EXPECT_EQ(deep.Uses(0, "Level").size(), 1u);
}

}  // namespace
}  // namespace vbcode
