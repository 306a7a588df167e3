// SPDX-License-Identifier: MIT
// Positions, filters, searches and blocks of rows.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "tests/recordset/row_text.h"
#include "tests/support/memory_database.h"

namespace recordset {
namespace {

using platform::Error;
using platform::SearchDirection;
using platform::SeekOption;
using platform::Variant;

class CursorTest : public testing::Test {
 protected:
  CursorTest() {
    for (const char* name : {"Delta", "Alpha", "Charlie", "Bravo", "Echo"}) {
      db_.AddAlias(std::string("Item.") + name, name);
    }
  }

  static std::string Name(platform::Recordset& rs) { return rs.Fields("VBAlias").Value().ToText(); }
  static std::string Ends(platform::Recordset& rs) {
    return std::string(rs.BOF() ? "B" : "-") + (rs.EOF_() ? "E" : "-");
  }

  support::MemoryDatabase db_;
};

TEST_F(CursorTest, StandsAtTheEdgesAsAdoDoes) {
  auto rs = db_.Open("TvbfAlias");
  EXPECT_EQ(Ends(*rs), "--");
  EXPECT_EQ(Name(*rs), "Delta");
  EXPECT_EQ(rs->RecordCount(), 5);

  rs->MovePrevious();
  EXPECT_EQ(Ends(*rs), "B-");
  EXPECT_EQ(ErrorOf([&] { rs->Fields("ID").Value(); }), platform::kErrNoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { rs->MovePrevious(); }), platform::kErrNoCurrentRecord);
  rs->MoveNext();
  EXPECT_EQ(Name(*rs), "Delta");

  rs->MoveLast();
  EXPECT_EQ(Name(*rs), "Echo");
  rs->MoveNext();
  EXPECT_EQ(Ends(*rs), "-E");
  EXPECT_EQ(ErrorOf([&] { rs->MoveNext(); }), platform::kErrNoCurrentRecord);
  rs->MovePrevious();
  EXPECT_EQ(Name(*rs), "Echo");

  rs->SetFilter("ID > 99");
  EXPECT_EQ(Ends(*rs), "BE");
  EXPECT_EQ(rs->RecordCount(), 0);
  for (auto move : {&platform::Recordset::MoveFirst, &platform::Recordset::MoveLast,
                    &platform::Recordset::MoveNext, &platform::Recordset::MovePrevious}) {
    EXPECT_EQ(ErrorOf([&] { (*rs.*move)(); }), platform::kErrNoCurrentRecord);
    EXPECT_EQ(Ends(*rs), "BE");
  }
}

TEST_F(CursorTest, CallsInTheWrongStateAreRefused) {
  auto rs = db_.front().CreateRecordset();
  rs->SetSource("TvbfAlias");
  EXPECT_EQ(ErrorOf([&] { rs->MoveFirst(); }), platform::kErrObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rs->RecordCount(); }), platform::kErrObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rs->Close(); }), platform::kErrObjectClosed);
  rs->Open();
  EXPECT_EQ(ErrorOf([&] { rs->Open(); }), platform::kErrObjectOpen);
  EXPECT_EQ(ErrorOf([&] { rs->SetSource("TvbfParams"); }), platform::kErrObjectOpen);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("ID").SetValue(7); }), platform::kErrFeatureNotAvailable);
  EXPECT_EQ(ErrorOf([&] { rs->AddNew(); }), platform::kErrFeatureNotAvailable);
  EXPECT_EQ(ErrorOf([&] { rs->Seek({1}); }), platform::kErrFeatureNotAvailable);
  rs->Close();
  db_.front().Close();
  EXPECT_EQ(ErrorOf([&] { rs->Open(); }), platform::kErrObjectClosed);
}

