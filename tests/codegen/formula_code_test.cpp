// SPDX-License-Identifier: MIT
// The generator's operations on source of every shape: text before, text after. No database here;
// headers list no arguments.
#include "codegen/vb_formula_code.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "codegen/class_differences.h"
#include "codegen/sub_lines.h"
#include "files/memory_file_system.h"
#include "tests/support/code_model_wrappers.h"
#include "tests/support/project_doubles.h"
#include "tests/support/sentence.h"
#include "texts/text_table.h"
#include "vbfiles/environment.h"

namespace codegen {
namespace {

constexpr std::string_view kClass = "PumpServer.CPump";
const std::string kRule = "'" + std::string(56, '*');

// The header of a formula without arguments, lines apart by LF.
std::string Header(const std::string& name) {
  return "\n" + kRule + "\n'OrvanaStudio Formula '" + name + "'\n'Arguments:\n" + kRule + "\n";
}

class Fixture {
 public:
  Fixture(const std::string& code, bool documented)
      : environment(std::make_shared<vbfiles::Environment>(system)),
        generator(texts, &items, &components) {
    system.Put("/p/PumpServer.vbp",
               "Type=OleDll\r\nClass=CPump; CPump.cls\r\nName=\"PumpServer\"\r\n");
    std::string bytes = "VERSION 1.0 CLASS\nBEGIN\nEND\nAttribute VB_Name = \"CPump\"\n" + code;
    for (std::size_t at = 0; (at = bytes.find('\n', at)) != std::string::npos; at += 2) {
      bytes.replace(at, 1, "\r\n");
    }
    system.Put("/p/CPump.cls", bytes);
    environment->Open("/p/PumpServer.vbp");
    std::shared_ptr<platform::VBE> vbe = environment;
    if (documented) vbe = support::WithDocumentedOwnership(environment);
    generator.Initialize(nullptr, vbe, "Plant");
  }

  // The file as it would be written, behind the class's name.
  std::string Text() {
    files::ChangeSet changes;
    environment->Collect(changes);
    std::string text = changes.files.empty() ? system.Get("/p/CPump.cls") : *changes.files[0].after;
    std::erase(text, '\r');
    return text.substr(text.find("\"CPump\"\n") + 8);
  }
  bool Changed() {
    files::ChangeSet changes;
    environment->Collect(changes);
    return !changes.files.empty();
  }

