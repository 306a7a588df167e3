// SPDX-License-Identifier: MIT
// Queries over a few rows; the results were worked out by hand.
#include <gtest/gtest.h>

#include <string>

#include "tests/recordset/row_text.h"
#include "tests/support/memory_database.h"

namespace recordset {
namespace {

using platform::Error;
using platform::Null;
using platform::Variant;

const std::string kZero(1, '\0');

class QueryTest : public testing::Test {
 protected:
  QueryTest() {
    db_.AddFormula("Level", "Plant.CTank", 0, "first");   // 1
    db_.AddFormula("Flow", "Plant.CTank", 7, Null{});     // 2
    db_.AddFormula("level", "Plant.CPump", 6, kZero);     // 3
    db_.AddFormula("Straße 1", "Plant.CPump", 3, "x'y");  // 4
    db_.AddFormula("Unused", "Other.CMix", 3, "Flow");    // 5
    db_.AddAlias("Tank.Level", "TankLevel");              // 1
    db_.AddAlias("Tank.Flow", "TankFlow");                // 2
    db_.AddAlias("Pump.On", "PumpOn");                    // 3
    db_.AddAlias("Spare", "Spare");                       // 4
    db_.AddArgument(1, 2, true, false);                   // 1
    db_.AddArgument(1, 1, false, true);                   // 2
    db_.AddArgument(2, 2, true, true);                    // 3
    db_.AddArgument(4, 3, false, false);                  // 4
    db_.AddArgument(99, 3, true, false);                  // 5: no such formula
    db_.AddArgument(5, 98, true, false);                  // 6: no such alias
  }

  std::string Rows(const std::string& sql, std::vector<Variant> parameters = {}) {
    return RowsText(*db_.Open(sql, std::move(parameters)));
  }