TEST_F(CursorTest, PlacesAndBookmarksFollowTheRow) {
  auto rs = db_.Open("SELECT * FROM TvbfAlias ORDER BY VBAlias");
  EXPECT_EQ(RowsText(*rs, {"VBAlias"}), "Alpha Bravo Charlie Delta Echo");
  EXPECT_EQ(rs->AbsolutePosition(), 0);
  rs->SetAbsolutePosition(3);
  EXPECT_EQ(Name(*rs), "Charlie");
  const platform::Bookmark charlie = rs->GetBookmark();
  rs->MoveLast();
  EXPECT_EQ(rs->AbsolutePosition(), 5);
  rs->SetBookmark(charlie);
  EXPECT_EQ(Name(*rs), "Charlie");
  EXPECT_EQ(rs->AbsolutePosition(), 3);
  for (std::int32_t outside : {0, -1, 6}) {
    EXPECT_EQ(ErrorOf([&] { rs->SetAbsolutePosition(outside); }), platform::kErrInvalidArgument);
  }
  EXPECT_EQ(Name(*rs), "Charlie");

  auto clone = rs->Clone();
  clone->SetBookmark(charlie);
  EXPECT_EQ(Name(*clone), "Charlie");
  clone->MoveFirst();
  EXPECT_EQ(Name(*rs), "Charlie");

  rs->SetFilter("VBAlias <> 'Charlie'");
  EXPECT_EQ(ErrorOf([&] { rs->SetBookmark(charlie); }), platform::kErrInvalidArgument);
  rs->MoveFirst();
  rs->Delete();
  clone->Requery();
  EXPECT_EQ(RowsText(*clone, {"VBAlias"}), "Bravo Charlie Delta Echo");
}

TEST_F(CursorTest, BookmarksOfJoinsNameAllTheirRows) {
  const std::int32_t formula = db_.AddFormula("F", "P.C");
  for (std::int32_t alias : {3, 1, 5}) db_.AddArgument(formula, alias);
  auto rs =
      db_.Open("SELECT VBAlias FROM TvbfParams INNER JOIN TvbfAlias ON AliasID = TvbfAlias.ID");
  EXPECT_EQ(RowsText(*rs), "Charlie Delta Echo");
  rs->SetAbsolutePosition(2);
  const platform::Bookmark delta = rs->GetBookmark();
  auto clone = rs->Clone();
  clone->MoveLast();
  clone->SetBookmark(delta);
  EXPECT_EQ(Name(*clone), "Delta");
  EXPECT_EQ(ErrorOf([&] { clone->SetBookmark({77}); }), platform::kErrInvalidArgument);
}

TEST_F(CursorTest, FiltersAndMovesToTheFirstRowThatPasses) {
  auto rs = db_.Open("TvbfAlias");
  struct Case {
    const char* filter;
    const char* names;
  };
  const Case cases[] = {
      {"ID= 4", "Bravo"},
      {"VBAlias = 'CHARLIE '", "Charlie"},
      {"ID > 1 AND VBAlias < 'Charlie'", "Alpha Bravo"},
      {"(ID >= 2) AND (ID <= 3)", "Alpha Charlie"},
      {"VBAlias = Null", ""},
      {"ItemID <> Null AND ID <> 1", "Alpha Charlie Bravo Echo"},
      {"ID = 99", ""},
      {"", "Delta Alpha Charlie Bravo Echo"},
  };
  for (const Case& c : cases) {
    rs->MoveLast();
    rs->SetFilter(c.filter);
    EXPECT_EQ(rs->Filter(), c.filter);
    EXPECT_EQ(RowsText(*rs, {"VBAlias"}), c.names) << c.filter;
    rs->SetFilter("");
  }

  rs->SetFilter("ID = 3");
  for (const char* bad : {"Nothing = 1", "VBAlias = 5", "VBAlias = 'x' OR '1'='1'", "ID ="}) {
    EXPECT_THROW(rs->SetFilter(bad), Error) << bad;
  }
  EXPECT_EQ(rs->Filter(), "ID = 3");
  EXPECT_EQ(RowsText(*rs, {"VBAlias"}), "Charlie");
}

