// SPDX-License-Identifier: MIT
#include "recordset/sql_parser.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ado.h"

namespace recordset {
namespace {

std::string Text(const OperandSyntax& operand) {
  switch (operand.kind) {
    case OperandSyntax::Kind::kColumn: {
      std::string table(operand.column.table);
      return (table.empty() ? "" : table + ".") + std::string(operand.column.name);
    }
    case OperandSyntax::Kind::kParameter:
      return "?" + std::to_string(operand.parameter);
    case OperandSyntax::Kind::kLiteral:
      break;
  }
  if (operand.literal.IsNull()) return "Null";
  const std::string text = operand.literal.ToText();
  return operand.literal.IsText() ? "'" + text + "'" : text;
}

std::string Text(const std::vector<ConditionSyntax>& conditions, const std::string& joined);

std::string Text(const ConditionSyntax& c) {
  constexpr const char* kSigns[] = {"=", "<>", "<", "<=", ">", ">="};
  switch (c.kind) {
    case ConditionSyntax::Kind::kCompare:
      return Text(c.left) + kSigns[static_cast<int>(c.comparison)] + Text(c.right);
    case ConditionSyntax::Kind::kIsNull:
      return Text(c.left) + " is null";
    case ConditionSyntax::Kind::kIsTrue:
      return Text(c.left);
    case ConditionSyntax::Kind::kAnd:
      return "(" + Text(c.operands, " & ") + ")";
    case ConditionSyntax::Kind::kOr:
      return "(" + Text(c.operands, " | ") + ")";
    case ConditionSyntax::Kind::kNot:
      return "!" + Text(c.operands.front());
  }
  return "";
}

std::string Text(const std::vector<ConditionSyntax>& conditions, const std::string& joined) {
  std::string text;
  for (const ConditionSyntax& condition : conditions) {
    if (!text.empty()) text += joined;
    text += Text(condition);
  }
  return text;
}

// All conditions of WHERE and ON, those that must all hold separated by " ; ".
std::string Where(const std::string& condition) {
  const std::string source = "SELECT * FROM t WHERE " + condition;
  return Text(ParseSelect(source).conditions, " ; ");
}

TEST(SqlParser, ReadsConditionsWithTheUsualPrecedence) {
  const char* const cases[][2] = {
      {"a = 1", "a=1"},
      {"(Name = 'x') AND (ProgID = 'P.C')", "Name='x' ; ProgID='P.C'"},
      {"a=1 and b=2 AND c=3", "a=1 ; b=2 ; c=3"},
      {"a=1 OR b=2 AND c=3", "(a=1 | (b=2 & c=3))"},
      {"(a=1 OR b=2) AND NOT c<>3", "(a=1 | b=2) ; !c<>3"},
      {"NOT (a=1 AND b>=2)", "!(a=1 & b>=2)"},
      {"NOT NOT Enabled", "!!Enabled"},
      {"t.a IS NULL AND [b c] IS NOT NULL", "t.a is null ; !b c is null"},
      {"a = 'it''s' AND b = \"say \"\"hi\"\"\"", "a='it's' ; b='say \"hi\"'"},
      {"a = '' AND b = ''''", "a='' ; b='''"},
      {"a=-5 AND b=+.5 AND c=1e3 AND d=4294967296", "a=-5 ; b=0.5 ; c=1000 ; d=4294967296"},
      {"a = TRUE AND b = false AND c = Null", "a=True ; b=False ; c=Null"},
      {"ParentID = ? AND ? = x", "ParentID=?0 ; ?1=x"},
      {"In = -1 AND Out<>0", "In=-1 ; Out<>0"},
      {"größe = 1", "größe=1"},
      {"1 < a", "1<a"},
  };
  for (const auto& [condition, expected] : cases) {
    EXPECT_EQ(Where(condition), expected) << condition;
  }
}

TEST(SqlParser, FlattensJoinsInAnyNesting) {
  const std::string source =
      "SELECT TvbfFormulas.Name, TvbfAlias.*, * FROM (TvbfParams INNER JOIN TvbfAlias ON "
      "TvbfParams.AliasID = TvbfAlias.ID) INNER JOIN (TvbfFormulas) ON (TvbfParams.ParentID = "
      "TvbfFormulas.ID) WHERE TvbfAlias.ID = 7 ORDER BY Name DESC, TvbfAlias.ID ASC;  ";
  const SelectSyntax select = ParseSelect(source);
  ASSERT_EQ(select.tables.size(), 3u);
  EXPECT_EQ(select.tables[1].name, "TvbfAlias");
  EXPECT_EQ(Text(select.conditions, " ; "),
            "TvbfParams.AliasID=TvbfAlias.ID ; TvbfParams.ParentID=TvbfFormulas.ID ; "
            "TvbfAlias.ID=7");
  ASSERT_EQ(select.items.size(), 3u);
  EXPECT_EQ(select.items[1].kind, SelectItem::Kind::kAllOfTable);
  EXPECT_EQ(select.items[2].kind, SelectItem::Kind::kAll);
  ASSERT_EQ(select.order.size(), 2u);
  EXPECT_TRUE(select.order[0].descending);
  EXPECT_FALSE(select.order[1].descending);
}

TEST(SqlParser, KeepsCharacterZeroInsideTexts) {
  using std::string_literals::operator""s;
  const std::string source = "SELECT * FROM t WHERE a = 'x\0y'"s;
  const SelectSyntax select = ParseSelect(source);
  EXPECT_EQ(select.conditions[0].right.literal.ToText(), "x\0y"s);
  EXPECT_THROW(ParseSelect("SELECT *\0 FROM t"s), platform::Error);
}

// The number in the message is the character, from 1 on, at which the text stops making sense.
TEST(SqlParser, RefusesAndNamesThePlace) {
  struct Case {
    const char* source;
    int character;
  };
  const Case cases[] = {
      {"", 1},
      {"SELECT", 7},
      {"SELECT FROM t", 8},
      {"DELETE FROM t", 1},
      {"SELECT * FROM t; SELECT * FROM t", 18},
      {"SELECT * FROM t WHERE", 22},
      {"SELECT * FROM t WHERE a = 'x", 27},
      {"SELECT * FROM t WHERE a = 'x'y'", 30},
      {"SELECT * FROM t WHERE ä = 'ö' §", 31},
      {"SELECT * FROM t WHERE a == 1", 26},
      {"SELECT * FROM t WHERE a = 12abc", 27},
      {"SELECT * FROM t WHERE a = 1e999", 27},
      {"SELECT * FROM t WHERE (a = 1", 29},
      {"SELECT * FROM t WHERE 1 = 1", 23},
      {"SELECT * FROM t WHERE '1' = '1'", 23},
      {"SELECT * FROM t WHERE ? = 1", 23},
      {"SELECT * FROM t WHERE NULL IS NULL", 23},
      {"SELECT * FROM t WHERE TRUE", 27},
      {"SELECT * FROM t INNER JOIN t ON t.a = t.a", 28},
      {"SELECT * FROM a INNER JOIN b WHERE a.x = b.x", 30},
      {"SELECT * FROM t ORDER a", 23},
      {"SELECT a.b.c FROM t", 11},
      {"SELECT [a FROM t", 8},
  };
  for (const Case& c : cases) {
    try {
      ParseSelect(c.source);
      ADD_FAILURE() << "accepted: " << c.source;
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.number(), platform::kErrSyntax) << c.source;
      EXPECT_NE(error.description().find("character " + std::to_string(c.character) + " "),
                std::string::npos)
          << c.source << "\n"
          << error.description();
    }
  }
}

TEST(SqlParser, NestsDeepButNotWithoutEnd) {
  auto nested = [](std::size_t depth) {
    return "SELECT * FROM t WHERE " + std::string(depth, '(') + "a=1" + std::string(depth, ')');
  };
  EXPECT_NO_THROW(ParseSelect(nested(150)));
  EXPECT_THROW(ParseSelect(nested(100000)), platform::Error);
  std::string many = "SELECT * FROM t WHERE a=1";
  for (int i = 0; i < 20000; ++i) many += " AND a=1";
  EXPECT_EQ(ParseSelect(many).conditions.size(), 20001u);
}

TEST(Criterion, IsComparisonsJoinedByAnd) {
  auto text = [](const std::string& source) { return Text(ParseFilter(source), " ; "); };
  EXPECT_EQ(text(""), "");
  EXPECT_EQ(text("  "), "");
  EXPECT_EQ(text("ID= 5"), "ID=5");
  EXPECT_EQ(text("Name = 'a''b' AND (ProgID='P.C')"), "Name='a'b' ; ProgID='P.C'");
  EXPECT_EQ(text("Comment = Null AND Name <> null"), "Comment is null ; !Name is null");
  for (const char* refused :
       {"Name = 'x' OR '1'='1'", "Name = 'x' OR Name = 'y'", "Name", "Name = 'x'y'", "NOT a = 1",
        "a = b", "a = ?", "a = 1;", "a = 1 AND", "(a = 1 AND b = 2)"}) {
    EXPECT_THROW(ParseFilter(refused), platform::Error) << refused;
  }
  EXPECT_THROW(ParseFind("a = 1 AND b = 2"), platform::Error);
  EXPECT_THROW(ParseFind(""), platform::Error);
}

TEST(SqlParser, TellsQueriesFromTableNames) {
  EXPECT_TRUE(IsSelect("SELECT * FROM t"));
  EXPECT_TRUE(IsSelect(" \n select[a] from t"));
  EXPECT_TRUE(IsSelect("SELECT*FROM t"));
  EXPECT_FALSE(IsSelect("TvbfAlias"));
  EXPECT_FALSE(IsSelect("Selection"));
  EXPECT_FALSE(IsSelect(""));
  EXPECT_FALSE(IsSelect("'"));
}

}  // namespace
}  // namespace recordset
