// SPDX-License-Identifier: MIT
// Names, items and comments that would like to be code: whatever they hold, a class gains exactly
// the statements that it is to gain. The judge takes the module apart by itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "store/operation_texts.h"
#include "tests/support/formula_project.h"

namespace store {
namespace {

constexpr const char* kClass = "PumpServer.CPump";
constexpr const char* kCode =
    "Option Explicit\r\nPrivate mText As String 'a _\r\n  b\r\nPublic Sub Tick()\r\n"
    "    mText = \"'a: b\": Beep\r\nEnd Sub\r\n";

std::string Trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The statements of a module in the order of the alphabet, without comments. Any CR, LF or NUL
// ends a line here, for a reader of the file may take it so.
std::vector<std::string> Statements(const std::string& module) {
  std::vector<std::string> statements;
  std::string statement;
  bool in_string = false;
  bool in_comment = false;
  const auto end = [&] {
    statement = Trim(statement);
    if (!statement.empty()) statements.push_back(statement);
    statement.clear();
  };
  for (std::size_t i = 0; i < module.size(); ++i) {
    const char c = module[i];
    if (c == '\r' || c == '\n' || c == '\0') {
      const bool goes_on =
          i >= 2 && module[i - 1] == '_' && (module[i - 2] == ' ' || module[i - 2] == '\t');
      if (c == '\r' && i + 1 < module.size() && module[i + 1] == '\n') ++i;
      in_string = false;
      if (goes_on) continue;
      in_comment = false;
      end();
      continue;
    }
    if (in_comment) continue;
    if (!in_string && c == '\'') {
      in_comment = true;
    } else if (!in_string && c == ':') {
      end();
    } else {
      if (c == '"') in_string = !in_string;
      statement += c;
      if (statement.ends_with("Rem ") && Trim(statement) == "Rem") {
        in_comment = true;
        statement.clear();
      }
    }
  }
  end();
  std::sort(statements.begin(), statements.end());
  return statements;
}

TEST(StatementsTest, TakesAModuleApart) {
  EXPECT_EQ(Statements("a: b 'c: d\r\n'e _\r\nf\ng = \"'h:\": Rem i\r\nj"),
            (std::vector<std::string>{"a", "b", "g = \"'h:\"", "j"}));
  EXPECT_EQ(Statements("'x _'\r\ny").size(), 1u);
}

class HostileText {
 public:
  explicit HostileText(unsigned seed) : random_(seed) {}

  std::string Next() {
    static const std::vector<std::string> kParts = {"'",
                                                    "\"",
                                                    ":",
                                                    " _",
                                                    "\t_",
                                                    " ",
                                                    "\r\n",
                                                    "\n",
                                                    "\r",
                                                    std::string(1, '\0'),
                                                    "\x1a",
                                                    "End Sub",
                                                    "Rem ",
                                                    "#If X Then",
                                                    "Public Evil As Long",
                                                    "Attribute Evil.VB_UserMemId = 0",
                                                    "_",
                                                    "<Name>",
                                                    "\xc2\x85",
                                                    "\xe2\x80\xa8",
                                                    "\xe6\xb8\xa9",
                                                    "ä",
                                                    "()",
                                                    "Beep",
                                                    "\xff"};
    std::string text;
    for (unsigned n = 1 + random_() % 6; n > 0; --n) text += kParts[random_() % kParts.size()];
    return text;
  }
  // Without the characters that an index cannot hold.
  std::string NextInAscii() {
    std::string text = Next();
    std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    return text;
  }

