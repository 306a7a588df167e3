// SPDX-License-Identifier: MIT
// The planner: that it uses the indexes, and that it finds what full scans find.
#include "recordset/query_plan.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

#include "recordset/query_run.h"
#include "tests/support/memory_database.h"

namespace recordset {
namespace {

// The steps of the plan: "Table(Index:columns of it)" or "Table" for a scan.
std::string PlanText(const Query& query) {
  std::string text;
  for (const PlanStep& step : MakePlan(query).steps) {
    const jet::Table& table = *query.tables()[step.table];
    text += (text.empty() ? "" : " ") + table.name().substr(4);
    if (!step.index) continue;
    text += "(" + table.indexes()[*step.index].name + ":" + std::to_string(step.key.size()) + ")";
  }
  return text;
}

class PlanTest : public testing::Test {
 protected:
  jet::Database& database() { return db_.connection()->database(); }
  std::string Plan(const std::string& sql, std::vector<platform::Variant> parameters = {}) {
    return PlanText(*Query::Select(database(), SelectText::Parse(sql), std::move(parameters)));
  }
  void Fill(int formulas, int aliases, int arguments) {
    db_.connection()->BeginTrans();
    for (int i = 0; i < aliases; ++i) {
      db_.AddAlias("Item" + std::to_string(i), "Alias" + std::to_string(i));
    }
    for (int i = 0; i < formulas; ++i) db_.AddFormula("F" + std::to_string(i), "P.C");
    for (int i = 0; i < arguments; ++i) {
      db_.AddArgument(1 + i % formulas, 1 + i / formulas % aliases, i % 2 == 0, i % 3 == 0);
    }
    db_.connection()->CommitTrans();
  }

  support::MemoryDatabase db_;
};

TEST_F(PlanTest, GoesByTheIndexes) {
  Fill(20, 50, 200);
  const std::string join =
      "FROM (TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID) INNER JOIN "
      "TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID WHERE ";
  const std::string cases[][2] = {
      {"SELECT VBAlias " + join + "(Name = 'F1') AND (ProgID = 'P.C')",
       "Formulas(ProgID:2) Params(Unique:1) Alias(PrimaryKey:1)"},
      {"SELECT VBAlias " + join + "TvbfAlias.ID = 7",
       "Alias(PrimaryKey:1) Params(AliasID:1) Formulas(PrimaryKey:1)"},
      {"SELECT VBAlias FROM TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID "
       "WHERE ParentID = 3",
       "Params(Unique:1) Alias(PrimaryKey:1)"},
      {"SELECT TvbfFormulas.ID FROM TvbfParams INNER JOIN TvbfFormulas ON TvbfParams.ParentID = "
       "TvbfFormulas.ID WHERE (TvbfParams.AliasID = 7) AND (TvbfFormulas.ProgID = 'P.C')",
       "Formulas(ProgID:1) Params(Unique:2)"},
      {"SELECT * FROM TvbfParams WHERE AliasID = 1 AND ParentID = 2 AND In", "Params(Unique:2)"},
      {"SELECT * FROM TvbfFormulas WHERE Name = 'F1'", "Formulas"},
      {"SELECT * FROM TvbfFormulas WHERE ProgID = 'P.C'", "Formulas(ProgID:1)"},
      {"SELECT * FROM TvbfAlias WHERE 'alias7' = VBAlias", "Alias(VBAlias:1)"},
      {"SELECT * FROM TvbfAlias WHERE VBAlias = 'Алиас'", "Alias"},  // has no key
      {"SELECT * FROM TvbfAlias WHERE ID = 1 OR ID = 2", "Alias"},
      {"SELECT * FROM TvbfAlias WHERE ID > 1", "Alias"},
  };
  for (const auto& [sql, plan] : cases) EXPECT_EQ(Plan(sql), plan) << sql;
}

TEST_F(PlanTest, ATableOfOneRowDoesNotMisleadIt) {
  Fill(100, 1, 100);
  EXPECT_EQ(Plan("SELECT VBAlias FROM (TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = "
                 "TvbfAlias.ID) INNER JOIN TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID "
                 "WHERE (Name = 'F1') AND (ProgID = 'P.C')"),
            "Alias Formulas(ProgID:2) Params(Unique:2)");
}

TEST_F(PlanTest, JoinsATableWithItself) {
  Fill(20, 50, 200);
  const std::string sql =
      "SELECT U.ParentID, VBAlias FROM (TvbfParams AS U INNER JOIN TvbfParams AS A ON "
      "U.ParentID = A.ParentID) INNER JOIN TvbfAlias ON A.AliasID = TvbfAlias.ID WHERE "
      "U.AliasID = 3";
  EXPECT_EQ(Plan(sql), "Params(AliasID:1) Params(Unique:1) Alias(PrimaryKey:1)");
  // Each of the 20 formulas has 10 aliases, the third of them among these.
  auto rows = db_.Open(sql);
  EXPECT_EQ(rows->RecordCount(), 200);
  EXPECT_EQ(rows->Fields("VBAlias").Value(), platform::Variant("Alias0"));
}

// Draws queries over the three tables.
class QueryMaker {
 public:
  explicit QueryMaker(unsigned seed) : random_(seed) {}

