// SPDX-License-Identifier: MIT
// The rules of the store on project databases that were made elsewhere: without indexes, with the
// usual names on other columns, and with indexes that are not unique.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "files/unit_of_work.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/operation_texts.h"
#include "store/operations.h"
#include "store/schema.h"
#include "tests/support/any_file.h"
#include "texts/text_table.h"

namespace store {
namespace {

using platform::Connection;

struct Case {
  const char* name;
  // Of TvbfFormulas, TvbfAlias and TvbfParams, in the order of the schema.
  std::vector<Connection::IndexInfo> indexes[3];
};

class ForeignDatabaseTest : public testing::TestWithParam<Case> {
 protected:
  ForeignDatabaseTest() : connection_(std::make_shared<recordset::JetConnection>(system_)) {
    connection_->Create(ProjectConnectionString("/p.ovs"));
    std::size_t table = 0;
    for (const TableDefinition& definition : ProjectSchema()) {
      connection_->CreateTable(definition.name, definition.columns, GetParam().indexes[table++]);
    }
    unit_.Enlist(connection_->database());
    options_.with_rows_only = true;
    operations_ = std::make_unique<Operations>(
        Operations::Parts{connection_, nullptr, nullptr, &unit_, &texts_});
  }

  OperationResult AddAlias(const std::string& name) {
    const AliasValues values[] = {{"Item." + name, name}};
    return operations_->AddAliases(values, options_);
  }
  OperationResult AddArgument(std::int32_t formula, std::int32_t alias) {
    const ArgumentValues values[] = {{alias, true, false}};
    return operations_->AddArguments(formula, values, options_);
  }
  OperationResult AddFormula(const std::string& name, const std::string& prog_id) {
    return operations_->AddFormula({name, prog_id}, options_);
  }

  files::MemoryFileSystem system_;
  std::shared_ptr<recordset::JetConnection> connection_;
  files::JournalledUnitOfWork unit_{system_, "/p.ovs", kAnyFile};
  texts::TextTable texts_{texts::Language::kEnglish};
  OperationOptions options_;
  std::unique_ptr<Operations> operations_;
};

TEST_P(ForeignDatabaseTest, KeepsTheRulesItself) {
  for (const char* name : {"Level", "Flow",
                           "Stra\xC3\x9F"
                           "e"}) {
    ASSERT_TRUE(AddAlias(name).success()) << name;
  }
  for (const char* taken : {"level", "FLOW", "Strasse"}) {
    EXPECT_EQ(AddAlias(taken).message.number(), kTextAliasTaken) << taken;
  }
  ASSERT_TRUE(AddFormula("F", "P.C").success());
  ASSERT_TRUE(AddFormula("F", "P.D").success());
  ASSERT_TRUE(AddFormula("G", "P.C").success());
  EXPECT_EQ(AddFormula("f", "p.c").message.number(), kTextFormulaExists);
  EXPECT_EQ(operations_->EditFormula(3, {"F", "P.C"}, options_).message.number(),
            kTextFormulaExists);

  ASSERT_TRUE(AddArgument(1, 1).success());
  ASSERT_TRUE(AddArgument(1, 2).success());
  ASSERT_TRUE(AddArgument(2, 1).success());
  EXPECT_EQ(AddArgument(1, 1).message.number(), kTextArgumentExists);
  EXPECT_EQ(operations_->EditArgument(2, {1, true, true}, options_).message.number(),
            kTextArgumentExists);

  std::string uses;
  for (const FormulaRecord& use : operations_->UsesOfAlias(1)) uses += use.prog_id + " ";
  EXPECT_EQ(uses, "P.C P.D ");
  const std::int32_t in_use[] = {1}, unused[] = {3}, formula[] = {1};
  EXPECT_EQ(operations_->DeleteAliases(in_use, options_).detail.number(), kTextAliasUsedBy);
  EXPECT_TRUE(operations_->DeleteAliases(unused, options_).success());
  EXPECT_TRUE(operations_->DeleteFormulas(formula, options_).success());
  EXPECT_EQ(operations_->FindFormulasByName("F").size(), 1u);
  EXPECT_EQ(operations_->ArgumentsOf(1).size(), 0u);
  EXPECT_EQ(operations_->ArgumentsOf(2).size(), 1u);
  EXPECT_EQ(operations_->Count().aliases, 2);
  EXPECT_TRUE(connection_->database().Verify().ok());
}

INSTANTIATE_TEST_SUITE_P(
    Databases, ForeignDatabaseTest,
    testing::Values(
        Case{"NoIndexes", {}},
        Case{"OtherColumns",
             {{{"ProgID", {"Comment"}, false, false}},
              {{"VBAlias", {"ItemID"}, false, false}},
              {{"Unique", {"ID", "In"}, true, false}}}},
        Case{"NotUnique",
             {{{"PrimaryKey", {"ID"}, true, true}, {"ProgID", {"ProgID"}, false, false}},
              {{"PrimaryKey", {"ID"}, true, true}, {"VBAlias", {"VBAlias"}, false, false}},
              {{"PrimaryKey", {"ID"}, true, true},
               {"Unique", {"AliasID", "ParentID"}, false, false}}}}),
    [](const auto& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace store
