// SPDX-License-Identifier: MIT
// What is exported is read back to the same rows, whatever they hold; and refused lines can be read
// again.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "exchange/export_text.h"
#include "exchange/import_plan.h"
#include "exchange/refused_lines.h"
#include "tests/exchange/list_text.h"
#include "tests/support/formula_project.h"

namespace exchange {
namespace {

using support::ToText;

std::string Json(store::Operations& operations) {
  std::string text;
  ExportJson(operations, {}, [&](std::string_view piece) { text += piece; });
  return text;
}

std::string Csv(store::Operations& operations, TableKind kind, std::size_t* unreadable = nullptr) {
  std::string text;
  const std::size_t count =
      ExportCsv(operations, kind, [&](std::string_view piece) { text += piece; });
  if (unreadable) *unreadable = count;
  return text;
}

void Import(store::Operations& operations, const std::string& list) {
  const Contents contents = ReadList(list);
  ImportPlan plan = PlanImport(contents, operations, {});
  EXPECT_EQ(plan.Count().refused, 0u) << ToText(plan);
  const auto result = exchange::Import(plan, operations, {{kTextImportTitle}}, {});
  EXPECT_TRUE(result.success()) << ToText(result);
}

// Rows with the order of arguments alone, for IDs of arguments may differ.
std::vector<std::string> Sorted(std::vector<std::string> rows) {
  std::ranges::sort(rows);
  return rows;
}

const std::vector<std::string> kHostile = {"=1+1",
                                           "'=1+1",
                                           "''@x",
                                           "-3",
                                           "+3",
                                           "@a",
                                           "'",
                                           "''",
                                           "'x",
                                           "\t=1",
                                           " =1",
                                           "a,b;c\td",
                                           "\"quoted\"",
                                           "\"",
                                           "line\r\nbreak",
                                           "ends with line\n",
                                           " blanks ",
                                           "  ",
                                           "{1..3}",
                                           "{{a,b}",
                                           "{GUID}",
                                           "sep=;",
                                           "ItemID",
                                           "#ID",
                                           "1e5",
                                           "00123",
                                           "TRUE",
                                           "null",
                                           "\xEF\xBB\xBFmark",
                                           "Füllstand €",
                                           "日本語",
                                           "\xF0\x9F\x98\x80",
                                           "\xC2\x85\xC2\xA0",
                                           "it's",
                                           "a\\b",
                                           "\\\"",
                                           "</a>",
                                           std::string(255, 'w')};

void AddHostileRows(support::FormulaProject& project, const std::vector<std::string>& texts) {
  store::Operations& o = project.operations();
  std::vector<store::AliasValues> aliases;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    aliases.push_back({texts[i], "A" + std::to_string(i) + (i % 3 == 0 ? "_ä" : "")});
  }
  // Items of blanks alone and of several lines are none.
  std::erase_if(aliases, [](const auto& a) {
    return a.item_id.find_first_not_of(' ') == std::string::npos ||
           a.item_id.find_first_of("\r\n") != std::string::npos;
  });
  const auto ids = o.AddAliases(aliases).ids;
  ASSERT_EQ(ids.size(), aliases.size());
  std::mt19937 random(7);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto type = static_cast<std::int32_t>(i % 8);
    const auto formula =
        o.AddFormula({"F" + std::to_string(i), i % 2 ? "PumpServer.CPump" : "PumpServer.CTank",
                      type, static_cast<std::int32_t>(random() % 5000), i % 3 != 0, texts[i]});
    ASSERT_TRUE(formula.success()) << ToText(formula);
    std::vector<store::ArgumentValues> arguments;
    for (std::size_t n = 0; n < i % 4; ++n) {
      const bool in = random() % 2 == 0;
      arguments.push_back(
          {ids[(i * 5 + n) % ids.size()], in, random() % 2 == 0 && !(in && type == 6)});
    }
    const auto added = o.AddArguments(formula.id(), arguments);
    ASSERT_TRUE(added.success()) << ToText(added);
  }
}

TEST(RoundTrip, HostileRowsAreReadBackTheSame) {
  support::FormulaProject source({{"CPump", ""}, {"CTank", ""}});
  AddHostileRows(source, kHostile);
  const auto rows = Sorted(support::RowsOf(source.operations()));
  const std::string aliases = Csv(source.operations(), TableKind::kAliases);
  for (const char* cell : {"\n=", "\n-", "\n+", "\n@", "\n\"=", "\n\"@"}) {
    EXPECT_EQ(aliases.find(cell), std::string::npos) << "a spreadsheet would run " << cell;
  }
  {
    support::FormulaProject target({{"CPump", ""}, {"CTank", ""}});
    Import(target.operations(), aliases);
    Import(target.operations(), Csv(source.operations(), TableKind::kFormulas));
    EXPECT_EQ(Sorted(support::RowsOf(target.operations())), rows);
  }
  support::FormulaProject target({{"CPump", ""}, {"CTank", ""}});
  Import(target.operations(), Json(source.operations()));
  EXPECT_EQ(Sorted(support::RowsOf(target.operations())), rows);
  EXPECT_EQ(Json(target.operations()), Json(source.operations()));
  for (const char* name : {"CPump", "CTank"}) {
    // Declarations stand in the order in which they came; all the rest is the same.
    EXPECT_EQ(target.Code(name).size(), source.Code(name).size()) << name;
  }
  // Into itself it changes nothing, and no file is written.
  const auto files = source.system.Snapshot();
  for (const std::string& list :
       {Json(source.operations()), aliases, Csv(source.operations(), TableKind::kFormulas)}) {
    const Contents contents = ReadList(list);
    const ImportPlan plan = PlanImport(contents, source.operations(), {});
    EXPECT_EQ(plan.Count().unchanged, plan.LineCount()) << ToText(plan);
  }
  EXPECT_EQ(source.system.Snapshot(), files);
}