TEST_F(CursorTest, FiltersNarrowAQueryAndAJoin) {
  const std::int32_t formula = db_.AddFormula("F", "P.C");
  for (std::int32_t alias : {1, 2, 3}) db_.AddArgument(formula, alias, alias != 2);
  auto rs = db_.Open("SELECT * FROM TvbfParams  WHERE ParentID = ?", {formula});
  rs->SetFilter("AliasID = 2");
  EXPECT_EQ(RowsText(*rs, {"AliasID"}), "2");
  rs->SetFilter("In = 0");
  EXPECT_EQ(RowsText(*rs, {"AliasID"}), "2");

  auto join = db_.Open(
      "SELECT TvbfParams.ID, TvbfAlias.ID, VBAlias FROM TvbfParams INNER JOIN TvbfAlias ON "
      "AliasID = TvbfAlias.ID");
  join->SetFilter("[TvbfAlias.ID] > 1 AND TvbfParams.ID < 3");
  EXPECT_EQ(RowsText(*join, {"VBAlias"}), "Alpha");
}

// Where a search ends is seen beside the model of moving data; here what it compares, and errors.
TEST_F(CursorTest, FindsTextsAndRanges) {
  for (const char* source : {"TvbfAlias", "SELECT VBAlias, ID FROM TvbfAlias WHERE ID > 0"}) {
    auto rs = db_.Open(source);
    rs->Find("VBAlias = 'bravo '");
    EXPECT_EQ(Name(*rs), "Bravo") << source;
    rs->Find("VBAlias < 'B'", SearchDirection::kBackward);
    EXPECT_EQ(Name(*rs), "Alpha");
    rs->Find("ID >= 4");
    EXPECT_EQ(Name(*rs), "Bravo");
    EXPECT_EQ(ErrorOf([&] { rs->Find("Nothing = 1"); }), platform::kErrInvalidArgument);
    EXPECT_EQ(ErrorOf([&] { rs->Find("ID = 1 AND ID = 2"); }), platform::kErrSyntax);
    EXPECT_EQ(Name(*rs), "Bravo");
  }
  auto empty = db_.Open("TvbfParams");
  empty->Find("ID = 1");
  EXPECT_EQ(Ends(*empty), "BE");
}

// From every kind of position, with criteria that an index answers for few rows or for many, and
// with those that none answers.
TEST_F(CursorTest, FindsByIndexWhatReadingFinds) {
  db_.front().BeginTrans();
  for (std::int32_t i = 0; i < 200; ++i) db_.AddArgument(i % 2, i / 2 * 37 % 100, i % 3 != 0);
  db_.front().CommitTrans();
  std::mt19937 random(3);
  for (const char* index : {"", "Unique"}) {
    for (int round = 0; round < 300; ++round) {
      auto rs = *index ? db_.OpenTable("TvbfParams", index) : db_.Open("TvbfParams");
      const platform::RowBlock rows = rs->GetRows(-1, {});
      const std::size_t column = random() % 4;
      const Variant value = rows.At(column, random() % rows.RowCount()).ToVariant();
      const std::string criterion =
          rs->FieldNames()[column] + " = " + std::to_string(value.ToLong());
      std::size_t from = random() % 204;
      if (round % 2 == 0) rs->Requery();
      rs->MoveFirst();
      if (from < 200) {
        rs->SetAbsolutePosition(static_cast<std::int32_t>(from) + 1);
      } else if (from == 200) {
        rs->MoveLast();
        rs->MoveNext();
      } else {
        if (from == 201) rs->MovePrevious();  // otherwise not looked at yet
        from = 0;
      }
      while (from < 200 && rows.At(column, from).ToVariant() != value) ++from;
      rs->Find(criterion);
      const std::string where = std::string(index) + ": " + criterion;
      ASSERT_EQ(rs->EOF_(), from >= 200) << where;
      if (from >= 200) continue;
      ASSERT_EQ(rs->Fields("ID").Value(), rows.At(0, from).ToVariant()) << where;
    }
  }
}

