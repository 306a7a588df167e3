// SPDX-License-Identifier: MIT
#include "codegen/identifier.h"

#include <gtest/gtest.h>

#include <string>

#include "codegen/data_type.h"

namespace codegen {
namespace {

TEST(IdentifierTest, CleaningKeepsTheLengthAndWhatIsAllowed) {
  const struct {
    const char* name;
    const char* cleaned;
  } kCases[] = {
      {"", ""},
      {"Tank.Level", "Tank_Level"},
      {"a/b\\c d", "a_b_c_d"},
      {"Ä1", "Ä1"},
      {"1a1", "_a_"},
      {"2x12", "_x1_"},
      {"12", "_2"},
      {"a1b1", "a1b1"},
      {"€uro", "€uro"},        // code 128
      {"þ", "þ"},              // 254
      {"ÿ", "_"},              // 255
      {"\u0081x", "\u0081x"},  // a code that the page leaves undefined
      {"Łódź", "_ód_"},        // Ł and ź are not in the code page
      {"温度", "__"},
      {"\x7f!@[`{~", "_______"},
      {"\xc3", "_"},  // broken UTF-8
  };
  for (const auto& c : kCases) EXPECT_EQ(CleanIdentifier(c.name), c.cleaned) << c.name;
}

TEST(IdentifierTest, SaysWhyVisualBasicWouldRefuse) {
  const struct {
    std::string name;
    IdentifierProblem problem;
    const char* character;
    bool declarable;
  } kCases[] = {
      {"Level", IdentifierProblem::kNone, "", true},
      {"Füllstand_1", IdentifierProblem::kNone, "", true},
      {"NextOne", IdentifierProblem::kNone, "", true},
      {"", IdentifierProblem::kEmpty, "", false},
      {"1a", IdentifierProblem::kLeadingDigit, "1", false},
      {"a b", IdentifierProblem::kForbiddenCharacter, " ", false},
      {"a\r\nb", IdentifierProblem::kForbiddenCharacter, "\r", false},
      {"a'b", IdentifierProblem::kForbiddenCharacter, "'", false},
      {"Łódź", IdentifierProblem::kForbiddenCharacter, "Ł", false},
      {"_a", IdentifierProblem::kLeadingUnderscore, "_", true},
      {"_", IdentifierProblem::kLoneUnderscore, "_", false},
      {"a€", IdentifierProblem::kNotALetter, "€", true},
      {"a×b", IdentifierProblem::kNotALetter, "×", true},
      {"nExT", IdentifierProblem::kReservedWord, "", false},
      {"Double", IdentifierProblem::kReservedWord, "", false},
      {"Xor", IdentifierProblem::kReservedWord, "", false},
      {"Abs", IdentifierProblem::kReservedWord, "", false},
      {std::string(255, 'a'), IdentifierProblem::kNone, "", true},
      {std::string(256, 'a'), IdentifierProblem::kTooLong, "", false},
      {"_" + std::string(255, 'a'), IdentifierProblem::kLeadingUnderscore, "_", false},
  };
  for (const auto& c : kCases) {
    const IdentifierHint hint = CheckIdentifier(c.name);
    EXPECT_EQ(hint.problem, c.problem) << c.name;
    EXPECT_EQ(hint.character, c.character) << c.name;
    EXPECT_EQ(IsDeclarable(c.name), c.declarable) << c.name;
  }
}

TEST(IdentifierTest, ProposesValidNames) {
  const struct {
    std::string name;
    std::string valid;
  } kCases[] = {
      {"Tank.Level", "Tank_Level"},
      {"1.a", "A1_a"},
      {"_x", "x"},
      {"a€b", "a_b"},
      {"", "A"},
      {"_1", "A1"},
      {"Next", "Next_"},
      {"温度", "A"},
      {"Äq", "Äq"},
      {std::string(300, 'Z'), std::string(245, 'Z')},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(ValidIdentifier(c.name), c.valid) << c.name;
    EXPECT_FALSE(CheckIdentifier(c.valid)) << c.valid;
  }
}

TEST(DataTypeTest, FollowsTheTable) {
  const struct {
    std::int32_t code;
    const char* name;
  } kCases[] = {{2, "Integer"},    {18, "Integer"}, {3, "Long"},     {19, "Long"},
                {22, "Long"},      {23, "Long"},    {4, "Single"},   {5, "Double"},
                {6, "Currency"},   {7, "Date"},     {8, "String"},   {11, "Boolean"},
                {12, "Variant"},   {14, "Variant"}, {16, "Byte"},    {17, "Byte"},
                {0, "Variant"},    {1, "Variant"},  {20, "Variant"}, {21, "Variant"},
                {8197, "Variant"}, {-1, "Variant"}};
  for (const auto& c : kCases) EXPECT_EQ(GetDataType(c.code), c.name) << c.code;
}

}  // namespace
}  // namespace codegen
