// SPDX-License-Identifier: MIT
// Lists as spreadsheets, editors and people write them.
#include <gtest/gtest.h>

#include <string>

#include "exchange/contents.h"
#include "exchange/exchange_texts.h"
#include "tests/exchange/list_text.h"

namespace exchange {
namespace {

using namespace std::string_literals;
using support::ToText;

std::string Utf16(std::string_view ascii, bool little) {
  std::string bytes = little ? "\xFF\xFE" : "\xFE\xFF";
  for (const char c : ascii) {
    // "~" stands for ü.
    const char low = c == '~' ? '\xFC' : c;
    bytes += little ? std::string{low, '\0'} : std::string{'\0', low};
  }
  return bytes;
}

struct Dialect {
  const char* name;
  std::string bytes;
};

// All of them say the same.
TEST(ListReader, ReadsTheDialectsOfSpreadsheets) {
  const std::string expected = "alias Tank1.Füll|Level\nalias Tank,2;x|Tank2\nignored Bemerkung\n";
  const Dialect dialects[] = {
      {"comma, UTF-8", "ItemID,VBAlias,Bemerkung\nTank1.Füll,Level,a\n\"Tank,2;x\",Tank2,\n"},
      {"comma, no line end at the end",
       "ItemID,VBAlias,Bemerkung\r\nTank1.Füll,Level,a\r\n\"Tank,2;x\",Tank2"},
      {"German, Windows-1252",
       "Itemname;Aliasbezeichner;Bemerkung\r\nTank1.F\xFCll;Level;\xE4\r\n\"Tank,2;x\";Tank2;\r\n"},
      {"mark of UTF-8",
       "\xEF\xBB\xBFITEM;Alias;Bemerkung\r\nTank1.Füll;Level;\r\n\"Tank,2;x\";Tank2;\r\n"},
      {"Unicode text, tabs",
       Utf16("Item\tAlias\tBemerkung\r\nTank1.F~ll\tLevel\t\r\n\"Tank,2;x\"\tTank2\t\r\n", true)},
      {"the same, high byte first",
       Utf16("Item\tAlias\tBemerkung\r\nTank1.F~ll\tLevel\t\r\nTank,2;x\tTank2\t\r\n", false)},
      {"separator line",
       "sep=;\r\nBemerkung;Item;Alias\r\n;Tank1.Füll;Level\r\n;\"Tank,2;x\";Tank2"},
      {"line ends of old, blank lines, blanks",
       "\r\rItem , VBAlias,Bemerkung\rTank1.Füll,  Level ,\r,,\r \"Tank,2;x\" ,Tank2\r"},
      {"line breaks and quotation marks in cells",
       "Bemerkung,item,alias\n\"a\n\"\"b\"\"\r\n,c\",Tank1.Füll,Level\n,\"Tank,2;x\",\"Tank2\"\n"},
      {"titles above the header",
       "Signal list;of plant A;\r\n\r\n;;as of 1.2.26\r\nItem;Alias;Bemerkung\r\n"
       "Tank1.Füll;Level;\r\n\"Tank,2;x\";Tank2;\r\n"},
      {"a title and a separator line",
       "sep=\t\nPlant A\nItem\tAlias\tBemerkung\nTank1.Füll\tLevel\t\nTank,2;x\tTank2\t\n"},
      {"surplus empty cells", "item,alias,Bemerkung\nTank1.Füll,Level,,,,\n\"Tank,2;x\",Tank2\n"},
  };
  for (const Dialect& dialect : dialects) {
    SCOPED_TRACE(dialect.name);
    EXPECT_EQ(ToText(ReadList(dialect.bytes)), expected);
  }
}

struct Case {
  const char* name;
  std::string bytes;
  std::string expected;
};

TEST(ListReader, UnderstandsTablesOfEachKind) {
  const Case cases[] = {
      {"formulas",
       "Name;Klassenname;Formelaufruf;Abtastzeit [ms];Definition aktiv;Kommentar;Argumente\n"
       "Fill;PumpServer.CPump;bei Variablenänderung;500,0;ja;\"füllt;\nschnell\";"
       "\"Level:in, Pump:aus; Mode:in:out\nShift\"\n"
       "Drain;;7;;0;;\n",
       "formula PumpServer.CPump|Fill type 6 scan 500 enabled 1 comment füllt;\nschnell (Level| "
       "10) "
       "(Pump| 01) (Mode| 11) (Shift| 00) all\nformula |Drain type 7 enabled 0\n"},
      {"formulas in English",
       "Formula,Class Name,Call Type,Scan Time,Definition enabled\nF,C,on variable change,,FALSE\n",
       "formula C|F type 6 enabled 0\n"},
      {"signals; their own type and comment are no formula's",
       "Signal;Alias;Formel;Klasse;Eingang;Ausgang;Typ;Kommentar\n"
       "T.L;Level;Fill;C;x;;Double;a\nT.P;;Fill;C;;x;Boolean;b\nT.L;Level;drain;;x;nein;;\nT.M;;;;;"
       ";;\n",
       "alias T.L|Level\nalias T.P|\nalias T.M|\nformula C|Fill (Level|T.L 1-) (|T.P -1)\n"
       "formula |drain (Level|T.L 10)\nignored Typ\nignored Kommentar\n"},
      {"aliases for a formula that are there", "Alias,Formula\nLevel,Fill\nPump,FILL\n",
       "formula |Fill (Level| --) (Pump| --)\n"},
      {"cells that were made safe", "item,alias\n'=1+1,E1\n''=1,E2\n'x,E3\n\"'-a\"\"\",E4\n=1,E5\n",
       "alias =1+1|E1\nalias '=1|E2\nalias 'x|E3\nalias -a\"|E4\nalias =1|E5\n"},
      {"series", "item,alias\n\"T{1,2}.L\",\nT{9..10}.{A}{{1..2},L{09..10}\n",
       "alias T1.L|\nalias T2.L|\nalias T9.{A}{1..2}|L09\nalias T10.{A}{1..2}|L10\n"},
      {"series of formulas", "name,arguments\n\"F{1..2}\",\"L{1..2}:in, Shift:out\"\n",
       "formula |F1 (L1| 10) (Shift| 01) all\nformula |F2 (L2| 10) (Shift| 01) all\n"},
      {"a project as JSON",
       R"({"Made": {"by": [1, 2.5e3, null]}, "aliases": [{"ItemID": "a\u00e4\"\\\n", "VBAlias": "A"}],
          "formulas": [{"Name": "F", "ProgID": "P.C", "Type": 6, "ScanTime": 0, "Enabled": false,
          "Comment": null, "arguments": [{"VBAlias": "A", "ItemID": "a{1..2}", "In": true}]}]})",
       "alias aä\"\\\n|A\nformula P.C|F type 6 scan 0 enabled 0 (A|a{1..2} 1-) all\nignored "
       "Made\n"},
      {"lists with --json",
       R"([{"ID": 1, "ItemID": "a", "VBAlias": "A"}, {"ID": 2, "Name": "F", "Enabled": true}])",
       "alias a|A\nformula |F enabled 1\nignored ID\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ToText(ReadList(c.bytes)), c.expected);
  }
}

