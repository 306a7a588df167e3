// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/vbcode/sources.h"
#include "vbcode/body_findings.h"
#include "vbcode/effects.h"
#include "vbcode/rename.h"
#include "vbcode/text_search.h"

namespace vbcode {
namespace {

std::string EffectName(Effect effect) {
  std::string name;
  if ((effect & kReads) != 0) name += 'r';
  if ((effect & kWrites) != 0) name += 'w';
  if ((effect & kCalls) != 0) name += 'c';
  if ((effect & kUndecided) != 0) name += '?';
  return name;
}

// "Name effect" of all that the procedure of the first module touches; "*" for what calls do, "'"
// for other objects.
std::string ListEffects(const Program& program, const std::string& procedure) {
  const Effects effects = EffectFinder(program).Find(0, program.FindProcedure(0, procedure));
  std::string list;
  for (const Touched& touched : effects.touched) {
    if (!list.empty()) list += ", ";
    list += std::string(program.Text(touched.name)) + ' ' + EffectName(touched.effect);
    if (!touched.direct) list += '*';
    if (touched.other_object) list += '\'';
  }
  return list + (effects.open ? " open" : "");
}

TEST(Effects, ThroughCalls) {
  const Program program = MakeProgram(
      "Public A, B, D, Helper As New CHelp, WithEvents Timer As CHelp\n"
      "Sub S(): A = B: T: End Sub\n"
      "Private Sub T(): x = D: U: End Sub\n"
      "Sub U(): D = 1: T: Common: End Sub\n"
      "Property Get P(): P = A: End Property\n"
      "Property Let P(v): B = v: End Property\n"
      "Sub R(): x = P: End Sub\n"
      "Sub W(): P = 1: End Sub\n"
      "Sub H(): Helper.Run: End Sub\n"
      "Sub M(): Other.Use Me: CallByName x, y, 1: End Sub\n"
      "Sub O(): Dim c As C: c.A = 1: c.U: End Sub\n"
      "Sub Timer_Tick(): A = 1: End Sub\n"
      "Sub L(): Fill A: obj.B = D: End Sub\n"
      "Sub Fill(v): v = 1: End Sub\n",
      {{"MMain", "Proj", ModuleKind::kStandard, "Public G\nSub Common(): G = G + 1: End Sub"},
       {"CHelp", "Proj", ModuleKind::kClass,
        "Public X\nEvent Tick()\nSub Run(): X = 1: RaiseEvent Tick: End Sub\n"
        "Private Sub Class_Initialize(): X = X: End Sub"}});
  const struct {
    const char* procedure;
    const char* effects;
  } rows[] = {
      {"S", "A w, B r, T c, x w*, D rw*, U c*, Common c*, G rw*"},
      {"R", "x w, P r, A r*"},
      {"W", "P w, B w*"},
      {"H", "Helper r, Run c', x rw*', Tick c*', A w*'"},
      {"M", "Other r, callbyname c, x r, y r open"},
      {"O", "A w', U c', D rw*', T c*', Common c*', G rw*, x w*'"},
      {"L", "Fill c, A w, obj r, B ?', D r"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ListEffects(program, row.procedure), row.effects) << row.procedure;
  }
}

std::string Apply(const Program& program, const std::vector<LineEdit>& edits,
                  std::int32_t module = 0) {
  const TextLines& lines = *program.module(module).lines;
  std::string text;
  for (std::int32_t number = 1; number <= lines.LineCount(); ++number) {
    std::string line(lines.Line(number));
    for (const LineEdit& edit : edits) {
      if (edit.module == module && edit.line == number) line = edit.text;
    }
    text += line + '\n';
  }
  return text;
}

TEST(Rename, ChangesNamesAlone) {
  const Program program = MakeProgram(
      "Public Level As Double ' Level\n"
      "Sub S(o)\n"
      "  [Level] = LEVEL% + _\n"
      "    Me.Level ' Level, Levels \"Level\"\n"
      "  x = \"Level \"\"Level\"\"\" & o.Level: Rem Level _\n"
      "  Level\n"
      "End Sub\n"
      "Sub T(Level): Level = 1: End Sub\n",
      {{"D", "Proj", ModuleKind::kClass, "Sub S(c As C): c.Level = Level: End Sub"}});
  RenameRequest request{{0}, "level", "Stand"};
  Renaming renaming = RenameMember(program, request);
  EXPECT_TRUE(renaming.refusals.empty());
  EXPECT_EQ(Apply(program, renaming.edits),
            "Public Level As Double ' Level\n"
            "Sub S(o)\n"
            "  [Stand] = Stand% + _\n"
            "    Me.Stand ' Level, Levels \"Level\"\n"
            "  x = \"Level \"\"Level\"\"\" & o.Level: Rem Level _\n"
            "  Level\n"
            "End Sub\n"
            "Sub T(Level): Level = 1: End Sub\n");
  EXPECT_EQ(Apply(program, renaming.edits, 1), "Sub S(c As C): c.Stand = Level: End Sub\n");
  EXPECT_EQ(renaming.changed.size(), 4u);
  ASSERT_EQ(renaming.left.size(), 1u);
  EXPECT_EQ(renaming.left[0].line, 5);
  request.in_comments = request.in_literals = request.declarations = true;
  EXPECT_EQ(Apply(program, RenameMember(program, request).edits),
            "Public Stand As Double ' Stand\n"
            "Sub S(o)\n"
            "  [Stand] = Stand% + _\n"
            "    Me.Stand ' Stand, Levels \"Stand\"\n"
            "  x = \"Stand \"\"Stand\"\"\" & o.Level: Rem Stand _\n"
            "  Stand\n"
            "End Sub\n"
            "Sub T(Level): Level = 1: End Sub\n");
}

TEST(Rename, RefusesWhatWouldMeanSomethingElse) {
  using Problem = RenameProblem;
  const struct {
    const char* text;
    const char* to;
    Problem problem;
    int line;
  } rows[] = {
      {"Public Level\nSub S()\nLevel = 1\nEnd Sub", "End", Problem::kNotAName, 0},
      {"Public Level\nSub S()\nLevel = 1\nEnd Sub", "1a", Problem::kNotAName, 0},
      {"Public Level, Old\nSub S()\nLevel = 1\nEnd Sub", "old", Problem::kMemberName, 1},
      {"Public Level\nEnum E\nOld\nEnd Enum", "Old", Problem::kMemberName, 3},
      {"Public Level\nType Old\nA As Long\nEnd Type", "Old", Problem::kMemberName, 2},
      {"Public Level\nSub S()\nLevel = 1\nDim a, Old\nEnd Sub", "Old", Problem::kLocalName, 4},
      {"Public Level\nSub S(Old)\nLevel = 1\nEnd Sub", "Old", Problem::kLocalName, 2},
      {"Public Level\nSub S()\nOld: Level = 1\nEnd Sub", "Old", Problem::kLabelName, 3},
      {"Public Level\nSub S()\nx = Left(Level, 1)\nEnd Sub", "Left", Problem::kOtherMeaning, 3},
      {"Public Level\nSub S()\nx = Pump\nEnd Sub", "Pump", Problem::kOtherMeaning, 3},
      {"Public WithEvents Level As X\nSub Level_Tick()\nEnd Sub", "Old", Problem::kNamedAfter, 2},
  };
  for (const auto& row : rows) {
    const Renaming renaming = RenameMember(MakeProgram(row.text), {{0}, "Level", row.to});
    ASSERT_EQ(renaming.refusals.size(), 1u) << row.text;
    EXPECT_EQ(renaming.refusals[0].problem, row.problem) << row.text;
    EXPECT_EQ(renaming.refusals[0].line, row.line) << row.text;
    EXPECT_TRUE(renaming.edits.empty());
  }
  const struct {
    const char* text;
    const char* to;
  } fine[] = {
      {"Public Level\nSub S()\nLevel = 1\nEnd Sub\nSub T(Old): Old = 1: End Sub", "Old"},
      {"Public Level\nSub S(Old)\nMe.Level = Old: o.Old = 1\nEnd Sub", "Old"},
      {"Public Level\nSub S()\nLevel = 1\nEnd Sub", "LEVEL"},
      {"Public Level\nSub S()\nSet x = New Old: Level = 1\nEnd Sub", "Old"},
  };
  for (const auto& row : fine) {
    const Renaming renaming = RenameMember(MakeProgram(row.text), {{0}, "Level", row.to});
    EXPECT_TRUE(renaming.refusals.empty()) << row.text;
    EXPECT_FALSE(renaming.edits.empty()) << row.text;
  }
  const Program shared =
      MakeProgram("Sub S(): Level = 1: End Sub\nSub T(): x = Old: End Sub",
                  {{"M", "Proj", ModuleKind::kStandard, "Public Level"},
                   {"I", "Proj", ModuleKind::kClass, "Sub Run(): End Sub"},
                   {"D", "Proj", ModuleKind::kClass, "Implements I\nSub I_Run(): End Sub"}});
  const auto captured = RenameMember(shared, {{1}, "Level", "Old"}).refusals;
  ASSERT_EQ(captured.size(), 1u);
  EXPECT_EQ(captured[0], (RenameRefusal{Problem::kOtherMeaning, 0, 2, 14}));
  EXPECT_EQ(RenameMember(shared, {{2}, "Run", "Go"}).refusals.at(0),
            (RenameRefusal{Problem::kNamedAfter, 3, 2, 5}));
}

TEST(Rename, SeveralModulesAndOneProcedure) {
  const Program program = MakeProgram(
      "Public Level, Pump\nSub S(c As C, d As D): Level = c.Level + d.Level + o.Level: End Sub\n"
      "Sub T(): Level = 1 ' Level\nEnd Sub\nSub Go(): End Sub",
      {{"D", "Proj", ModuleKind::kClass, "Public Level\nSub S(): Level = 1: End Sub"}});
  const Renaming both = RenameMember(program, {{0, 1}, "Level", "Stand"});
  EXPECT_EQ(both.edits.size(), 3u);
  EXPECT_EQ(both.edits.at(0).text,
            "Sub S(c As C, d As D): Stand = c.Stand + d.Stand + o.Level: End Sub");
  EXPECT_EQ(both.left.size(), 1u);
  const Renaming one = RenameMember(program, {{0}, "Level", "Pump", /*procedure=*/0});
  ASSERT_EQ(one.edits.size(), 1u);
  EXPECT_EQ(one.edits[0].text,
            "Sub S(c As C, d As D): Pump = c.Level + d.Level + o.Level: End Sub");
  const Renaming other = RenameMember(program, {{0}, "Level", "Pump", 1, /*in_comments=*/true});
  ASSERT_EQ(other.edits.size(), 1u);
  EXPECT_EQ(other.edits[0].text, "Sub T(): Pump = 1 ' Pump");
  EXPECT_EQ(RenameMember(program, {{0}, "Level", "Go", 1}).refusals.size(), 1u);
}

TEST(Rename, KeepsToTheLongestLine) {
  const std::string padding(1015, ' ');
  const Program program =
      MakeProgram("Public A\nSub S()\nA = 1" + padding + "'\n\xC3\x84 = A\nEnd Sub\n");
  EXPECT_EQ(RenameMember(program, {{0}, "A", "BBB"}).edits.size(), 2u);
  const Renaming renaming = RenameMember(program, {{0}, "A", "BBBB"});
  ASSERT_EQ(renaming.refusals.size(), 1u);
  EXPECT_EQ(renaming.refusals[0], (RenameRefusal{RenameProblem::kLineTooLong, 0, 3, 1}));
  EXPECT_TRUE(renaming.edits.empty());
}

TEST(TextSearch, WordsAndCase) {
  const Program program = MakeProgram(
      "' level Level\nSub S()\nLevel2 = \"LEVEL\": \xC3\x84rger = aaaa \xC3\xA4RGER Level\nEnd "
      "Sub\n");
  const struct {
    const char* text;
    SearchOptions options;
    const char* places;
  } rows[] = {
      {"level", {}, "1:3 1:9 3:1 3:11 3:38"},
      {"level", {true, false}, "1:3 1:9 3:11 3:38"},
      {"Level", {false, true}, "1:9 3:1 3:38"},
      {"aa", {}, "3:27 3:29"},
      {"\xC3\xA4rger", {true, false}, "3:19 3:32"},
      {"\xC3\xA4rger", {true, true}, ""},
      {"", {}, ""},
      {"\" ", {}, ""},
  };
  for (const auto& row : rows) {
    std::string places;
    for (const Use& use : FindText(program, row.text, row.options)) {
      EXPECT_EQ(use.kind, UseKind::kText);
      EXPECT_EQ(use.procedure, use.line == 3 ? 0 : kNone);
      places +=
          (places.empty() ? "" : " ") + std::to_string(use.line) + ':' + std::to_string(use.column);
    }
    EXPECT_EQ(places, row.places) << row.text;
  }
}

std::string ListFindings(const Program& program, const std::vector<FormulaCode>& formulas,
                         const std::vector<std::string>& aliases) {
  constexpr const char* kKinds[] = {"no argument", "unused", "In written", "Out not written"};
  std::string list;
  for (const BodyFinding& finding : FindBodyFindings(program, formulas, aliases)) {
    if (!list.empty()) list += ", ";
    list += finding.alias + ' ' + kKinds[static_cast<int>(finding.kind)] + ' ' +
            std::to_string(finding.place.line) + ':' + std::to_string(finding.place.column);
  }
  return list;
}

TEST(BodyFindings, ArgumentsAndCode) {
  const std::string declarations = "Public A, B, D\nPublic Level()\n";
  const struct {
    const char* code;
    std::vector<FormulaCode::Argument> arguments;
    const char* findings;
  } rows[] = {
      {"Sub F(): A = B: End Sub", {{"A", false, true}, {"B", true, false}}, ""},
      {"Sub F(): A = B: End Sub",
       {{"A", true, false}, {"B", true, true}},
       "A In written 3:10, B Out not written 3:14"},
      {"Sub F(): A = D + E: D = A: End Sub",
       {{"A", true, true}},
       "D no argument 3:14, E no argument 3:18"},
      {"Sub F(): A = 1: End Sub",
       {{"a", false, true}, {"B", true, false}, {"Nix", true, false}},
       "B unused 3:5, Nix unused 3:5"},
      {"Sub F(): G: End Sub\nSub G(): A = B: End Sub",
       {{"A", false, true}, {"B", false, true}},
       "B Out not written 4:14"},
      {"Sub F(): Fill A: Show B: End Sub\nSub Fill(v): v = 1: End Sub\nSub Show(v): x = v: End Sub",
       {{"A", true, true}, {"B", true, true}},
       "A In written 3:15, B Out not written 3:23"},
      {"Sub F(): o.Run A, B: End Sub", {{"A", true, false}, {"B", false, true}}, ""},
      {"Sub F(): o.Run Me: End Sub", {{"A", true, false}}, ""},
      {"Sub F(): o.A = 1: End Sub", {{"A", true, false}}, ""},
      {"Sub F(): Level(1) = A: End Sub",
       {{"Level", true, true}, {"A", true, false}},
       "Level In written 3:10"},
      {"Sub F(): Dim A: A = 1: B = A: End Sub",
       {{"A", false, true}, {"B", false, true}},
       "A unused 3:5"},
      {"Sub F(): Dim c As C: c.D = 1: P = P: End Sub\nProperty Get P(): End Property", {}, ""},
  };
  for (const auto& row : rows) {
    const Program program = MakeProgram(declarations + row.code);
    EXPECT_EQ(ListFindings(program, {{0, "f", row.arguments}}, {"A", "B", "D", "E", "P", "Level"}),
              row.findings)
        << row.code;
  }
  EXPECT_EQ(ListFindings(MakeProgram(""), {{0, "F", {{"A", true, true}}}}, {"A"}), "");
}

}  // namespace
}  // namespace vbcode
