// SPDX-License-Identifier: MIT
// Lines of the clipboard, as spreadsheets and our own tables have them.
#include <gtest/gtest.h>

#include "exchange/pasted_rows.h"
#include "tests/exchange/list_text.h"

namespace exchange {
namespace {

using support::ToText;

struct Case {
  const char* name;
  const char* text;
  const char* expected;
};

TEST(PastedRows, AreAliases) {
  const Case cases[] = {
      {"items", "Tank1.Level\r\nTank2.Level", "alias Tank1.Level|\nalias Tank2.Level|\n"},
      {"items with aliases", "Tank1.Level\tLevel\nTank 2\tT2\n",
       "alias Tank1.Level|Level\nalias Tank 2|T2\n"},
      {"a series", "Tank{1..2}.Level\tLevel{1..2}",
       "alias Tank1.Level|Level1\nalias Tank2.Level|Level2\n"},
      {"a header", "Alias\tItem\tBemerkung\nLevel\tTank1.Level\tx",
       "alias Tank1.Level|Level\nignored Bemerkung\n"},
      {"signals", "Item\tAlias\tFormel\tEin\nTank1.Level\tLevel\tFill\tx",
       "alias Tank1.Level|Level\nformula |Fill (Level|Tank1.Level --)\nignored Ein\n"},
      {"JSON", R"([{"ItemID": "Tank1.Level", "VBAlias": "Level"}])", "alias Tank1.Level|Level\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ToText(ReadPastedAliases(c.text)), c.expected);
  }
}

TEST(PastedRows, AreArgumentsOfTheFormula) {
  const Case cases[] = {
      {"names", "Level\r\nPump", "formula P.C|Fill (Level| --) (Pump| --)\n"},
      {"our own lines", "Level\tTrue\tFalse\tTank1.Level\nPump\tFalse\tTrue\tTank1.Pump\n",
       "alias Tank1.Level|Level\nalias Tank1.Pump|Pump\n"
       "formula P.C|Fill (Level|Tank1.Level 10) (Pump|Tank1.Pump 01)\n"},
      {"the item second", "Level\tTank1.Level\tx\nPump\tTank1.Pump\t\tx",
       "alias Tank1.Level|Level\nalias Tank1.Pump|Pump\n"
       "formula P.C|Fill (Level|Tank1.Level 1-) (Pump|Tank1.Pump -1)\n"},
      {"a header", "Item;In;Alias\nTank1.Level;ja;Level\n;nein;Pump",
       "alias Tank1.Level|Level\nformula P.C|Fill (Level|Tank1.Level 1-) (Pump| 0-)\n"},
      {"a header that names formulas", "Alias\tFormel\tKlasse\nLevel\tOther\tP.D",
       "formula P.D|Other (Level| --)\n"},
      {"no truth value, cells too many", "Level\tTrue\nPump\tmaybe\nMode\tTrue\tTrue\tM\tx",
       "formula P.C|Fill (Level| 1-)\nproblem 2:2 3432\nproblem 3:5 3431\n"},
      {"JSON",
       R"({"formulas": [{"Name": "A", "arguments": [{"VBAlias": "Level", "In": true}]},
                        {"Name": "B", "arguments": [{"VBAlias": "Pump", "Out": true}]}]})",
       "formula P.C|Fill (Level| 1-) (Pump| -1)\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ToText(ReadPastedArguments(c.text, "Fill", "P.C")), c.expected);
  }
}

}  // namespace
}  // namespace exchange
