// SPDX-License-Identifier: MIT
#include "vbfiles/source_index.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
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

}  // namespace
}  // namespace vbfiles