TEST_F(CursorTest, SeeksInTheOrderOfTheIndex) {
  auto rs = db_.OpenTable("TvbfAlias", "VBAlias");
  EXPECT_EQ(RowsText(*rs, {"VBAlias"}), "Alpha Bravo Charlie Delta Echo");
  rs->Seek({"charlie  "});
  EXPECT_EQ(Name(*rs), "Charlie");
  rs->MoveNext();
  EXPECT_EQ(Name(*rs), "Delta");
  rs->Seek({"Cesar"});
  EXPECT_EQ(Ends(*rs), "-E");
  rs->Seek({"Cesar"}, SeekOption::kAfterEqual);
  EXPECT_EQ(Name(*rs), "Charlie");
  rs->Seek({"Zulu"}, SeekOption::kAfterEqual);
  EXPECT_EQ(Ends(*rs), "-E");
  EXPECT_EQ(ErrorOf([&] { rs->Seek({5}); }), platform::kErrTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { rs->Seek({"a", "b"}); }), platform::kErrInvalidArgument);
  EXPECT_EQ(ErrorOf([&] { rs->Seek({}); }), platform::kErrInvalidArgument);

  // A row that another recordset added is found, and moving goes on from it.
  db_.AddAlias("Item.Dora", "Dora");
  rs->Seek({"DORA"});
  EXPECT_EQ(Name(*rs), "Dora");
  rs->MoveNext();
  EXPECT_EQ(Name(*rs), "Echo");

  db_.AddArgument(7, 3);
  db_.AddArgument(7, 1);
  auto arguments = db_.OpenTable("TvbfParams", "Unique");
  arguments->Seek({7, 3});
  EXPECT_EQ(arguments->Fields("ID").Value(), Variant(1));
  arguments->Seek({7});
  EXPECT_EQ(arguments->Fields("ID").Value(), Variant(2)) << "first of the key";
  arguments->Seek({7, 2});
  EXPECT_TRUE(arguments->EOF_());
  arguments->Seek({7, 3e10});
  EXPECT_TRUE(arguments->EOF_());
  EXPECT_EQ(ErrorOf([&] { db_.OpenTable("TvbfAlias", "Nothing"); }), platform::kErrNoSuchIndex);
}

TEST_F(CursorTest, ReadsBlocksOfRows) {
  auto rs = db_.Open("TvbfAlias");
  auto text = [](const platform::RowBlock& rows) {
    std::string result;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      for (std::size_t field = 0; field < rows.FieldCount(); ++field) {
        result += rows.At(field, row).ToText() + (field + 1 < rows.FieldCount() ? "|" : " ");
      }
    }
    return result;
  };
  EXPECT_EQ(text(rs->GetRows(-1, {"vbalias", "ID"})), "Delta|1 Alpha|2 Charlie|3 Bravo|4 Echo|5 ");
  EXPECT_TRUE(rs->EOF_());
  EXPECT_EQ(ErrorOf([&] { rs->GetRows(1, {}); }), platform::kErrNoCurrentRecord);
  rs->MoveFirst();
  EXPECT_EQ(text(rs->GetRows(2, {"VBAlias"})), "Delta Alpha ");
  EXPECT_EQ(Name(*rs), "Charlie");
  EXPECT_EQ(text(rs->GetRows(-1, {"ID"})), "3 4 5 ");
  rs->MoveFirst();
  EXPECT_EQ(text(rs->GetRows(99, {"ID"})), "1 2 3 4 5 ");
  rs->SetFilter("ID > 3");
  EXPECT_EQ(text(rs->GetRows(-1, {})), "4|Item.Bravo|Bravo 5|Item.Echo|Echo ");
  EXPECT_EQ(ErrorOf([&] { rs->GetRows(-1, {"Nothing"}); }), platform::kErrItemNotFound);
}

// That moves pass over it is seen beside the model of moving data.
TEST_F(CursorTest, ARowThatOthersDeletedIsShownAndNotChanged) {
  auto rs = db_.Open("TvbfAlias");
  rs->SetAbsolutePosition(2);
  auto other = db_.Open("TvbfAlias");
  other->Find("ID = 2");
  other->Delete();
  EXPECT_EQ(Name(*rs), "Alpha") << "what was read stays";
  EXPECT_EQ(ErrorOf([&] { rs->Resync(); }), platform::kErrRowDeleted);
  EXPECT_EQ(ErrorOf([&] { rs->Fields("VBAlias").SetValue("New"); }), platform::kErrRowDeleted);
  rs->MoveNext();
  EXPECT_EQ(Name(*rs), "Charlie");
}