  std::string Select() {
    std::string from;
    switch (Below(5)) {
      case 0:
        tables_ = {"TvbfParams"};
        from = "TvbfParams";
        break;
      case 1:
        tables_ = {"TvbfAlias"};
        from = "TvbfAlias";
        break;
      case 2:
        tables_ = {"TvbfFormulas", "TvbfParams"};
        from = "TvbfFormulas INNER JOIN TvbfParams ON TvbfFormulas.ID = TvbfParams.ParentID";
        break;
      case 3:
        tables_ = {"TvbfAlias", "TvbfParams"};
        from = "TvbfAlias INNER JOIN TvbfParams ON " + Compare();
        break;
      default:
        tables_ = {"TvbfParams", "TvbfAlias", "TvbfFormulas"};
        from =
            "(TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID) INNER JOIN "
            "TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID";
    }
    std::string sql = "SELECT " + tables_.front() + ".* FROM " + from;
    if (Below(8) != 0) sql += " WHERE " + Condition(3);
    if (Below(3) == 0) sql += " ORDER BY " + NumberColumn() + (Below(2) ? " DESC" : "");
    return sql;
  }

 private:
  std::size_t Below(std::size_t end) { return random_() % end; }
  template <class Range>
  std::string OneOf(const Range& range) {
    return std::string(range[Below(std::size(range))]);
  }

  std::string Condition(int depth) {
    switch (depth == 0 ? 0 : Below(6)) {
      case 1:
        return "(" + Condition(depth - 1) + " OR " + Condition(depth - 1) + ")";
      case 2:
        return "NOT (" + Condition(depth - 1) + ")";
      case 3:
      case 4:
        return "(" + Condition(depth - 1) + ") AND " + Condition(depth - 1);
      default:
        return Compare();
    }
  }

  std::string Compare() {
    constexpr std::string_view kSigns[] = {"=", "=", "=", "<", ">=", "<>"};
    if (Below(3) == 0) return TextColumn(Below(4) == 0 ? " IS NULL" : " " + OneOf(kSigns) + Text());
    const std::string right =
        Below(3) == 0 ? NumberColumn() : std::to_string(static_cast<int>(Below(9)) - 1);
    return NumberColumn() + " " + OneOf(kSigns) + " " + right;
  }

  std::string NumberColumn() {
    const std::string table = OneOf(tables_);
    if (table == "TvbfParams") {
      constexpr std::string_view kColumns[] = {"ID", "ParentID", "AliasID", "In"};
      return table + "." + OneOf(kColumns);
    }
    return table + (table == "TvbfFormulas" && Below(2) ? ".Type" : ".ID");
  }

  std::string TextColumn(const std::string& rest) {
    const std::string table = OneOf(tables_);
    if (table == "TvbfParams") return table + ".ID = 3";
    if (table == "TvbfAlias") return table + (Below(2) ? ".VBAlias" : ".ItemID") + rest;
    constexpr std::string_view kColumns[] = {"Name", "ProgID", "Comment"};
    return table + "." + OneOf(kColumns) + rest;
  }

  std::string Text() {
    constexpr std::string_view kTexts[] = {"'a'", "'A '", "'ä'", "'b'",
                                           "''",  "'ss'", "'ß'", "'c-d'"};
    return " " + OneOf(kTexts);
  }

  std::mt19937 random_;
  std::vector<std::string> tables_;
};

TEST_F(PlanTest, FindsWhatFullScansFind) {
  std::mt19937 random(7);
  auto below = [&](std::size_t end) { return static_cast<std::int32_t>(random() % end); };
  const platform::Variant texts[] = {
      "a", "B", "ä ", "ss", "ß", "c-d", std::string(1, '\0'), platform::Null{}, "cd"};
  auto text = [&] { return texts[random() % std::size(texts)]; };
  for (int i = 0; i < 12; ++i) {
    db_.Add("TvbfFormulas", {"Name", "ProgID", "Type", "Comment"},
            {text(), text(), below(8), text()});
  }
  for (int i = 0; i < 30; ++i) {
    for (const auto& [table, fields] :
         std::initializer_list<std::pair<const char*, std::vector<std::string>>>{
             {"TvbfAlias", {"ItemID", "VBAlias"}}, {"TvbfParams", {"ParentID", "AliasID", "In"}}}) {
      try {
        if (fields.size() == 2) {
          db_.Add(table, fields, {text(), text()});
        } else {
          db_.Add(table, fields, {below(12), below(9), below(2)});
        }
      } catch (const platform::Error& error) {
        ASSERT_EQ(error.number(), platform::kErrErrorsOccurred);
      }
    }
  }

  const int queries = std::getenv("OV_LONG") ? 20000 : 400;
  for (int i = 0; i < queries; ++i) {
    const std::string sql = QueryMaker(static_cast<unsigned>(i)).Select();
    const auto query = Query::Select(database(), SelectText::Parse(sql), {});
    const RowIds planned = FindRows(*query, MakePlan(*query));
    const RowIds scanned = FindRows(*query, MakePlan(*query, IndexUse::kForbidden));
    ASSERT_EQ(planned.ids, scanned.ids) << sql << "\n" << PlanText(*query);
  }
}

}  // namespace
}  // namespace recordset