  files::MemoryFileSystem system;
  texts::TextTable texts{texts::Language::kEnglish};
  support::TableItems items;
  support::RecordingComponentList components;
  std::shared_ptr<vbfiles::Environment> environment;
  CVBFormulaCode generator;
};

struct Case {
  const char* what;
  std::string before;
  std::function<void(CVBFormulaCode&)> operation;
  std::string after;
  std::vector<std::int32_t> warnings = {};
  bool refused = false;
};

std::vector<Case> Cases() {
  const auto add = [](CVBFormulaCode& g) { g.AddFunction(kClass, "A", ""); };
  const auto rename = [](CVBFormulaCode& g) { g.RenameFunction(kClass, "A", "B"); };
  const auto off = [](CVBFormulaCode& g) { g.DeactivateFunction(kClass, "A"); };
  const auto remove = [](CVBFormulaCode& g) { g.DeleteFunction(kClass, "A"); };
  const auto rebuild = [](CVBFormulaCode& g) { g.RebuildFunctionCommentHeader("A", kClass); };
  const auto declare = [](CVBFormulaCode& g) { g.AddParameter(kClass, "Level", "Tank1.Level"); };
  const auto undeclare = [](CVBFormulaCode& g) {
    g.DeleteParameter(kClass, "Level", {1, "A", 1, 0});
  };
  // The code stays as it is: the operation is refused, or it warns.
  const auto refused = [](const char* what, const std::string& code, const auto& operation) {
    return Case{what, code, operation, code, {}, true};
  };
  const auto kept = [](const char* what, const std::string& code, const auto& operation,
                       std::vector<std::int32_t> warnings) {
    return Case{what, code, operation, code, std::move(warnings)};
  };
  const std::string sub = "Public Sub A()\n\nEnd Sub\n";
  return {
      // Adding.
      {"an empty class", "", add, Header("A") + sub},
      {"blank lines at the end go", "Option Explicit\n\n\n", add,
       "Option Explicit\n" + Header("A") + sub},
      {"comments at the end stay", "Sub B()\nEnd Sub\n\n' my notes\n", add,
       "Sub B()\nEnd Sub\n\n' my notes\n" + Header("A") + sub},
      {"a header that lost its sub stays", Header("A") + "\n", add,
       Header("A") + Header("A") + sub},
      {"a comment that continues", "' goes on _\n", add, "' goes on _\n\n" + Header("A") + sub},
      {"an existing sub is adopted",
       "' note\nStatic Sub a() 'mine\nx = 1\nEnd Sub\n",
       add,
       "' note\n" + Header("A") + "Static Sub a() 'mine\nx = 1\nEnd Sub\n",
       {1117}},
      {"so is one behind an #If block",
       "#If X Then\n' _\n#If\n#End If\nSub A()\nEnd Sub\n",
       add,
       "#If X Then\n' _\n#If\n#End If\n" + Header("A") + "Sub A()\nEnd Sub\n",
       {1117}},
      {"that of a formula is its own", Header("A") + "Sub a()\nEnd Sub\n", add,
       Header("A") + "Sub a()\nEnd Sub\n"},
      refused("a sub with parameters", Header("A") + "Sub A( _\n  Optional x)\nEnd Sub\n", add),
      refused("a private sub", "Private Sub A()\nEnd Sub\n", add),
      refused("a friend", "Friend Sub A()\nEnd Sub\n", add),
      refused("a sub in an #If block", "#If X Then\n#Else\nSub A()\nEnd Sub\n#End If\n", add),
      refused("a property of that name", "Property Get A()\nEnd Property\n", add),
      refused("a function of that name", "Function A()\nEnd Function\n", add),
      refused("a variable of that name", "Private A As Long\n", add),
      refused("a declared external procedure", "Private Declare Sub A Lib \"a\" ()\n", add),
      refused("an enumeration's element of that name", "Enum EState\n  A = 1\nEnd Enum\n", add),
      {"given code with a header of its own", "' tail\n",
       [](CVBFormulaCode& g) {
         g.AddFunction(kClass, "A", "' from elsewhere\r\nPublic Sub A()\r\n  x = 1\r\nEnd Sub");
       },
       "' tail\n' from elsewhere\n" + Header("A") + "Public Sub A()\n  x = 1\nEnd Sub\n"},
      {"given code without the sub",
       "",
       [](CVBFormulaCode& g) { g.AddFunction(kClass, "A", "Sub C()\r\nEnd Sub"); },
       "Sub C()\nEnd Sub\n",
       {1108}},
      {"a name that is none",
       "",
       [](CVBFormulaCode& g) { g.AddFunction(kClass, "A: x", ""); },
       "",
       {},
       true},
      {"a reserved word",
       "",
       [](CVBFormulaCode& g) { g.AddFunction(kClass, "Next", ""); },
       "",
       {},
       true},
      {"no such class",
       "",
       [](CVBFormulaCode& g) { g.AddFunction("PumpServer.CX", "A", ""); },
       "",
       {1100}},
      {"no point in the class",
       "",
       [](CVBFormulaCode& g) { g.AddFunction("PumpServer", "A", ""); },
       "",
       {1100}},

      // Renaming.
      {"only the declaration line", "Sub C()\nA\nEnd Sub\n" + Header("A") + sub, rename,
       "Sub C()\nA\nEnd Sub\n" + Header("B") + "Public Sub B()\n\nEnd Sub\n"},
      {"one line keeps its statements", "Public Sub A(): x = 1: End Sub\n", rename,
       Header("B") + "Public Sub B(): x = 1: End Sub\n"},
      {"a continued declaration",
       "Public Sub A(ByVal x As Long, _\n  ByVal y)\nEnd Sub\n",
       rename,
       Header("B") + "Public Sub B(ByVal x As Long, _\n  ByVal y)\nEnd Sub\n",
       {1118}},
      {"a name in the second line, with hidden lines",
       "Private Sub _\n  [A] (x): y: End Sub\nAttribute A.VB_Description = \"d\"\n",
       rename,
       Header("B") + "Private Sub _\n  B (x): y: End Sub\nAttribute B.VB_Description = \"d\"\n",
       {1118}},
      {"a static one stays static", "Public Static Sub A() 'x\nEnd Sub\n", rename,
       Header("B") + "Public Static Sub B() 'x\nEnd Sub\n"},
      {"continued without parameters", "Private Sub A _\n  ()\nEnd Sub\n", rename,
       Header("B") + "Public Sub B()\n'  ()\nEnd Sub\n"},
      refused("renamed by hand to what is no formula", "Private Sub B()\nEnd Sub\n", rename),
      {"renamed by hand", Header("A") + "Sub B()\nEnd Sub\n", rename,
       Header("B") + "Sub B()\nEnd Sub\n"},
      {"renamed to one that stands",
       "Sub B()\nEnd Sub\n",
       rename,
       Header("B") + "Sub B()\nEnd Sub\n",
       {1117}},
      {"hidden lines follow", "Public Sub A()\nAttribute A.VB_Description = \"d\"\nEnd Sub\n",
       rename, Header("B") + "Public Sub B()\nAttribute B.VB_Description = \"d\"\nEnd Sub\n"},
      {"every branch of an #If block",
       "#If X Then\nSub A()\nEnd Sub\n#Else\nSub A()\nEnd Sub\n#End If\n", rename,
       "#If X Then\n" + Header("B") +
           "Public Sub B()\nEnd Sub\n#Else\nPublic Sub B()\nEnd Sub\n#End If\n"},
      {"only the case", Header("A") + "Public Sub a()\nEnd Sub\n",
       [](CVBFormulaCode& g) { g.RenameFunction(kClass, "a", "A"); },
       Header("A") + "Public Sub A()\nEnd Sub\n"},
      refused("onto another member", "Public B As Long\nPublic Sub A()\nEnd Sub\n", rename),
      refused("onto another sub", "Public Sub B()\nEnd Sub\nPublic Sub A()\nEnd Sub\n", rename),
      {"deleted by hand",
       "Option Explicit\n",
       rename,
       "Option Explicit\n" + Header("B") + "Public Sub B()\n\nEnd Sub\n",
       {1102}},
      {"deleted by hand, notes at the end",
       "' my notes\n",
       rename,
       "' my notes\n" + Header("B") + "Public Sub B()\n\nEnd Sub\n",
       {1102}},
      {"renamed already", Header("B") + "Public Sub B()\nEnd Sub\n", rename,
       Header("B") + "Public Sub B()\nEnd Sub\n"},
      {"a function is no formula",
       "Function A()\nEnd Function\n",
       rename,
       "Function A()\nEnd Function\n" + Header("B") + "Public Sub B()\n\nEnd Sub\n",
       {1102}},

      // Switching off.
      {"the last line is the procedure's own",
       "Public Sub A()\n' c\n\nDone: End Sub\nPublic Sub B()\nEnd Sub\n", off,
       "'Public Sub A()\n'' c\n'\n'Done: End Sub\nPublic Sub B()\nEnd Sub\n"},
      {"blank lines below the last procedure stay", "Public Sub A()\n\tEnd Sub 'x\n\n\n", off,
       "'Public Sub A()\n'\tEnd Sub 'x\n\n\n"},
      {"nor do they without an end", "Public Sub A()\nx = 1\n\n\n", off,
       "'Public Sub A()\n'x = 1\n\n\n"},
      {"one line", "Public Sub A(): End Sub\nPublic Sub B()\nEnd Sub\n", off,
       "'Public Sub A(): End Sub\nPublic Sub B()\nEnd Sub\n"},
      {"a comment that goes on is no end",
       "Public Sub A()\n' until _\nEnd Sub\nx = 1\n10 Rem End Sub\nEnd Sub\nSub B()\nEnd Sub\n",
       off,
       "'Public Sub A()\n'' until _\n'End Sub\n'x = 1\n'10 Rem End Sub\n'End Sub\n"
       "Sub B()\nEnd Sub\n"},
      {"every branch of an #If block",
       "#If X Then\nSub A()\nEnd Sub\n#Else\nSub A()\nEnd Sub\n#End If\n", off,
       "#If X Then\n'Sub A()\n'End Sub\n#Else\n'Sub A()\n'End Sub\n#End If\n"},
      {"hidden lines become comments", "Public Sub A()\nAttribute A.VB_UserMemId = 0\nEnd Sub\n",
       off, "'Public Sub A()\n'Attribute A.VB_UserMemId = 0\n'End Sub\n"},
      {"an #If block across the procedure",
       "#If X Then\nPublic Sub A(y)\n#Else\nPublic Sub A()\n#End If\nEnd Sub\n",
       off,
       "#If X Then\n'Public Sub A(y)\n#Else\n'Public Sub A()\n#End If\n'End Sub\n",
       {1110}},
      {"an #If block inside", "Public Sub A()\n#If X Then\nz\n#End If\nEnd Sub\n", off,
       "'Public Sub A()\n'#If X Then\n'z\n'#End If\n'End Sub\n"},
      kept("a property is no formula", "Property Get A()\nEnd Property\n", off, {1101}),
      kept("a variable is no formula", "Public A As Long\n", off, {1101}),
      kept("nor is a declared external procedure", "Private Declare Sub A Lib \"a\" ()\n", off,
           {1101}),

      // Deleting.
      {"up to its end only", Header("A") + sub + Header("B") + "Public Sub B()\nEnd Sub\n", remove,
       Header("A") + Header("B") + "Public Sub B()\nEnd Sub\n"},
      {"not the code behind it", "' note\nPublic Sub A()\nEnd Sub\nPublic Sub B()\nEnd Sub\n",
       remove, "' note\nPublic Sub B()\nEnd Sub\n"},
      kept("no function", "Function A()\nEnd Function\n", remove, {1101}),
      kept("no property", "Property Get A()\nEnd Property\n", remove, {1101}),
      kept("no variable", "Public A As Long\n", remove, {1101}),
      {"not the ends of an #If block",
       "#If X Then\nPublic Sub A(y)\n#Else\nPublic Sub A()\n#End If\nz\nEnd Sub\n",
       remove,
       "#If X Then\n#Else\n#End If\n",
       {1110}},

      // Headers.
      {"notes stay above", "Option Explicit\n\n' note\nPublic Sub A()\nEnd Sub\n", rebuild,
       "Option Explicit\n\n' note\n" + Header("A") + "Public Sub A()\nEnd Sub\n"},
      {"switched-off code is another's",
       "Option Explicit\n'Public Sub Z()\n'End Sub 'done\n\nPublic Sub A()\nEnd Sub\n", rebuild,
       "Option Explicit\n'Public Sub Z()\n'End Sub 'done\n" + Header("A") +
           "Public Sub A()\nEnd Sub\n"},
      {"the first line of a module", "Public Sub A()\nEnd Sub\n", rebuild,
       Header("A") + "Public Sub A()\nEnd Sub\n"},
      {"directives stay", "#If X Then\n#End If\n\nPublic Sub A()\nEnd Sub\n", rebuild,
       "#If X Then\n#End If\n" + Header("A") + "Public Sub A()\nEnd Sub\n"},
      {"the environment's spelling stands",
       "\n" + kRule + "\n'OrvanaStudio  Formula 'A'\n'  Arguments:\n" + kRule +
           "\nPublic Sub A()\nEnd Sub\n",
       rebuild,
       "\n" + kRule + "\n'OrvanaStudio  Formula 'A'\n'  Arguments:\n" + kRule +
           "\nPublic Sub A()\nEnd Sub\n"},

      // Declarations.
      {"behind the declarations", "Option Explicit\n' c\nSub B()\nEnd Sub\n", declare,
       "Option Explicit\nPublic Level as Double 'Tank1.Level\n' c\nSub B()\nEnd Sub\n"},
      {"below a comment that continues", "Option Explicit\n' c _\n", declare,
       "Option Explicit\n' c _\n\nPublic Level as Double 'Tank1.Level\n"},
      {"declared already", "Dim LEVEL\n", declare, "Dim LEVEL\n"},
      {"a name that Visual Basic may not take",
       "",
       [](CVBFormulaCode& g) { g.AddParameter(kClass, "_X", "a"); },
       "Public _X as Variant 'a\n",
       {1124}},
      {"an item that would leave its comment", "",
       [](CVBFormulaCode& g) { g.AddParameter(kClass, "X", "a\r\nSub Y()"); },
       "Public X as Variant 'a  Sub Y()\n"},
      {"an item that would take the next line", "",
       [](CVBFormulaCode& g) { g.AddParameter(kClass, "X", "a _"); },
       "Public X as Variant 'a _'\n"},
      {"an alias that is no name",
       "",
       [](CVBFormulaCode& g) { g.AddParameter(kClass, "X: Beep", "a"); },
       "",
       {1109}},
      {"an engineer's declaration is commented out",
       "Public Level As Long\n" + Header("A") + "Public Sub A()\nLevel = 1\nEnd Sub\n",
       [](CVBFormulaCode& g) {
         g.DeleteParameter(kClass, "level", {1, "A", 1, 0});
       },
       "'Public Level As Long\n" + Header("A") + "Public Sub A()\nLevel = 1\nEnd Sub\n",
       {1112, 1103}},
      kept("another's declaration is left", "Public Level As Long, B1 As Long\n", undeclare,
           {1104, 1101}),
      kept("so is one that is not public", "Private Level As Long\n", undeclare, {1104, 1101}),
      kept("one of objects with events", "Public WithEvents Level As CPort\n", undeclare,
           {1104, 1101}),
      kept("one that begins in the line above", "Private B1 As Long: _\nPublic Level As Long\n",
           undeclare, {1104, 1101}),
      kept("one that goes on in the next line", "Public Level _\n  As Long\n", undeclare,
           {1104, 1101}),
      kept("a procedure of that name", "Public Sub Level()\nEnd Sub\n", undeclare, {1104, 1101}),
  };
}

TEST(FormulaCodeTest, ChangesExactlyWhatIsMeant) {
  for (const bool documented : {false, true}) {
    for (const Case& c : Cases()) {
      SCOPED_TRACE(std::string(c.what) + (documented ? " (documented ownership)" : ""));
      Fixture fixture(c.before, documented);
      fixture.items.types = {{"Tank1.Level", 5}};
      c.operation(fixture.generator);
      const std::string text = fixture.Text();
      EXPECT_EQ(text, c.after);
      std::vector<std::int32_t> warnings;
      for (const messages::Message& warning : fixture.generator.TakeWarnings()) {
        warnings.push_back(ToInt(warning.number()));
        const std::string said = support::Sentence(warning);
        EXPECT_EQ(said.find("not found"), std::string::npos) << said;
      }
      if (c.refused) {
        EXPECT_EQ(warnings.size(), 1u);
      } else {
        EXPECT_EQ(warnings, c.warnings);
      }
      EXPECT_EQ(fixture.Changed(), c.before != text);
      // Once more: what stands is not touched.
      if (c.refused || !c.warnings.empty()) continue;
      c.operation(fixture.generator);
      EXPECT_EQ(fixture.Text(), text);
    }
  }
}

// What is only looked at stays; mended, each place is as wanted.
TEST(FormulaCodeTest, SaysWhereAClassDiffers) {
  Fixture fixture(
      "Public Gone as Double 'T.Gone\nPublic Own As Long\nPublic X1 As Long, X2 As Long\n" +
          Header("A") + "Public Sub A()\nEnd Sub\n",
      false);
  platform::CodeModule& module =
      *fixture.environment->FindProject("PumpServer")->FindComponent("CPump")->Module();
  const Templates templates(fixture.texts);
  const WantedClass wanted = {"PumpServer.CPump",
                              {{"Gone", {"T.Gone"}}, {"Own", {"T.Own"}}, {"X2", {"T.X"}}},
                              {{"Level", "T.Level", "Double"}},
                              {{"A", {"Level"}}, {"B", {}}}};
  using Kind = Difference::Kind;
  using Seen = std::vector<std::pair<Kind, std::string>>;
  const auto differences = [&](bool mend) {
    Seen seen;
    Compare(module, wanted, templates, [&](const Difference& difference) {
      std::string text = difference.names[0] + " " + std::to_string(difference.line);
      if (difference.kind != Kind::kHeader) {
        for (const std::string& line : difference.now) text += "|-" + line;
        for (const std::string& line : difference.wanted) text += "|+" + line;
      }
      seen.emplace_back(difference.kind, text);
      if (mend) RewriteLines(module, difference.line, difference.now, difference.wanted);
    });
    return seen;
  };
  const Seen left = {{Kind::kLeftDeclaration, "X2 3"}, {Kind::kNoSub, "B 0"}};
  const Seen all = {left[0],
                    {Kind::kForeignDeclaration, "Own 2|-Public Own As Long|+'Public Own As Long"},
                    {Kind::kLooseDeclaration, "Gone 1|-Public Gone as Double 'T.Gone"},
                    {Kind::kNoDeclaration, "Level 4|+Public Level as Double 'T.Level"},
                    {Kind::kHeader, "A 4"},
                    left[1]};
  EXPECT_EQ(differences(false), all);
  EXPECT_FALSE(fixture.Changed());
  differences(true);
  const Seen now = differences(false);
  EXPECT_EQ(now, (Seen{{Kind::kLeftDeclaration, "X2 2"}, left[1]}));
}

TEST(FormulaCodeTest, WarnsNearTheLimitsOfVisualBasic) {
  std::string module = "Sub A()\n" + std::string(1010, 'x') + "\nEnd Sub\n";
  for (int i = 0; i < 63800; ++i) module += "'\n";
  Fixture fixture(module, false);
  fixture.generator.DeactivateFunction(kClass, "A");
  fixture.generator.AddFunction(kClass, "B", "");
  const std::vector<messages::Message> warnings = fixture.generator.TakeWarnings();
  ASSERT_EQ(warnings.size(), 2u);
  EXPECT_EQ(
      support::Sentence(warnings[0]),
      "CPump.cls:2 has 1011 characters; Visual Basic accepts 1023 at most. Shorten the line.");
  EXPECT_EQ(ToInt(warnings[1].number()), 1107);
}

TEST(FormulaCodeTest, HeaderEndsBelowSwitchedOffCode) {
  for (const bool documented : {false, true}) {
    Fixture fixture("Option Explicit\n" + Header("Z") + "'Public Sub Z()\n'End Sub\n" +
                        Header("A") + "Public Sub A()\nEnd Sub\n",
                    documented);
    std::string header = fixture.generator.GetFunctionCommentHeader("A", kClass);
    std::erase(header, '\r');
    EXPECT_EQ(header + "\n", Header("A"));
    fixture.generator.ReplaceFunctionCommentHeader("A", kClass, "\r\n' mine\r\n");
    EXPECT_EQ(fixture.Text(),
              "Option Explicit\n" + Header("Z") +
                  "'Public Sub Z()\n'End Sub\n\n' mine\n\nPublic Sub A()\nEnd Sub\n");
    EXPECT_EQ(fixture.generator.GetFunctionCommentHeader("Z", kClass), "");
  }
}

// The environment may have rewritten a header: what still says the same keeps its spelling.
TEST(FormulaCodeTest, WritesOnlyTheLinesThatDiffer) {
  class Recorder : public support::ModuleWrapper {
   public:
    using ModuleWrapper::ModuleWrapper;
    void InsertLines(std::int32_t line, std::string_view text) override {
      edits += "+" + std::to_string(line) + " " + std::string(text) + "|";
      ModuleWrapper::InsertLines(line, text);
    }
    void ReplaceLine(std::int32_t line, std::string_view text) override {
      edits += "~" + std::to_string(line) + " " + std::string(text) + "|";
      ModuleWrapper::ReplaceLine(line, text);
    }
    void DeleteLines(std::int32_t start, std::int32_t count) override {
      edits += "-" + std::to_string(start) + " " + std::to_string(count) + "|";
      ModuleWrapper::DeleteLines(start, count);
    }
    std::string edits;
  };
  using Lines = std::vector<std::string>;
  const struct {
    Lines before, wanted;
    const char* edits;
    Lines after;
  } kCases[] = {
      {{"a", "'  B"}, {"A", "'\tB"}, "", {"a", "'  B"}},
      {{"a", "b", "d"}, {"A", "b", "c", "D"}, "+4 c|", {"a", "b", "c", "d"}},
      {{"a", "b", "c", "d"}, {"A", "D"}, "-3 2|", {"a", "d"}},
      {{"a", "b", "c"}, {"A", "x", "C"}, "~3 x|", {"a", "x", "c"}},
      {{"a", "b", "c", "d"}, {"x", "b", "y"}, "~2 x|~4 y|-5 1|", {"x", "b", "y"}},
      {{}, {"x", "y"}, "+2 x\r\ny|", {"x", "y"}},
      {{"a"}, {}, "-2 1|", {}},
  };
  for (const auto& c : kCases) {
    std::string text = "'first\n";
    for (const std::string& line : c.before) text += line + "\n";
    Fixture fixture(text + "'last\n", false);
    Recorder module(
        *fixture.environment->FindProject("PumpServer")->FindComponent("CPump")->Module());
    RewriteLines(module, 2, c.before, c.wanted);
    EXPECT_EQ(module.edits, c.edits);
    text = "'first\n";
    for (const std::string& line : c.after) text += line + "\n";
    EXPECT_EQ(fixture.Text(), text + "'last\n");
  }
}

TEST(FormulaCodeTest, KeepsTheComponentList) {
  Fixture fixture("", false);
  fixture.generator.AddFunction(kClass, "A", "");
  const std::vector<std::string> added = {"Open Plant", "Add FormulaComponents PumpServer.CPump",
                                          "Commit"};
  EXPECT_EQ(fixture.components.calls, added);
  fixture.components.calls.clear();
  fixture.generator.DeactivateFunction(kClass, "A");
  EXPECT_EQ(fixture.components.calls,
            (std::vector<std::string>{"Open Plant", "Remove FormulaComponents PumpServer.CPump",
                                      "Commit"}));
}

TEST(FormulaCodeTest, ShowsTheDeclaration) {
  class Caller : public CodeWindowCaller {
   public:
    void BringCodeWindowForward() override { ++calls; }
    int calls = 0;
  };
  Caller caller;
  Fixture fixture("Option Explicit\nPublic Sub F\xFCllen()\nEnd Sub\n", false);
  EXPECT_FALSE(fixture.generator.ShowFunction(caller, kClass, "B"));
  EXPECT_EQ(caller.calls, 0);
  EXPECT_TRUE(fixture.generator.ShowFunction(caller, "pumpserver.cpump", "FÜLLEN"));
  EXPECT_EQ(caller.calls, 1);
  platform::CodePane& pane =
      fixture.environment->FindProject("PumpServer")->FindComponent("CPump")->Module()->Pane();
  EXPECT_EQ(pane.TopLine(), 2);
  const platform::CodeSelection selection = pane.GetSelection();
  EXPECT_EQ(selection.start_line, 2);
  EXPECT_EQ(selection.start_column, 1);
  EXPECT_EQ(selection.end_line, 2);
  EXPECT_EQ(selection.end_column, 19);
}

TEST(FormulaCodeTest, DoesNothingWithoutAnEnvironment) {
  texts::TextTable texts(texts::Language::kGerman);
  CVBFormulaCode generator(texts, nullptr, nullptr);
  generator.AddFunction(kClass, "A", "");
  generator.RenameFunction(kClass, "A", "B");
  generator.DeactivateFunction(kClass, "A");
  generator.AddParameter(kClass, "X", "y");
  EXPECT_EQ(generator.GetFunctionCommentHeader("A", kClass), "");
  EXPECT_TRUE(generator.TakeWarnings().empty());
  std::string name = "1.a";
  EXPECT_EQ(generator.VBConformItemName(name, 0), "__a");
  EXPECT_EQ(name, "__a");
}

}  // namespace
}  // namespace codegen