// As a grid reads: the places of a block are those that the next one goes on from.
TEST_F(CursorTest, BlocksHaveEachRowOnceWhateverOthersDelete) {
  for (int i = 0; i < 200; ++i) db_.AddAlias("Item", "More" + std::to_string(i));
  for (const char* gone : {"ID = 2", "ID < 60", "ID > 3", "VBAlias > 'More5'"}) {
    SCOPED_TRACE(gone);
    for (const char* source : {"TvbfAlias", "SELECT * FROM TvbfAlias ORDER BY VBAlias"}) {
      db_.front().BeginTrans();
      auto rs = db_.Open(source);
      rs->MoveLast();
      auto other = db_.Open(source);
      other->SetFilter(gone);
      while (!other->EOF_()) {
        other->Delete();
        other->MoveNext();
      }
      const std::string expected = RowsText(*db_.Open(source), {"ID"});
      std::string read;
      for (std::int32_t first = 1; first <= rs->RecordCount();) {
        rs->SetAbsolutePosition(first);
        const platform::RowBlock block = rs->GetRows(7, {"ID"});
        for (std::size_t row = 0; row < block.RowCount(); ++row) {
          read += (read.empty() ? "" : " ") + block.At(0, row).ToText();
        }
        first += static_cast<std::int32_t>(block.RowCount());
      }
      EXPECT_EQ(read, expected);
      EXPECT_EQ(rs->RecordCount(),
                std::ssize(expected) == 0 ? 0 : 1 + std::ranges::count(expected, ' '));
      rs->Close();
      other->Close();
      db_.front().RollbackTrans();
    }
  }
}

TEST_F(CursorTest, CountsFromTheDefinitionUntilItWalks) {
  auto rs = db_.Open("TvbfAlias");
  db_.AddAlias("Item.Foxtrot", "Foxtrot");
  EXPECT_EQ(rs->RecordCount(), 6);
  EXPECT_EQ(RowsText(*rs, {"ID"}), "1 2 3 4 5 6");
  db_.AddAlias("Item.Golf", "Golf");
  EXPECT_EQ(rs->RecordCount(), 6) << "the rows were settled by the walk";
  rs->Requery();
  EXPECT_EQ(rs->RecordCount(), 7);
}

TEST_F(CursorTest, ReadsAllRowsWhateverTheDefinitionCounts) {
  constexpr std::size_t kPageSize = 4096, kRowsOffset = 16;
  const std::size_t page = db_.connection()->database().OpenTable("TvbfAlias").definition_page();
  db_.front().Close();
  std::string file = db_.system().Get(db_.path());
  db_.system().Put(db_.path(), file.replace(page * kPageSize + kRowsOffset, 4, "\xFF\xFF\xFF\xFF"));
  auto connection = db_.Connect();
  auto rs = support::MemoryDatabase::Open(*connection, "TvbfAlias");
  EXPECT_EQ(rs->GetRows(-1, {"ID"}).RowCount(), 5u);
  rs->MoveFirst();
  EXPECT_EQ(RowsText(*rs, {"ID"}), "1 2 3 4 5");
}

TEST_F(CursorTest, ClosingTheConnectionClosesItsRecordsets) {
  auto rs = db_.Open("TvbfAlias");
  auto closed = db_.Open("TvbfParams");
  closed->Close();
  rs->Fields("VBAlias").SetValue("New");
  ASSERT_EQ(db_.front().OpenRecordsets().size(), 1u);
  db_.front().Close();
  EXPECT_EQ(rs->State(), platform::ObjectState::kClosed);
  db_.front().Open(store::ProjectConnectionString(db_.path()));
  rs->Open();
  EXPECT_EQ(Name(*rs), "Delta");
}

}  // namespace
}  // namespace recordset
