// SPDX-License-Identifier: MIT
#include "vbfiles/source_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/vbfiles/text_lines.h"
#include "vbfiles/member_list.h"

namespace vbfiles {
namespace {

using platform::ProcKind;

const CodePage& Western() { return CodePage::Get(CodePage::kWestern); }

using Rows = std::vector<std::string>;

struct Scanned {
  explicit Scanned(std::string_view text) : lines(text), index(lines, Western()) {}

  // "name type scope line" of every member.
  std::vector<std::string> Members() const {
    std::vector<std::string> rows;
    for (const platform::Member& member : ListMembers(index)) {
      rows.push_back(member.name + " " + std::to_string(static_cast<int>(member.type)) + " " +
                     std::to_string(static_cast<int>(member.scope)) + " " +
                     std::to_string(member.code_location));
    }
    return rows;
  }
  // "start body count" of a procedure; "none" when there is none.
  std::string Place(std::string_view name, ProcKind kind = ProcKind::kProc) const {
    const Procedure* procedure = FindProcedure(index, name, kind);
    if (procedure == nullptr) return "none";
    const std::int32_t start = index.RegionStart(*procedure);
    return std::to_string(start) + " " + std::to_string(procedure->body_line) + " " +
           std::to_string(index.RegionEnd(*procedure) - start + 1);
  }
  // The owner of each line, "-" for none.
  std::string Owners() const {
    std::string owners;
    for (std::int32_t line = 1; line <= index.LineCount(); ++line) {
      const Procedure* owner = index.OwnerOf(line);
      owners +=
          (line > 1 ? " " : "") + (owner == nullptr ? "-" : std::string(index.Name(owner->name)));
    }
    return owners;
  }

