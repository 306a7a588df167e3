// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/vbcode/sources.h"
#include "vbcode/program.h"

namespace vbcode {
namespace {

struct Row {
  const char* body;
  const char* uses;  // of Level, in the body's lines
};

// The body stands in a procedure; its lines are numbered from 1.
std::string UsesInBody(const std::string& declarations, const std::string& body,
                       const std::string& more = "") {
  const std::string head = declarations + "\nSub S()\n";
  const auto lines = static_cast<std::int32_t>(std::count(head.begin(), head.end(), '\n'));
  const Program program = MakeProgram(head + body + "\nEnd Sub\n" + more);
  std::string list;
  for (const Use& use : program.Uses(0, "Level")) {
    if (use.line <= lines) continue;
    list += (list.empty() ? "" : ", ") + std::to_string(use.line - lines) + ':' +
            std::to_string(use.column) + ' ' + KindName(use);
  }
  return list;
}

TEST(Uses, StatementsOfABody) {
  const Row rows[] = {
      {"Level = Level + 1", "1:1 write, 1:9 read"},
      {"Let Level = 2: LEVEL = 3", "1:5 write, 1:16 write"},
      {"Set Level = Nothing", "1:5 write"},
      {"x = Level", "1:5 read"},
      {"Mid$(Level, 1, 2) = Level", "1:6 both, 1:21 read"},
      {"Mid(x, Level) = y", "1:8 read"},
      {"LSet Level = a: RSet Level = b", "1:6 both, 1:22 both"},
      {"Get #1, Level, Level", "1:9 read, 1:16 write"},
      {"Put #1, , Level", "1:11 read"},
      {"Input #1, Level, Level", "1:11 write, 1:18 write"},
      {"Line Input #1, Level", "1:16 write"},
      {"Print #1, Level; Tab(3); Level", "1:11 read, 1:26 read"},
      {"Write #Level, Level", "1:8 read, 1:15 read"},
      {"Open Level For Input As #1 Len = Level", "1:6 read, 1:34 read"},
      {"Open p For Binary Access Read Write Lock Read As Level", "1:50 read"},
      {"Close #Level: Seek Level, 3: Lock #1, Level To 9", "1:8 read, 1:20 read, 1:39 read"},
      {"Name Level As x & Level", "1:6 read, 1:19 read"},
      {"Width #1, Level", "1:11 read"},
      {"For Level = 1 To 9 Step Level\nNext Level", "1:5 write, 1:25 read, 2:6 both"},
      {"For Each Level In Levels\nNext", "1:10 write"},
      {"For i = Level To Level\nNext i, Level", "1:9 read, 1:18 read, 2:9 both"},
      {"ReDim Level(1 To n)\nReDim Preserve Level(Level)", "1:7 write, 2:16 both, 2:22 read"},
      {"Erase a, Level", "1:10 write"},
      {"If Level > 1 Then Level = 1 Else Level = 0", "1:4 read, 1:19 write, 1:34 write"},
      {"If a Then\nElseIf Level Then b = Level\nElse: Level = 1\nEnd If",
       "2:8 read, 2:23 read, 3:7 write"},
      {"If Level Then 100", "1:4 read"},
      {"Select Case Level\nCase 1 To Level, Is > Level\nCase Else: Level = 3\nEnd Select",
       "1:13 read, 2:11 read, 2:23 read, 3:12 write"},
      {"Do While Level\nLoop Until Level = 1\nWhile Level: Wend", "1:10 read, 2:12 read, 3:7 read"},
      {"On Level GoTo Level, b", "1:4 read"},
      {"On Error GoTo Level\nGoTo Level\nResume Level\nLevel: Level = 1", "4:8 write"},
      {"10 Level = 1\n20: Level = 2", "1:4 write, 2:5 write"},
      {"a = 1: Level: b = 2", "1:8 unknown"},
      {"Exit Sub\nLevel = 1", "2:1 write"},
      {"Debug.Print Level, Level; \"Level\" ' Level", "1:13 read, 1:20 read"},
      {"x = \"a\"\"Level\" & Level ' \"Level", "1:18 read"},
      {"Rem Level\na = 1: Rem Level\nIf a Then Rem Level", ""},
      {"' Level _\nLevel = 1\nLevel = 2", "3:1 write"},
      {"x = a + _\n  Level _\n  + Level", "2:3 read, 3:5 read"},
      {"[Level] = [level] + Level%", "1:2 write, 1:12 read, 1:21 read"},
      {"x = #1/2/2003# + Level + #12:30:00 PM#: Level = 1", "1:18 read, 1:41 write"},
      {"x = 1E5 + &HE + Level + .5 + 1# + Level", "1:17 read, 1:35 read"},
      {"Const a = Level, b As Long = Level", "1:11 read, 1:30 read"},
      {"Dim a(1 To Level) As String * 5, b", "1:12 read"},
      {"Static n As Long: n = Level", "1:23 read"},
      {"TypeOf Level", "1:8 unknown"},
      {"If TypeOf Level Is Level Then", "1:11 read"},
      {"Set x = New Level", ""},
      {"Error Level", "1:7 read"},
      {"MsgBox Level, , Title:=Level", "1:8 read, 1:24 read"},
      {"x = Level.Value: Level.Value = 2: Level.Go Level",
       "1:5 read, 1:18 read, 1:35 read, 1:44 unknown"},
      {"x = Level!Level + rs!Level", "1:5 read"},
      {"Line (Level, 1)-(Level, 2), Level, B", "1:7 read, 1:18 read, 1:29 read"},
      {"garbage Level ) Level = ", "1:9 unknown, 1:17 unknown"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(UsesInBody("Public Level As Variant", row.body), row.uses) << row.body;
  }
}

TEST(Uses, NamesThatHide) {
  struct Case {
    const char* text;
    const char* uses;
  };
  const Case cases[] = {
      {"Public Level\nSub S(Level)\nLevel = 1: Me.Level = 2: C.Level = 3\nEnd Sub\n"
       "Sub T\nLevel = 4\nEnd Sub",
       "3:15 write, 3:28 write other, 6:1 write"},
      {"Public Level\nSub S()\nx = 1: Dim a, Level: Level = 1\nEnd Sub", ""},
      {"Public Level\nSub S()\nLevel = 1\nDim Level\nLevel = 2\nEnd Sub", "3:1 unknown??"},
      {"Public Level\nSub S()\nStatic Level\nLevel = 1\nEnd Sub\nSub T()\nConst Level = 1\nx = "
       "Level\n"
       "End Sub",
       ""},
      {"Public Level\nSub S()\nReDim Level(3)\nEnd Sub", "3:7 write"},
      {"Sub S()\nReDim Level(3): Level(1) = 2\nEnd Sub\nSub T()\nx = Level: Level = 1: Me.Level = "
       "2\nEnd Sub",
       "5:5 read?, 5:12 write?, 5:26 write?"},
      {"Public Level\n#If A Then\nPublic Rest\n#End If\nSub S()\n#If A Then\nDim Level\nLevel = "
       "1\n#Else\n"
       "Level = 2\n#End If\nLevel = 3\nEnd Sub",
       "10:1 write, 12:1 unknown??"},
      {"Public Level\n#If A Then\nSub S(Level)\n#Else\nSub S(ByVal x)\n#End If\nLevel = 1\nEnd "
       "Sub\n"
       "Sub T()\nLevel = 2\nEnd Sub",
       "7:1 unknown??, 10:1 write"},
      {"Function Level()\nLevel = 1: x = Level: y = Level()\nEnd Function\nSub S()\nx = Level: "
       "Level\n"
       "Call Level: Level 1: Set o = Level.x\nEnd Sub",
       "2:1 write, 2:16 read, 2:27 call, 5:5 call, 5:12 call, 6:6 call, 6:13 call, 6:30 call"},
      {"Property Get Level()\nLevel = m\nEnd Property\nProperty Let Level(v)\nm = v\nEnd Property\n"
       "Sub S()\nLevel = Level + 1: Mid(Level, 1) = x\nEnd Sub",
       "2:1 write, 8:1 write, 8:9 read, 8:24 both"},
      {"Enum E\nLevel\nTop = Level + 1\nEnd Enum\nType Level\nLevel As Long\nEnd Type\nSub S()\nx "
       "= Level + E.Level\n"
       "Dim r As Level: r.Level = 1\nEnd Sub",
       "3:7 read, 9:5 read, 9:15 read"},
      {"Event Level(x)\nSub S()\nRaiseEvent Level(1)\nEnd Sub", "3:12 call"},
      {"Declare Sub Level Lib \"Level\" (ByVal Level)\nSub S()\nLevel 1: p = AddressOf Level\nEnd "
       "Sub",
       "3:1 call, 3:24 call"},
      {"Public Level\nSub S(): Level = 1: End Sub\nFunction F(Optional x = Level): F = Level: End "
       "Function",
       "2:10 write, 3:25 read, 3:37 read"},
      {"Public Level\nSub S()\nLevel: Level = 1: GoTo Level\nEnd Sub", "3:8 write"},
      {"Public Level As Double\nSub S()\nDim \xC3\x84, b: \xC3\x84 = Level: b = \"\xC3\x9F\" & "
       "Level\nEnd Sub",
       "3:15 read, 3:32 read"},
      {"Public \xC3\x84rger\nSub S()\nLevel = \xC3\xA4RGER\nEnd Sub", "3:1 write?"},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(ListUses(MakeProgram(row.text), "Level"), row.uses) << row.text;
  }
  const Program umlaut = MakeProgram("Public \xC3\x84rger\nSub S()\nx = \xC3\xA4RGER\nEnd Sub");
  EXPECT_EQ(ListUses(umlaut, "\xC3\xA4rger"), "3:5 read");
}

TEST(Uses, TypesOfVariables) {
  const Row rows[] = {
      {"Arr(1) = 2: x = Arr(1): Set Arr(2) = y: Arr = z",
       "1:1 write, 1:17 read, 1:29 write, 1:41 write"},
      {"Obj = 1: Obj.x = 2: Set Obj = y: Obj(1) = 2: Obj.Run",
       "1:1 read, 1:10 read, 1:25 write, 1:34 read, 1:46 read"},
      {"Rec.a = 1: x = Rec.b.c: Rec = y: With Rec: .a = 2: y = .b: End With",
       "1:1 write, 1:16 read, 1:25 write, 1:39 both"},
      {"With Rec.b: .c = 1: End With: Fill Rec.a", "1:6 write, 1:36 write"},
      {"Var(1) = 2: x = Var(1): Var.x = 3: Set Var = y",
       "1:1 unknown, 1:17 read, 1:25 read, 1:40 write"},
      {"Ext = 1: Ext.x = 1: Set Ext = y", "1:1 unknown, 1:10 read, 1:25 write"},
  };
  for (const Row& row : rows) {
    const std::string word = std::string(row.body).substr(row.body[0] == 'W' ? 5 : 0, 3);
    const Program program = MakeProgram(
        "Type TPart: c As Long: End Type\nType TRec: a As Long: b As TPart: End Type\n"
        "Public Arr() As Long, Obj As Object, Rec As TRec, Var, Ext As Other.Thing\n"
        "Sub Fill(v): v = 1: End Sub\nSub S()\n" +
        std::string(row.body) + "\nEnd Sub");
    std::string uses = ListUses(program, word);
    for (std::size_t at = 0; (at = uses.find("6:", at)) != std::string::npos; ++at) {
      if (at == 0 || uses[at - 1] == ' ') uses[at] = '1';
    }
    EXPECT_EQ(uses, row.uses) << row.body;
  }
}

TEST(Uses, MembersOfObjects) {
  const Program program = MakeProgram(
      "Public Level As Double, Part As CPart\n"                                            // 1
      "Sub S(ByVal o As Object, p As CPart, q As C, r As ADODB.Recordset, s As Proj.C)\n"  // 2
      "Me.Level = o.Level + p.Level + q.Level + r.Level + s.Level\n"                       // 3
      "With Me\n.Level = .Part.Level: .Part.Owner.Level = 1\n"                             // 4, 5
      "With p: .Level = 1: End With: .Level = 2\nEnd With\n"                               // 6, 7
      "x = p.Owner.Level + p.Find(1).Level + GetMe().Level + New C.Level\n"                // 8
      "With New C: .Level = 1: End With\n"                                                 // 9
      "MMain.Level = Proj.MMain.Level + Level: M2.Level = 2\n"                             // 10
      "CallByName o, \"Level\", VbLet, Level\n"                                            // 11
      "p.Items(Level).Level = Arr(1).Level: (o).Level = 1\n"                               // 12
      "Run .Level: Run _\n  .Level\n"                                                      // 13, 14
      "Err.Level = 1: VBA.Level = Debug.Level\n"                                           // 15
      "#If A Then\nWith Me\n#Else\nWith p\n#End If\n.Level = 1\nEnd With\n"  // 16 to 22
      "End Sub\n"
      "Function GetMe() As C: End Function",
      {{"CPart", "Proj", ModuleKind::kClass,
        "Public Level As Double, Owner As C\n"
        "Public Arr(3) As C\nFunction Find(i)\nEnd Function"},
       {"MMain", "Proj", ModuleKind::kStandard,
        "Public Level\nPublic gC As New C\nSub T(): gC.Level = Level: End Sub"},
       {"X", "Q", ModuleKind::kClass, "Sub T(c As C, o): Level = c.Level + o.Level: End Sub"}});
  EXPECT_EQ(ListUses(program, "Level"),
            "3:4 write, 3:14 unknown??, 3:34 read other, 3:54 read other, 5:2 write, "
            "5:35 write other, 6:32 write, 8:13 read other, 8:31 unknown??, 8:47 read other, "
            "9:14 write other, 10:34 read, 10:44 unknown??, 11:16 unknown??, 11:31 unknown, 12:9 "
            "unknown, "
            "12:16 unknown??, 12:31 unknown??, 12:42 unknown??, 13:6 unknown??, 14:4 unknown??, "
            "21:2 unknown??, MMain 3:13 write other, X 1:29 read other, X 1:39 unknown??");
  EXPECT_EQ(ListUses(program, "Level", program.FindModule("MMain")),
            "10:7 write, 10:26 read, MMain 3:21 read");
}

// What an argument is used for is looked up in the procedure that takes it.
TEST(Uses, ArgumentsOfCalls) {
  const Row rows[] = {
      {"Show Level: Fill Level: Change Level", "1:6 read, 1:18 write, 1:32 both"},
      {"Copy Level: Call Copy(Level): Fill (Level): Fill(Level)",
       "1:6 read, 1:23 read, 1:37 read, 1:50 read"},
      {"Call Fill(Level): Call Fill((Level)): Fill Level + 1: Fill ByVal Level",
       "1:11 write, 1:30 read, 1:44 read, 1:66 read"},
      {"Two Level, 2: Two 1, Level: Two Second:=Level: Two , Level",
       "1:5 read, 1:22 write, 1:41 write, 1:54 write"},
      {"Deep Level: Ping Level: Pong Level", "1:6 write, 1:18 both, 1:30 both"},
      {"x = Calc(Level): Calc Level", "1:10 both, 1:23 both"},
      {"x = Idle(Level): Many 1, Level, Level", "1:10 read, 1:26 read, 1:33 read"},
      {"Lib Level, Level, Level", "1:5 unknown, 1:12 read, 1:19 unknown"},
      {"o.Run Level: Unknown Level: x = Unknown(Level)", "1:7 unknown, 1:22 unknown, 1:41 unknown"},
      {"x = Left(Level, Level): MsgBox Level: Err.Raise Level: VBA.Left Level, 1",
       "1:10 read, 1:17 read, 1:32 read, 1:49 read, 1:65 read"},
      {"Fill Me.Level: With Me: Fill .Level: End With", "1:9 read, 1:31 read"},
      {"list.Add Level, CStr(Level): x = list(Level)", "1:10 read, 1:22 read, 1:39 read"},
      {"Prop(Level) = 1: x = Prop(Level)", "1:6 write, 1:27 read"},
      {"RaiseEvent Ev(Level, Level)", "1:15 unknown, 1:22 read"},
      {"x = Field(Level)(Level)", "1:11 read, 1:18 read"},
  };
  const std::string more =
      "Sub Show(v): x = v: End Sub\nSub Fill(v): v = 1: End Sub\n"
      "Sub Change(v): v = v + 1: End Sub\nSub Copy(ByVal v): v = 1: End Sub\n"
      "Sub Two(Optional First, Optional Second): x = First: Second = 1: End Sub\n"
      "Sub Deep(a): Middle a: End Sub\nSub Middle(b): Fill b: End Sub\n"
      "Sub Ping(v): Pong v: End Sub\nSub Pong(v): Ping v: v = v: End Sub\n"
      "Function Calc(v): Calc = v: v = 0: End Function\nFunction Idle(v): End Function\n"
      "Sub Many(ParamArray v()): x = v(1): End Sub\n"
      "Property Let Prop(i, v): i = 1: End Property\nProperty Get Prop(i): Prop = i: End "
      "Property\n";
  for (const Row& row : rows) {
    EXPECT_EQ(
        UsesInBody("Public Level As Double, list As Collection, Field() As Variant\n"
                   "Event Ev(a, ByVal b)\n"
                   "Declare Sub Lib Lib \"x\" (a As Long, ByVal b As Long, ByVal c As String)",
                   row.body, more),
        row.uses)
        << row.body;
  }
}

TEST(Uses, WordUnderACursor) {
  const Program program =
      MakeProgram("Public Level\nSub S(x)\n\xC3\xA4 = [Level] + Me.Level: x\nEnd Sub");
  const auto name_at = [&](std::int32_t line, std::int32_t column) {
    const std::int32_t found = program.FindReference(0, line, column);
    if (found == kNone) return std::string("-");
    return std::string(
        program.Text(program.module(0).code.references[static_cast<std::size_t>(found)].name));
  };
  const struct {
    std::int32_t line, column;
    const char* name;
  } rows[] = {{3, 1, "\xC3\xA4"}, {3, 2, "\xC3\xA4"}, {3, 3, "-"},   {3, 6, "Level"},
              {3, 11, "Level"},   {3, 12, "-"},       {3, 16, "me"}, {3, 18, "Level"},
              {3, 25, "x"},       {3, 99, "x"},       {1, 9, "-"},   {0, 1, "-"},
              {9, 1, "-"}};
  for (const auto& row : rows) {
    EXPECT_EQ(name_at(row.line, row.column), row.name) << row.line << ':' << row.column;
  }
}

}  // namespace
}  // namespace vbcode