std::string Problem(int line, int column, messages::TextNumber text) {
  return "problem " + std::to_string(line) + ":" + std::to_string(column) + " " +
         std::to_string(ToInt(text)) + "\n";
}

// Other lines are read all the same.
TEST(ListReader, NamesLinesThatSayNothing) {
  const Case cases[] = {
      {"no item", "item,alias\n,A\nb,B\n", "alias b|B\n" + Problem(2, 1, kTextNoItem)},
      {"control character", "item,alias\na\x07,A\n", Problem(2, 1, kTextControlCharacter)},
      {"behind a cell of two lines", "item,alias\n\"a\nb\",A\nc,\"\x7F\"\n",
       "alias a\nb|A\n" + Problem(4, 2, kTextControlCharacter)},
      {"a separator without quotation marks", "item;alias\na;A;b\n",
       Problem(2, 3, kTextSurplusCells)},
      {"truth", "name,enabled\nF,maybe\n", Problem(2, 2, kTextNoTruthValue)},
      {"number", "name,scan time\nF,1.5\nG,99999999999\nH,1 000\n",
       Problem(2, 2, kTextNoWholeNumber) + Problem(3, 2, kTextNoWholeNumber) +
           Problem(4, 2, kTextNoWholeNumber)},
      {"number of two meanings", "name;scan time\nF;1.000\n", Problem(2, 2, kTextUnclearNumber)},
      {"call type", "name,type\nF,8\nG,often\n",
       Problem(2, 2, kTextNoCallType) + Problem(3, 2, kTextNoCallType)},
      {"arguments", "name;arguments\nF;a:sideways\nG;a:in b\nH;:in\nI;\"\"\"a\"\n",
       Problem(2, 2, kTextArgumentList) + Problem(3, 2, kTextArgumentList) +
           Problem(4, 2, kTextArgumentList) + Problem(5, 2, kTextArgumentList)},
      {"no name", "name,class\n,C\n", Problem(2, 1, kTextNoFormulaName)},
      {"series of two lengths", "item,alias\n{1..2},A{1..3}\n{1..2},A\nb,B{1..2}\n",
       Problem(2, 2, kTextSeriesLengths) + Problem(3, 2, kTextSeriesLengths) +
           Problem(4, 2, kTextSeriesLengths)},
      {"series without end", "item\na{1..999999999}\n{1..999}{1..999}\n",
       Problem(2, 0, kTextSeriesTooLong) + Problem(3, 0, kTextSeriesTooLong)},
      {"JSON of another kind", R"([{"ItemID": 1}, {"Name": "F", "Type": 1.5}, {"ItemID": "b"}])",
       "alias b|\n" + Problem(1, 13, kTextJsonType) + Problem(1, 39, kTextNoWholeNumber)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ToText(ReadList(c.bytes)), c.expected);
  }
}