  TextLines lines;
  SourceIndex index;
};

TEST(SourceIndex, DenseModule) {
  const Scanned module(
      "Option Explicit\n"
      "Private Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)\n"
      "Public Enum EState\n"
      "    Running = 1\n"
      "End Enum\n"
      "Private Type TRec\n"
      "    End_ As Long\n"
      "    Property As String\n"
      "End Type\n"
      "Public Level As Double, Limits(1 To 2) As Long 'Public Fake As Long\n"
      "Private WithEvents mPort As CPort: Dim mBusy As Boolean\n"
      "Const MSG = \"Public Sub NotMe()\" & _\n"
      "            \" x\"\n"
      "Public Event Changed(ByVal v As Long)\n"
      "Rem Public Sub Old()\n"
      "'Public Sub Older()\n"
      "'End Sub\n"
      "\n"
      "Static Function Calc(ByVal a As Long, _\n"
      "                     Optional ByVal b As Long) As Long\n"
      "10  Calc = a: If b Then End\n"
      "End Function 'Calc\n"
      "Friend Property Get Item() As Long: Item = 1: End Property\n"
      "Friend Property Let Item(ByVal v As Long)\n"
      "End Property\n");
  EXPECT_EQ(module.Members(),
            Rows({"Sleep 1 1 2", "Level 3 2 10", "Limits 3 2 10", "mPort 3 1 11", "mBusy 3 1 11",
                  "MSG 5 1 12", "Changed 4 2 14", "Calc 1 2 19", "Item 2 3 23"}));
  EXPECT_EQ(module.index.CountOfDeclarationLines(), 14);
  EXPECT_EQ(module.Place("Calc"), "15 19 8");
  EXPECT_EQ(module.Place("item", ProcKind::kGet), "23 23 1");
  EXPECT_EQ(module.Place("ITEM", ProcKind::kLet), "24 24 2");
  EXPECT_EQ(module.Place("Item"), "none");
  EXPECT_EQ(module.Place("Sleep"), "none");
}

TEST(SourceIndex, LinesBelongToTheProcedureBelowThem) {
  struct Case {
    const char* what;
    const char* text;
    const char* owners;
    std::int32_t declaration_lines;
  };
  const Case cases[] = {
      {"the comment block next to the declaration, and the blanks around it",
       "Option Explicit\n' about the fields\nPrivate mA As Long, mB As Long\n"
       "' more about the fields\n\n' adds one\nPublic Sub Foo()\n    mA = mA + 1\nEnd Sub\n"
       "' ---- second half ----\n\n'note for Bar\n\nProperty Get Bar() As Long\n    Bar = mB\n"
       "End Property\n\n' end of file\n",
       "- - - - Foo Foo Foo Foo Foo - Bar Bar Bar Bar Bar Bar Bar -", 3},
      {"header at the top of the module", "\n'*** header ***\nPublic Sub A()\nEnd Sub\n", "A A A A",
       0},
      {"declarations only", "Option Explicit\nPublic A\n' b\n\n", "- - - -", 4},
      {"no line", "", "", 0},
      {"a directive block of declarations",
       "Option Explicit\n#If DEBUGMODE Then\nPrivate mLog As CLog\n#End If\nPublic Sub A()\nEnd "
       "Sub\n",
       "- - - - A A", 4},
      {"a directive block around a procedure",
       "Option Explicit\n#If DEBUGMODE Then\nPublic Sub Trace()\nEnd Sub\n#End If\nPublic Sub "
       "A()\nEnd Sub\n",
       "- - Trace Trace - A A", 1},
      {"directives nest",
       "#Const X = 1\n#If X\n#If Y\nDim a\n#End If\nDim b\n#End If\n\nSub A()\nEnd Sub\n",
       "- - - - - - - A A A", 7},
      {"twins with one body",
       "#If A Then\nSub X(a)\n#Else\nSub X(b)\n#End If\nEnd Sub\n\nSub Y()\nEnd Sub\n",
       "- X X X X X Y Y Y", 0},
      {"a procedure without end", "Sub A()\n x = 1\n\nSub B()\n", "A A A A", 0},
      {"a commented-out procedure",
       "Sub A()\nEnd Sub\n\n'Sub B()\n'End Sub\n\n' of C\nSub C()\nEnd Sub\n\n\n",
       "A A - - - C C C C C C", 0},
      {"a comment that goes on", "Dim a\n' b _\nSub Not_()\n\nSub A()\nEnd Sub\n", "- A A A A A",
       1},
      {"a comment behind a declaration that goes on", "Dim a ' b _\n   more\n\nSub A()\nEnd Sub\n",
       "- - A A A", 2},
      {"ends behind a label, a number, a colon and a comment",
       "Sub A()\nDone: End Sub\nSub B()\n10 End Sub\nSub C()\nx = 1: End Sub ' c\nSub D()\nEnd _\n "
       "Sub\nSub E()\n",
       "A A B B C C D D D E", 0},
      {"what is no end",
       "Sub A()\nEnd\nExit Sub\ns = \"End Sub\"\nEnd Sub: x = 1\n'End Sub\nRem x: End Sub\n"
       "a:=End Sub\nEnd Subs\nEnd Sub\n\nSub B()\nEnd Sub\n",
       "A A A A A A A A A A B B B", 0},
      {"colons in dates and behind file numbers",
       "Sub A()\nd = #12:30:00 PM#: End Sub\nSub B()\nClose #1: End Sub\nSub C()\nx# = 1: End "
       "Sub\nSub D()\nOpen f For Input As #1: Close #2: End Sub\n",
       "A A B B C C D D", 0},
      {"odd type elements",
       "Type T\n  End As Long\n  Sub As Long\n  Type As Long\nEnd Type\nEnum E: a: b: End Enum\n"
       "Sub A()\nEnd Sub\n",
       "- - - - - - A A", 6},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const Scanned module(c.text);
    EXPECT_EQ(module.Owners(), c.owners);
    EXPECT_EQ(module.index.CountOfDeclarationLines(), c.declaration_lines);
  }
}

TEST(SourceIndex, Declarations) {
  struct Case {
    const char* text;
    Rows members;
  };
  const Case cases[] = {
      {"Public a As Long, b(1 To 3, 2) As String: Private c$", {"a 3 2 1", "b 3 2 1", "c 3 1 1"}},
      {"Dim x _\n, y", {"x 3 1 1", "y 3 1 1"}},
      {"Global Const A = \"x, y\", B = (1, 2)", {"A 5 2 1", "B 5 2 1"}},
      {"Public Const C = 1 ' , D\nEvent E(a, b)", {"C 5 2 1", "E 4 2 2"}},
      {"Declare Function GetTick& Lib \"k\" ()", {"GetTick 1 2 1"}},
      {"Private Static Function F$(): End Function", {"F 1 1 1"}},
      {"Friend Sub [Odd name!]()\nEnd Sub", {"Odd name! 1 3 1"}},
      {"SUB a()\nend sub\nFUNCTION A2()\nEND FUNCTION", {"a 1 2 1", "A2 1 2 3"}},
      {"Public WithEvents p As New CPort, q() As Long", {"p 3 2 1", "q 3 2 1"}},
      {"#If A Then\nPublic X\n#Else\nPublic x As Long\n#End If", {"X 3 2 2"}},
      {"Property Get P()\nEnd Property\nProperty Let P(v)\nEnd Property\nDim p", {"P 2 2 1"}},
      {"Implements IFoo\nDefInt A-Z\nOption Base 1\nRem Public R\n'Public S", {}},
      {"Public \xC4nderung\nPrivate \xE4nderung", {"\xC3\x84nderung 3 2 1"}},
      {"Public Sub\nPublic\nDim ,\nDeclare x\nProperty X()\nSub (", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Scanned(c.text).Members(), c.members);
  }
}

TEST(SourceIndex, NamesOfDoubleBytePagesEndWhereTheyEnd) {
  // The second bytes are @ and |, which end a name when they stand alone; 0x83 0x41 and 0x83 0x61
  // differ in a byte that would be a letter's case.
  const TextLines lines("Public \x83\x40\x83\x7C As Long\nPublic \x83\x41, \x83\x61");
  const SourceIndex index(lines, CodePage::Get(932));
  ASSERT_EQ(ListMembers(index).size(), 3u);
  EXPECT_EQ(index.Name(index.declarations()[0].name), "\x83\x40\x83\x7C");
}

// Lines with every effect on what surrounds them.
const char* const kSoup[] = {"",
                             "  ",
                             "' comment",
                             "' comment _",
                             "Rem note _",
                             "Sub A()",
                             "Public Function B(x, _",
                             "  y) As Long",
                             "Private Sub C(): End Sub",
                             "Property Get D()",
                             "Property Let D(v) ' _",
                             "End Sub",
                             "10 End Function ' x",
                             "End Property",
                             "x = 1: y = 2",
                             "If a Then _",
                             "Public V, W As Long",
                             "Const K = 1 ' c _",
                             "Type T",
                             "End Type",
                             "Enum E",
                             "End Enum",
                             "#If X Then",
                             "#End If _",
                             "#Else",
                             "_",
                             " _",
                             "Dim Z _"};

std::string Describe(const SourceIndex& index) {
  std::string text;
  for (const Procedure& p : index.procedures()) {
    text += std::string(index.Name(p.name)) + " " + std::to_string(index.RegionStart(p)) + " " +
            std::to_string(p.body_line) + " " + std::to_string(p.end_line) + " " +
            std::to_string(index.RegionEnd(p)) + "\n";
  }
  for (const Declaration& d : index.declarations()) {
    text += std::string(index.Name(d.name)) + " " + std::to_string(d.line) + "\n";
  }
  for (std::int32_t line = 1; line <= index.LineCount() + 1; ++line) {
    const LineInfo& info = index.Info(line);
    text += std::to_string(static_cast<int>(info.mode)) +
            std::to_string(static_cast<int>(info.continuation));
    if (line > index.LineCount()) break;
    text += std::to_string(static_cast<int>(info.line_class)) +
            std::to_string(static_cast<int>(info.directive)) + (info.declaration_ends ? "d " : " ");
  }
  return text + std::to_string(index.CountOfDeclarationLines());
}

void ExpectEveryNameFound(const SourceIndex& index) {
  for (const platform::Member& member : ListMembers(index)) {
    const auto found = FindMember(index, member.name);
    ASSERT_TRUE(found) << member.name;
    EXPECT_EQ(found->code_location, member.code_location) << member.name;
    EXPECT_EQ(found->type, member.type) << member.name;
  }
  for (const Procedure& procedure : index.procedures()) {
    const std::string name(index.Name(procedure.name));
    const auto first = std::find_if(index.procedures().begin(), index.procedures().end(),
                                    [&](const Procedure& other) {
                                      return other.kind == procedure.kind &&
                                             index.IsNamed(other.name, name, procedure.name.hash);
                                    });
    EXPECT_EQ(FindProcedure(index, name, procedure.kind), &*first) << name;
  }
  EXPECT_FALSE(FindMember(index, "NobodyHasThisName"));
}

TEST(SourceIndex, EditsLeaveTheSameIndexAsAFreshScan) {
  const int rounds = std::getenv("OV_LONG") != nullptr ? 2000 : 40;
  std::mt19937 random(20);
  auto below = [&](std::size_t n) { return static_cast<std::int32_t>(random() % n); };
  for (int round = 0; round < rounds; ++round) {
    TextLines text;
    SourceIndex index(text, Western());
    for (int edit = 0; edit < 60; ++edit) {
      const std::int32_t first = 1 + below(text.lines.size() + 1);
      const std::int32_t removed = std::min(below(4), text.LineCount() - first + 1);
      const std::int32_t inserted = below(edit < 5 ? 30 : 4);
      const auto at = text.lines.begin() + first - 1;
      text.lines.erase(at, at + removed);
      for (std::int32_t i = 0; i < inserted; ++i) {
        text.lines.insert(text.lines.begin() + first - 1, kSoup[random() % std::size(kSoup)]);
      }
      index.Update(first, removed, inserted);
      ASSERT_EQ(Describe(index), Describe(SourceIndex(text, Western())))
          << "round " << round << ", edit " << edit;
      if (edit % 3 == 0) ExpectEveryNameFound(index);
    }
  }
}

// A module made of pieces of which it is known what belongs to whom.
class TaggedModule {
 public:
  TaggedModule() : index_(text_, Western()) { Splice(0, {{"", "Option Explicit"}}, 0); }