TEST(RoundTrip, ControlCharactersNeedJson) {
  support::FormulaProject source;
  source.AddAlias("a\x01z", "A");
  source.operations().AddFormula({"F", "PumpServer.CPump", 0, 0, true, "\x7F\x1B[2J"});
  support::FormulaProject target;
  Import(target.operations(), Json(source.operations()));
  EXPECT_EQ(support::RowsOf(target.operations()), support::RowsOf(source.operations()));
  std::size_t unreadable = 0;
  Csv(source.operations(), TableKind::kAliases, &unreadable);
  EXPECT_EQ(unreadable, 1u);
  Csv(source.operations(), TableKind::kFormulas, &unreadable);
  EXPECT_EQ(unreadable, 1u);
}

std::vector<RefusedLine> LinesOf(const ImportPlan& plan) {
  std::vector<RefusedLine> lines;
  for (const auto& line : plan.Refused()) {
    lines.push_back({line.place, texts::TextTable(texts::Language::kGerman).Sentence(line.reason)});
  }
  return lines;
}

TEST(RefusedLines, AreWrittenAsTheyStoodAndCanBeReadAgain) {
  const struct {
    const char* name;
    std::string list;
    std::string expected;
  } cases[] = {
      {"table",
       "Item;Bemerkung;Alias\r\nT.1;\"a;\"\"b\";1st\r\nT.2;;Second\r\n\"'=x\r\ny\";F\xFCll;\r\nT."
       "4\r\n"
       "T.5;;Dim;extra\r\n",
       "\xEF\xBB\xBFItem;Bemerkung;Alias;Grund\r\n"
       "T.1;\"a;\"\"b\";1st;\"Der Alias ist nicht entsprechend den Visual Basic Namenskonventionen "
       "gewählt!!! 1st beginnt mit einer Ziffer; Visual Basic verlangt einen Buchstaben. Gültig "
       "wäre A1st.\"\r\n"
       "\"'=x\r\ny\";Füll;;Der Itemname enthält einen Zeilenumbruch. Schreiben Sie ihn in einer "
       "Zeile.\r\n"
       "T.5;;Dim;extra;Die Zeile hat mehr Zellen als die Kopfzeile, die 3 hat. Steht das "
       "Trennzeichen in einem Text, gehört er in Anführungszeichen.\r\n"},
      {"table below a title", "Signale;\r\nItem;Alias\r\nT.1;1st\r\n",
       "\xEF\xBB\xBFItem;Alias;Grund\r\n"
       "T.1;1st;\"Der Alias ist nicht entsprechend den Visual Basic Namenskonventionen "
       "gewählt!!! 1st beginnt mit einer Ziffer; Visual Basic verlangt einen Buchstaben. Gültig "
       "wäre A1st.\"\r\n"},
      {"JSON",
       "{\"aliases\": [{\"ItemID\": \"\\u0041\", \"VBAlias\": \"1\"},\n {\"ItemID\": \"ok\", "
       "\"VBAlias\": \"Ok\"}, {\"ItemID\": 5, \"x\": [{}]}],\n \"formulas\": []}",
       "{\"aliases\": [\n {\"Reason\": \"Der Alias ist nicht entsprechend den Visual Basic "
       "Namenskonventionen gewählt!!! 1 beginnt mit einer Ziffer; Visual Basic verlangt einen "
       "Buchstaben. Gültig wäre A1.\", \"ItemID\": \"\\u0041\", \"VBAlias\": \"1\"},\n "
       "{\"Reason\": "
       "\"Hier wird ein Wert von anderer Art gebraucht.\", \"ItemID\": 5, \"x\": [{}]}\n],\n"
       "\"formulas\": [\n]}\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    support::FormulaProject project({{"CPump", ""}}, texts::Language::kGerman);
    const Contents contents = ReadList(c.list);
    const ImportPlan plan = PlanImport(contents, project.operations(), {});
    const std::string written = WriteRefusedLines(c.list, LinesOf(plan), "Grund");
    EXPECT_EQ(written, c.expected);
    // Read again, the same lines are refused for the same reasons, and the file is the same.
    const Contents again = ReadList(written);
    const ImportPlan second = PlanImport(again, project.operations(), {});
    EXPECT_EQ(second.Count().refused, plan.Count().refused);
    EXPECT_EQ(second.Count().added, 0u);
  }
}

}  // namespace
}  // namespace exchange