struct Refusal {
  const char* name;
  std::string bytes;
  messages::TextNumber text;
  Place place;
};

TEST(ListReader, RefusesWhatIsNoList) {
  const Refusal refusals[] = {
      {"nothing", "", kTextEmptyFile, {}},
      {"blank lines", "\r\n\n,,\n", kTextEmptyFile, {}},
      {"workbook", "PK\x03\x04zzz", kTextWorkbook, {}},
      {"old workbook", "\xD0\xCF\x11\xE0\xA1\xB1", kTextWorkbook, {}},
      {"zero bytes", "item\na\0b"s, kTextNulCharacter, {2, 2}},
      {"UTF-16 without a mark", "i\0t\0e\0m\0"s, kTextNulCharacter, {1, 2}},
      {"UTF-16 cut off", "\xFF\xFEi\0\n\0t"s, kTextBrokenUtf16, {2, 1}},
      {"half a pair", "\xFF\xFEi\0\x3D\xD8x\0"s, kTextBrokenUtf16, {1, 2}},
      {"no UTF-8 behind the mark", "\xEF\xBB\xBFitem\näx\xFF", kTextBrokenUtf8, {2, 3}},
      {"open quotation mark below a title",
       "Plant A\nitem,alias\na,\"b\nc,d\n",
       kTextOpenQuote,
       {3, 2}},
      {"open quotation mark", "item,alias\na,\"b\nc,d\n", kTextOpenQuote, {2, 2}},
      {"text behind a quotation mark", "item,alias\na,\"b\nc\"d,e\n", kTextBehindQuote, {3, 2}},
      {"unknown columns", "\nfoo;bar\n1;2\n", kTextNoKnownColumn, {2, 0}},
      {"no header", "Tank1.Level,Level\n", kTextNoKnownColumn, {1, 0}},
      {"lines above a header that are no titles",
       "Tank1.Level,Level\nitem,alias\n",
       kTextNoKnownColumn,
       {1, 0}},
      {"inputs of nobody knows what", "Name;Point;In\nF;Level;x\n", kTextNoItemColumn, {1, 0}},
      {"two columns for one", "item,alias,Tag\n", kTextColumnTwice, {1, 3}},
      {"a million columns", "item" + std::string(1000000, ','), kTextTooManyColumns, {1, 1001}},
      {"a cell of many megabytes", "item\n" + std::string(5000000, 'x'), kTextCellTooLong, {2, 1}},
      {"the same, quoted",
       "item,alias\na,\"" + std::string(5000000, 'x') + "\"\n",
       kTextCellTooLong,
       {2, 2}},
      {"JSON cut off", R"({"aliases": [{"ItemID": "a)", kTextJsonEnd, {1, 27}},
      {"JSON with a comma too many", "[{\"ItemID\": \"ä\",\n  }]", kTextJsonUnexpected, {2, 3}},
      {"JSON behind umlauts", R"([{"ItemID": "ä", "VBAlias": tru}])", kTextJsonUnexpected, {1, 29}},
      {"raw control character in JSON", "[{\"ItemID\": \"a\x01\"}]", kTextJsonUnexpected, {1, 15}},
      {"JSON of something else", R"({"name": "npm", "version": 1})", kTextJsonNoProject, {1, 1}},
      {"JSON without end", std::string(100000, '['), kTextJsonUnexpected, {1, 2}},
      {"JSON too deep", "{\"x\": " + std::string(100000, '['), kTextJsonDepth, {1, 71}},
      {"two JSON texts", "[] []", kTextJsonUnexpected, {1, 4}},
  };
  for (const Refusal& refusal : refusals) {
    SCOPED_TRACE(refusal.name);
    try {
      ADD_FAILURE() << ToText(ReadList(refusal.bytes)).substr(0, 200);
    } catch (const FormatError& error) {
      EXPECT_EQ(ToText(error.place()), ToText(refusal.place));
      const messages::Message& message = error.message();
      EXPECT_EQ(refusal.place.line ? message.Part("<Text>").number() : message.number(),
                refusal.text);
    }
  }
}

TEST(AliasReader, ReadsLinesWithoutAHeader) {
  EXPECT_EQ(
      ToText(ReadAliases("Tank1.Level\r\n\nTank \"2\"\tLevel2\nitem\nT{1,2}\nT{1..2}\tA{1..2}")),
      "alias Tank1.Level|\nalias Tank \"2\"|Level2\nalias item|\nalias T1|\nalias T2|\n"
      "alias T1|A1\nalias T2|A2\n");
  EXPECT_EQ(ToText(ReadAliases("a\nb,c\nd;e\nT{1..2}\tA\n")),
            "alias a|\n" + Problem(2, 0, kTextSeparator) + Problem(3, 0, kTextSeparator) +
                Problem(4, 0, kTextSeriesLengths));
  EXPECT_EQ(ToText(ReadAliases("Alias;Item\nLevel;Tank1.Level\n")), "alias Tank1.Level|Level\n");
}

}  // namespace
}  // namespace exchange
