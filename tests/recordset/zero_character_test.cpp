// SPDX-License-Identifier: MIT
// The character of code 0 on every way in and out: nothing may take it for the end of a text.
#include <gtest/gtest.h>

#include <string>

#include "tests/recordset/row_text.h"
#include "tests/support/memory_database.h"

namespace recordset {
namespace {

using platform::Error;
using platform::Variant;
using namespace std::string_literals;

TEST(ZeroCharacter, PassesEveryWayInAndOut) {
  support::MemoryDatabase db;
  const std::string texts[] = {"\0"s, "a\0b"s, "\0c"s, "d\0"s, "e"};
  for (const std::string& text : texts) db.AddAlias(text, "N" + text);
  const std::string all = "\\0 a\\0b \\0c d\\0 e";

  auto rows = db.Open("TvbfAlias");
  EXPECT_EQ(RowsText(*rows, {"ItemID"}), all);
  EXPECT_EQ(RowsText(*rows->Clone(), {"ItemID"}), all);
  EXPECT_EQ(RowsText(*support::MemoryDatabase::Open(*db.Connect(), "TvbfAlias"), {"ItemID"}), all);
  rows->MoveFirst();
  const platform::RowBlock block = rows->GetRows(-1, {"ItemID"});
  for (std::size_t i = 0; i < std::size(texts); ++i) EXPECT_EQ(block.At(0, i).Text(), texts[i]);

  // As literal, parameter, filter, search text and key: it weighs nothing beside letters.
  EXPECT_EQ(RowsText(*db.Open("SELECT ItemID FROM TvbfAlias WHERE ItemID = 'a\0b'"s)), "a\\0b");
  EXPECT_EQ(RowsText(*db.Open("SELECT ItemID FROM TvbfAlias WHERE ItemID = ?", {"A\0B"s})),
            "a\\0b");
  rows->SetFilter("ItemID = 'a\0b'"s);
  EXPECT_EQ(RowsText(*rows, {"ItemID"}), "a\\0b");
  rows->SetFilter("");
  rows->Find("ItemID = 'd\0'"s);
  EXPECT_EQ(rows->Fields("ItemID").Value(), Variant("d\0"s));
  auto by_name = db.OpenTable("TvbfAlias", "VBAlias");
  by_name->Seek({"Na\0b"s});
  EXPECT_EQ(by_name->Fields("ItemID").Value(), Variant("a\0b"s));

  // Changed and read back, alone and beside others.
  by_name->Fields("ItemID").SetValue("x\0\0y\0"s);
  by_name->Update();
  EXPECT_EQ(by_name->Fields("ItemID").OriginalValue(), Variant("x\0\0y\0"s));
  EXPECT_TRUE(db.connection()->database().Verify().ok());
}

// A name is the whole text, not the part before the character.
TEST(ZeroCharacter, IsPartOfANameWhereverOneIsGiven) {
  support::MemoryDatabase db;
  EXPECT_THROW(db.Open("TvbfAlias\0x"s), Error);
  EXPECT_THROW(db.OpenTable("TvbfAlias", "VBAlias\0"s), Error);
  EXPECT_THROW(db.Open("TvbfAlias")->Fields("ID\0"s), Error);
  EXPECT_THROW(db.Open("SELECT * FROM TvbfAlias\0"s), Error);
  EXPECT_THROW(db.Open("TvbfAlias")->SetFilter("ID = 1\0"s), Error);
  EXPECT_THROW(db.connection()->Columns("TvbfAlias\0"s), Error);
  JetConnection connection(db.system());
  EXPECT_THROW(connection.Open(store::ProjectConnectionString(db.path() + '\0')), Error);
}

}  // namespace
}  // namespace recordset