  support::MemoryDatabase db_;
};

constexpr char kHeader[] =
    "SELECT TvbfFormulas.Name, TvbfFormulas.ProgID, TvbfAlias.VBAlias "
    "FROM (TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID) INNER JOIN "
    "TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID ";
constexpr char kUses[] =
    "SELECT TvbfAlias.VBAlias, TvbfFormulas.Name, TvbfFormulas.ProgID FROM (TvbfParams INNER JOIN "
    "TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID) INNER JOIN TvbfFormulas ON "
    "TvbfParams.ParentID = TvbfFormulas.ID WHERE TvbfAlias.ID = ";

TEST_F(QueryTest, AnswersAsWorkedOutByHand) {
  const std::string header = kHeader, uses = kUses;
  const std::string cases[][2] = {
      // The texts that the store and the generator use.
      {"SELECT * FROM TvbfFormulas WHERE ID = 2", "2|Flow|Plant.CTank|7|0|True|Null"},
      {"SELECT Name FROM TvbfFormulas", "Level Flow level Straße 1 Unused"},
      {"SELECT TvbfParams.*, TvbfAlias.* FROM TvbfParams INNER JOIN TvbfAlias ON "
       "TvbfParams.AliasID = TvbfAlias.ID WHERE ParentID = 1",
       "1|1|2|True|False|2|Tank.Flow|TankFlow 2|1|1|False|True|1|Tank.Level|TankLevel"},
      {header + "WHERE (Name = 'Level') AND (ProgID = 'Plant.CTank')",
       "Level|Plant.CTank|TankFlow Level|Plant.CTank|TankLevel"},
      {header + "WHERE (Name = 'Level') AND (ProgID = 'Plant.CPump')", ""},
      {uses + "2", "TankFlow|Level|Plant.CTank TankFlow|Flow|Plant.CTank"},
      {uses + "3", "PumpOn|Straße 1|Plant.CPump"},
      {uses + "4", ""},
      {uses + "98", ""},
      {"SELECT * FROM TvbfParams",
       "1|1|2|True|False 2|1|1|False|True 3|2|2|True|True "
       "4|4|3|False|False 5|99|3|True|False 6|5|98|True|False"},
      {"SELECT * FROM TvbfParams  WHERE ParentID = 4", "4|4|3|False|False"},
      // Comparison of texts is the database's.
      {"SELECT ID FROM TvbfFormulas WHERE Name = 'LEVEL'", "1 3"},
      {"SELECT ID FROM TvbfFormulas WHERE Name = 'level   '", "1 3"},
      {"SELECT ID FROM TvbfFormulas WHERE Name = ' level'", ""},
      {"SELECT ID FROM TvbfFormulas WHERE Name = 'STRASSE 1'", "4"},
      {"SELECT ID FROM TvbfFormulas WHERE Name <> 'level'", "2 4 5"},
      {"SELECT ID FROM TvbfFormulas WHERE Name < 'LEVEL'", "2"},
      {"SELECT ID FROM TvbfFormulas WHERE Name >= 'straße'", "4 5"},
      {"SELECT ID FROM TvbfFormulas WHERE Comment = 'x''y'", "4"},
      {"SELECT ID FROM TvbfFormulas WHERE Comment = \"x'y\"", "4"},
      {"SELECT ID FROM TvbfFormulas WHERE Comment = 'Привет'", ""},
      // Character 0 weighs nothing, Null equals nothing.
      {"SELECT ID FROM TvbfFormulas WHERE Comment = ''", "3"},
      {"SELECT ID FROM TvbfFormulas WHERE Comment = '" + kZero + "'", "3"},
      {"SELECT ID FROM TvbfFormulas WHERE Comment = Null", ""},
      {"SELECT ID FROM TvbfFormulas WHERE Comment IS NULL", "2"},
      {"SELECT ID FROM TvbfFormulas WHERE Comment IS NOT NULL", "1 3 4 5"},
      {"SELECT ID FROM TvbfFormulas WHERE NOT Comment = 'first'", "3 4 5"},
      {"SELECT ID FROM TvbfFormulas WHERE NOT (Comment = 'first' AND Type = 0)", "2 3 4 5"},
      {"SELECT ID FROM TvbfFormulas WHERE Comment = 'first' OR Type = 7", "1 2"},
      {"SELECT ID FROM TvbfFormulas WHERE NOT (Comment = 'no' OR Type = 3)", "1 3"},
      // Numbers and Yes/No.
      {"SELECT ID FROM TvbfFormulas WHERE Type > 3 AND Type <= 6.5", "3"},
      {"SELECT ID FROM TvbfFormulas WHERE ID = 2.5", ""},
      {"SELECT ID FROM TvbfFormulas WHERE ID = 3000000000", ""},
      {"SELECT ID FROM TvbfFormulas WHERE ID < 3000000000 AND ID > -1", "1 2 3 4 5"},
      {"SELECT ID FROM TvbfParams WHERE In = -1 AND Out = 0", "1 5 6"},
      {"SELECT ID FROM TvbfParams WHERE In AND NOT Out", "1 5 6"},
      {"SELECT ID FROM TvbfParams WHERE In = TRUE AND Out <> FALSE", "3"},
      {"SELECT ID FROM TvbfParams WHERE In = 1", ""},
      {"SELECT ID FROM TvbfParams WHERE In = Out", "3 4"},
      // Order.
      {"SELECT ID FROM TvbfFormulas ORDER BY Name, ID DESC", "2 3 1 4 5"},
      {"SELECT ID FROM TvbfFormulas ORDER BY Comment", "2 3 1 5 4"},
      {"SELECT ID FROM TvbfFormulas ORDER BY Comment DESC", "4 5 1 3 2"},
      {"SELECT ID FROM TvbfFormulas WHERE ID > 1 ORDER BY Type DESC, ID DESC", "2 3 5 4"},
      {"SELECT ID FROM TvbfParams ORDER BY In, ID", "1 3 5 6 2 4"},
      {"SELECT TvbfParams.ID FROM TvbfParams INNER JOIN TvbfAlias ON AliasID = TvbfAlias.ID "
       "ORDER BY VBAlias DESC, TvbfParams.ID",
       "2 1 3 4 5"},
      // Joins of other shapes.
      {"SELECT TvbfAlias.ID, TvbfFormulas.ID FROM TvbfAlias INNER JOIN (TvbfFormulas INNER JOIN "
       "TvbfParams ON TvbfFormulas.ID = ParentID) ON AliasID = TvbfAlias.ID AND Type = 7",
       "2|2"},
      {"SELECT TvbfAlias.ID, TvbfFormulas.ID FROM TvbfAlias INNER JOIN TvbfFormulas ON "
       "TvbfAlias.ID = TvbfFormulas.Type",
       "3|4 3|5"},
      {"SELECT TvbfAlias.ID FROM TvbfAlias INNER JOIN TvbfFormulas ON VBAlias < Name WHERE Type = "
       "7",
       ""},
      {"SELECT TvbfAlias.ID FROM TvbfAlias INNER JOIN TvbfFormulas ON VBAlias > Name WHERE Type = "
       "0",
       "1 2 3 4"},
  };
  for (const auto& [sql, expected] : cases) {
    EXPECT_EQ(Rows(sql), expected) << sql;
    EXPECT_EQ(BlockText(*db_.Open(sql)), expected) << sql;
  }
}

TEST_F(QueryTest, ParametersAreValuesWhateverTheyHold) {
  const std::string by_name = "SELECT ID FROM TvbfFormulas WHERE Name = ?";
  const std::string hostile = "x' OR '1'='1";
  EXPECT_EQ(Rows(by_name, {hostile}), "");
  const std::int32_t id = db_.AddFormula(hostile, "Plant.CTank");
  EXPECT_EQ(Rows(by_name, {hostile}), std::to_string(id));
  EXPECT_EQ(Rows("SELECT ID FROM TvbfFormulas WHERE Comment = ?", {kZero}), "3");
  EXPECT_EQ(Rows("SELECT ID FROM TvbfFormulas WHERE Comment = ?", {Null{}}), "");
  EXPECT_EQ(Rows("SELECT ID FROM TvbfFormulas WHERE ? < ID AND Enabled = ?", {3, true}),
            "4 5 " + std::to_string(id));
  EXPECT_THROW(Rows(by_name, {}), Error);
  EXPECT_THROW(Rows(by_name, {platform::Missing{}}), Error);
  EXPECT_THROW(Rows(by_name, {5}), Error);
}

// The values go into these texts as they are: a quote breaks the query, and never reaches the rows
// of another formula.
TEST_F(QueryTest, TextsWithAQuoteInAValueBreak) {
  for (const std::string name : {"x' OR '1'='1", "x'", "x' OR '1'='1' --", "'", "x') OR ('1'='1",
                                 "x'; DELETE FROM TvbfFormulas; --"}) {
    const std::string sql =
        std::string(kHeader) + "WHERE (Name = '" + name + "') AND (ProgID = 'Plant.CTank')";
    try {
      db_.Open(sql);
      ADD_FAILURE() << "accepted: " << name;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), platform::kErrSyntax);
      EXPECT_NE(error.description().find("at character "), std::string::npos);
    }
  }
  EXPECT_EQ(db_.front().TableRowCount("TvbfFormulas"), 5);
}