  void InsertProcedure(std::mt19937& random) {
    const std::string name = "P" + std::to_string(next_++);
    std::vector<Tagged> lines;
    for (auto i = random() % 2 + 1; i > 0; --i) lines.push_back({name, ""});
    for (auto i = random() % 3 + 1; i > 0; --i) lines.push_back({name, "  ' of " + name});
    for (auto i = random() % 2; i > 0; --i) lines.push_back({name, " "});
    lines.push_back({name, "public SUB " + name + "()"});
    for (auto i = random() % 6; i > 0; --i) {
      lines.push_back({name, kBody[random() % std::size(kBody)]});
    }
    lines.push_back({name, "End Sub ' " + name});
    InsertPiece(random, lines);
  }
  void InsertNote(std::mt19937& random) { InsertPiece(random, {{"", ""}, {"", "' a note"}}); }

  void Delete(std::mt19937& random) {
    if (pieces_.size() < 2) return;
    const std::size_t piece = 1 + random() % (pieces_.size() - 1);
    Splice(piece, {}, 1);
  }
  // Puts an apostrophe before each line from the declaration to the end, one by one.
  void SwitchOff(std::mt19937& random) {
    const std::size_t piece = random() % pieces_.size();
    std::int32_t line = FirstLine(piece);
    bool declared = false;
    for (Tagged& tagged : pieces_[piece]) {
      declared = declared || tagged.text.starts_with("public SUB");
      tagged.owner.clear();
      if (declared) {
        tagged.text = "'" + tagged.text;
        text_.lines[static_cast<std::size_t>(line) - 1] = tagged.text;
        index_.Update(line, 1, 1);
      }
      ++line;
    }
  }