 private:
  std::mt19937 random_;
};

std::string OnOneLine(std::string text) {
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
  return text;
}

// A row that somebody else wrote.
std::int32_t AddRow(platform::Connection& connection, const std::string& item,
                    const std::string& name) {
  auto rows = support::MemoryDatabase::Open(connection, "TvbfAlias");
  rows->AddNew({"ItemID", "VBAlias"}, {item, name});
  return rows->Fields("ID").Value().ToLong();
}

void Merge(std::vector<std::string>& statements, const std::vector<std::string>& more) {
  statements.insert(statements.end(), more.begin(), more.end());
  std::sort(statements.begin(), statements.end());
}

class HostileTextTest : public testing::TestWithParam<texts::Language> {};

TEST_P(HostileTextTest, AddsNoStatement) {
  const unsigned rounds = std::getenv("OV_LONG") ? 300 : 6;
  for (unsigned seed = 1; seed <= rounds && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    HostileText hostile(seed);
    support::FormulaProject project({{"CPump", kCode}}, GetParam());
    Operations& operations = project.operations();
    const std::int32_t formula =
        operations.AddFormula({"Fill", kClass, 0, 0, true, hostile.Next()}).id();
    ASSERT_NE(formula, 0);
    std::vector<std::string> expected = Statements(kCode);
    Merge(expected, {"Public Sub Fill()", "End Sub"});
    EXPECT_EQ(Statements(project.Code("CPump")), expected);
    const std::vector<std::string> without = expected;

    std::vector<std::int32_t> arguments;
    for (int i = 0; i < 8; ++i) {
      const std::string name = "Item" + std::to_string(i);
      // Half of them are names that cannot be declared, which the operations would not store.
      const bool named = i % 2 == 0;
      const std::string item = hostile.Next();
      const std::int32_t alias = AddRow(*project.open->connection, item,
                                        named ? name : hostile.NextInAscii() + ' ' + name);
      const ArgumentValues values[] = {{alias, true, false}};
      const OperationResult added = operations.AddArguments(formula, values);
      ASSERT_TRUE(added.success()) << support::ToText(added);
      arguments.push_back(added.id());
      if (!named) {
        ASSERT_EQ(added.warnings.size(), 1u);
        EXPECT_EQ(ToInt(added.warnings[0].number()), 1109);
      }
      if (named) Merge(expected, {"Public " + name + " as Variant"});
      EXPECT_EQ(Statements(project.Code("CPump")), expected) << project.Code("CPump");
      const std::string other = "x" + OnOneLine(hostile.Next());
      EXPECT_TRUE(operations.EditAlias(alias, {other, named ? name : "New" + name}).success());
      if (!named) Merge(expected, {"Public New" + name + " as Variant"});
      EXPECT_EQ(Statements(project.Code("CPump")), expected) << project.Code("CPump");
    }
    const OperationResult deleted = operations.DeleteArguments(arguments);
    EXPECT_TRUE(deleted.success()) << support::ToText(deleted);
    EXPECT_EQ(Statements(project.Code("CPump")), without) << project.Code("CPump");

    // Names of formulas are refused, or are names.
    const OperationResult named = operations.AddFormula({hostile.Next(), kClass, 0, 0, true, ""});
    EXPECT_EQ(Statements(project.Code("CPump")).size(), without.size() + (named.success() ? 2 : 0))
        << project.Code("CPump");
  }
}

// Texts come back as they were given; only the empty one and the character of code 0 are one.
TEST(HostileRowsTest, ComeBackAsTheyWere) {
  const std::string zero(1, '\0');
  support::FormulaProject project;
  Operations& operations = project.operations();
  const std::string texts[] = {
      zero + "a",          "a" + zero + zero + "b", "a" + zero, zero + zero,
      "' OR '1'='1\r\n\t", "\xe6\xb8\xa9 – Ä",      " x ",      ""};
  int number = 0;
  for (const std::string& text : texts) {
    const std::string name = "F" + std::to_string(++number);
    const std::int32_t formula = operations.AddFormula({name, kClass, 0, 0, true, text}).id();
    EXPECT_EQ(operations.FindFormula(formula)->comment, text);
    FormulaValues values = *operations.FindFormula(formula);
    values.comment += zero + "more";
    EXPECT_TRUE(operations.EditFormula(formula, values).success());
    EXPECT_EQ(operations.FindFormula(formula)->comment, values.comment);
    const AliasValues alias[] = {{"item" + text, name + "a"}};
    const OperationResult added = operations.AddAliases(alias);
    if (OnOneLine(text) != text) {
      EXPECT_EQ(added.message.number(), kTextItemMalformed) << support::ToText(added);
      continue;
    }
    ASSERT_TRUE(added.success()) << support::ToText(added);
    EXPECT_EQ(operations.FindAlias(added.id())->item_id, "item" + text);
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, HostileTextTest,
                         testing::Values(texts::Language::kGerman, texts::Language::kEnglish));

}  // namespace
}  // namespace store