TEST_F(QueryTest, RefusesWhatNamesNothing) {
  struct Case {
    const char* sql;
    std::int32_t number;
  };
  const Case cases[] = {
      {"SELECT * FROM Nothing", platform::kErrNoSuchTable},
      {"SELECT Nothing FROM TvbfAlias", platform::kErrParameter},
      {"SELECT TvbfParams.ID FROM TvbfAlias", platform::kErrParameter},
      {"SELECT TvbfAlias.Name FROM TvbfAlias", platform::kErrParameter},
      {"SELECT * FROM TvbfAlias WHERE VBAlias = Level", platform::kErrParameter},
      {"SELECT ID FROM TvbfAlias INNER JOIN TvbfParams ON AliasID = TvbfAlias.ID",
       platform::kErrParameter},
      {"SELECT * FROM TvbfAlias WHERE VBAlias = 5", platform::kErrTypeMismatch},
      {"SELECT * FROM TvbfAlias WHERE ID = '5'", platform::kErrTypeMismatch},
      {"SELECT * FROM TvbfAlias WHERE VBAlias = ID", platform::kErrTypeMismatch},
      {"SELECT * FROM TvbfAlias WHERE VBAlias", platform::kErrTypeMismatch},
  };
  for (const Case& c : cases) {
    try {
      db_.Open(c.sql);
      ADD_FAILURE() << "accepted: " << c.sql;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), c.number) << c.sql << "\n" << error.description();
    }
  }
}

TEST_F(QueryTest, NamesColumnsThatSeveralTablesHaveByTheirTable) {
  auto rs = db_.Open(
      "SELECT TvbfParams.*, TvbfAlias.* FROM TvbfParams INNER JOIN TvbfAlias ON "
      "TvbfParams.AliasID = TvbfAlias.ID WHERE ParentID = 2");
  const std::vector<std::string> names = {"TvbfParams.ID", "ParentID",     "AliasID", "In",
                                          "Out",           "TvbfAlias.ID", "ItemID",  "VBAlias"};
  EXPECT_EQ(rs->FieldNames(), names);
  EXPECT_EQ(rs->Fields("tvbfalias.id").Value(), Variant(2));
  EXPECT_EQ(rs->Fields("vbAlias").Value(), Variant("TankFlow"));
  EXPECT_EQ(rs->Fields("TvbfAlias.VBALIAS").Value(), Variant("TankFlow"));
  EXPECT_EQ(rs->Fields("TvbfParams.ID").Value(), Variant(3));
  EXPECT_THROW(rs->Fields("ID"), Error);
  EXPECT_THROW(rs->Fields("Name"), Error);
}

}  // namespace
}  // namespace recordset