  void Check() const {
    std::vector<Tagged> lines;
    for (const auto& piece : pieces_) lines.insert(lines.end(), piece.begin(), piece.end());
    // Blank lines below the last procedure count to it.
    auto last = std::find_if(lines.rbegin(), lines.rend(),
                             [](const Tagged& tagged) { return !tagged.owner.empty(); });
    if (last != lines.rend()) {
      for (auto below = last.base(); below != lines.end() && below->text.empty(); ++below) {
        below->owner = last->owner;
      }
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const Procedure* owner = index_.OwnerOf(static_cast<std::int32_t>(i) + 1);
      ASSERT_EQ(owner == nullptr ? "" : index_.Name(owner->name), lines[i].owner)
          << "line " << i + 1 << ": " << lines[i].text;
    }
  }

 private:
  struct Tagged {
    std::string owner;
    std::string text;
  };
  static constexpr const char* kBody[] = {
      "x = \"End Sub\"",  "' End Sub",      "If a Then End", "", "y:",
      "10 Rem : End Sub", "Exit Sub: z = 1"};

  std::int32_t FirstLine(std::size_t piece) const {
    std::size_t line = 1;
    for (std::size_t i = 0; i < piece; ++i) line += pieces_[i].size();
    return static_cast<std::int32_t>(line);
  }
  void InsertPiece(std::mt19937& random, const std::vector<Tagged>& lines) {
    Splice(1 + random() % pieces_.size(), lines, 0);
  }
  void Splice(std::size_t piece, const std::vector<Tagged>& lines, std::size_t removed_pieces) {
    const std::int32_t first = FirstLine(piece);
    const auto at = pieces_.begin() + static_cast<std::ptrdiff_t>(piece);
    std::size_t removed = 0;
    if (removed_pieces > 0) {
      removed = at->size();
      pieces_.erase(at);
    } else {
      pieces_.insert(at, lines);
    }
    const auto line = text_.lines.begin() + first - 1;
    text_.lines.erase(line, line + static_cast<std::ptrdiff_t>(removed));
    for (auto tagged = lines.rbegin(); tagged != lines.rend(); ++tagged) {
      text_.lines.insert(text_.lines.begin() + first - 1, tagged->text);
    }
    index_.Update(first, static_cast<std::int32_t>(removed),
                  static_cast<std::int32_t>(lines.size()));
  }

  TextLines text_;
  SourceIndex index_;
  std::vector<std::vector<Tagged>> pieces_;
  int next_ = 1;
};

TEST(SourceIndex, LinesKeepTheirOwnersThroughEdits) {
  const int rounds = std::getenv("OV_LONG") != nullptr ? 2000 : 30;
  std::mt19937 random(3);
  for (int round = 0; round < rounds; ++round) {
    TaggedModule module;
    for (int edit = 0; edit < 40; ++edit) {
      SCOPED_TRACE("round " + std::to_string(round) + ", edit " + std::to_string(edit));
      switch (random() % 5) {
        case 0:
          module.InsertNote(random);
          break;
        case 1:
          module.Delete(random);
          break;
        case 2:
          module.SwitchOff(random);
          break;
        default:
          module.InsertProcedure(random);
      }
      module.Check();
      if (HasFatalFailure()) return;
    }
  }
}

}  // namespace
}  // namespace vbfiles
