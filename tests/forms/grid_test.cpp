// SPDX-License-Identifier: MIT
#include "forms/grid.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "forms/form.h"
#include "platform/error.h"

namespace forms {
namespace {

using platform::Variant;

class CountingRows : public RowSource {
 public:
  explicit CountingRows(std::size_t count) : count_(count) {}
  std::size_t RowCount() override {
    ++counted_;
    return count_;
  }
  std::vector<Row> Rows(std::size_t first, std::size_t count) override {
    std::vector<Row> rows;
    for (std::size_t i = first; i < count_ && i < first + count; ++i) {
      rows.push_back({Id(i), {Variant("Tank" + std::to_string(i) + ".Level")}});
    }
    delivered_ += rows.size();
    return rows;
  }
  std::optional<std::size_t> IndexOf(std::int64_t id) override {
    ++looked_up_;
    auto index = static_cast<std::size_t>(id - 1000);
    return id >= 1000 && index < count_ ? std::optional(index) : std::nullopt;
  }
  static std::int64_t Id(std::size_t index) { return static_cast<std::int64_t>(index) + 1000; }
  std::size_t delivered() const { return delivered_; }
  std::size_t looked_up() const { return looked_up_; }
  std::size_t counted() const { return counted_; }
  void SetCount(std::size_t count) { count_ = count; }

 private:
  std::size_t count_;
  std::size_t counted_ = 0;
  std::size_t looked_up_ = 0;
  std::size_t delivered_ = 0;
};

class GridTest : public ::testing::Test {
 protected:
  GridTest() {
    Split& left = grid.AddSplit(3000);
    left.AddColumn("AliasID", 3000);
    Split& right = grid.AddSplit(0);
    right.AddColumn("In", 2000);
    right.AddColumn("Out", 2000);
    for (int i = 0; i < 3; ++i) {
      rows->All().push_back({10 + i, {Variant("alias" + std::to_string(i)), Variant(false)}});
    }
    grid.SetRowSource(rows);
    grid.on_before_column_update = [this](std::size_t, const Variant&, const Variant& value,
                                          bool& cancel) {
      log += "before ";
      cancel = value == Variant("refused");
    };
    grid.on_after_column_update = [this](std::size_t) { log += "after "; };
    grid.on_write = [this](std::int64_t id, const std::vector<CellChange>& changes) {
      log += "write ";
      if (fail)
        throw platform::Error(platform::ErrorKind::kRefused, 7,
                              messages::Message::Verbatim("duplicate"));
      for (auto& row : rows->All()) {
        if (row.id != id) continue;
        for (const auto& change : changes) row.cells[change.column] = change.new_value;
      }
    };
    grid.on_error = [this](const GridError& error) {
      log += "error:" + error.message.English() + " ";
    };
  }

  Form form{"form"};
  Grid grid{&form, "tdbP"};
  std::shared_ptr<MemoryRows> rows = std::make_shared<MemoryRows>();
  std::string log;
  bool fail = false;
};

TEST_F(GridTest, WritesARowWhenItIsLeft) {
  ASSERT_TRUE(grid.SetCurrentId(11));
  ASSERT_TRUE(grid.EditCell(0, Variant("Level")));
  EXPECT_TRUE(grid.DataChanged());
  EXPECT_EQ(grid.Cell(1, 0), Variant("alias1"));
  EXPECT_EQ(grid.ShownCell(1, 0), Variant("Level"));
  EXPECT_EQ(grid.ShownCell(0, 0), Variant("alias0"));
  ASSERT_EQ(grid.PendingChanges().size(), 1u);
  EXPECT_EQ(grid.PendingChanges()[0].field, "AliasID");
  EXPECT_EQ(grid.PendingChanges()[0].old_value, Variant("alias1"));
  EXPECT_TRUE(grid.SetCurrentId(12));
  EXPECT_EQ(log, "before after write ");
  EXPECT_FALSE(grid.DataChanged());
  EXPECT_EQ(grid.Cell(1, 0), Variant("Level"));
}

TEST_F(GridTest, KeepsTheRowWhenWritingFails) {
  fail = true;
  grid.SetCurrentId(11);
  grid.EditCell(0, Variant("Level"));
  EXPECT_FALSE(grid.SetCurrentId(12));
  EXPECT_EQ(grid.CurrentId(), 11);
  EXPECT_EQ(log, "before after write error:duplicate ");
  EXPECT_EQ(grid.Problem().English(), "duplicate");
  EXPECT_TRUE(grid.DataChanged());
  grid.CancelUpdate();
  EXPECT_FALSE(grid.DataChanged());
  EXPECT_EQ(grid.ShownCell(1, 0), Variant("alias1"));
  EXPECT_TRUE(grid.SetCurrentId(12));
}

// Whoever writes a row as soon as its cell was left does so once, also when it fails.
TEST_F(GridTest, WritesAPendingEditOnce) {
  fail = true;
  grid.on_after_column_update = [this](std::size_t) { grid.Update(); };
  grid.SetCurrentId(11);
  grid.BeginEdit(0);
  grid.SetEditValue(Variant("Level"));
  EXPECT_FALSE(grid.Update());
  EXPECT_EQ(log, "before write error:duplicate ");
}

TEST_F(GridTest, EditsEndInOneOfFourWays) {
  grid.SetCurrentId(10);
  EXPECT_FALSE(grid.EditCell(0, Variant("refused")));
  EXPECT_EQ(log, "before ");
  EXPECT_FALSE(grid.EditActive());
  EXPECT_FALSE(grid.DataChanged());

  log.clear();
  EXPECT_TRUE(grid.EditCell(0, Variant("alias0")));  // unchanged
  EXPECT_EQ(log, "");
  EXPECT_FALSE(grid.DataChanged());

  ASSERT_TRUE(grid.BeginEdit(0));
  grid.SetEditValue(Variant("x"));
  grid.CancelEdit();
  EXPECT_FALSE(grid.EditActive());
  EXPECT_FALSE(grid.DataChanged());

  ASSERT_TRUE(grid.BeginEdit(0));
  grid.SetEditValue(Variant("y"));
  EXPECT_TRUE(grid.BeginEdit(1));  // ends the edit of the other cell
  EXPECT_EQ(log, "before after ");
  EXPECT_TRUE(grid.EditActive());
  EXPECT_TRUE(grid.Update());
  EXPECT_EQ(rows->All()[0].cells[0], Variant("y"));

  grid.ColumnAt(2).SetLocked(true);
  EXPECT_FALSE(grid.BeginEdit(2));
  EXPECT_FALSE(grid.BeginEdit(3));
  grid.SetCurrentId(std::nullopt);
  EXPECT_FALSE(grid.BeginEdit(0));
}

TEST_F(GridTest, KeepsCurrentRowAndSelectionOverAReload) {
  grid.SetCurrentId(11);
  grid.SetSelection({12, 10});
  rows->All().insert(rows->All().begin(), Row{99, {Variant("new")}});
  grid.Rebind();
  EXPECT_EQ(grid.CurrentPosition(), 2u);
  EXPECT_EQ(grid.SelectedIds(), (std::vector<std::int64_t>{10, 12}));
  std::erase_if(rows->All(), [](const Row& row) { return row.id >= 11 && row.id <= 12; });
  int moved = 0;
  grid.on_current_row = [&] { ++moved; };
  grid.Rebind();
  EXPECT_EQ(grid.CurrentId(), 10);  // the last row, since the place is gone
  EXPECT_EQ(moved, 1);
  EXPECT_EQ(grid.SelectedIds(), (std::vector<std::int64_t>{10}));
  rows->All().clear();
  grid.Rebind();
  EXPECT_EQ(grid.CurrentId(), std::nullopt);
  EXPECT_EQ(grid.SelectedCount(), 0u);
}

TEST_F(GridTest, ReadsManySelectedRowsInOnePassAndLooksFewUp) {
  const auto many = std::make_shared<CountingRows>(10000);
  grid.SetRowSource(many);
  std::vector<std::int64_t> ids;
  for (std::size_t i = 0; i < 10000; ++i) ids.push_back(CountingRows::Id(i));
  grid.SetSelection(ids);
  many->SetCount(9000);
  grid.Rebind();
  ids.resize(9000);
  EXPECT_EQ(grid.SelectedIds(), ids);
  EXPECT_LT(many->looked_up(), 10u);
  EXPECT_LE(many->delivered(), 20000u);

  grid.SetSelection({ids[8000], ids[5]});
  many->SetCount(7000);
  const std::size_t delivered = many->delivered();
  grid.Rebind();
  EXPECT_EQ(grid.SelectedRows(), (std::vector<std::pair<std::size_t, std::int64_t>>{{5, ids[5]}}));
  EXPECT_EQ(many->delivered(), delivered);
}

TEST_F(GridTest, FilterKeepsPositionsAndIdsTogether) {
  rows->All()[1].cells[0] = Variant("Ölstand");
  grid.Rebind();
  grid.SetCurrentId(10);
  grid.SetSelection({10, 11});
  grid.SetFilter("öL");
  ASSERT_EQ(grid.RowCount(), 1u);
  EXPECT_EQ(grid.IdAt(0), 11);
  EXPECT_EQ(grid.PositionOf(11), 0u);
  EXPECT_EQ(grid.PositionOf(10), std::nullopt);
  EXPECT_EQ(grid.CurrentId(), 11);
  EXPECT_EQ(grid.SelectedIds(), (std::vector<std::int64_t>{11}));  // no hidden row stays selected
  grid.SetFilter("nothing like it");
  EXPECT_EQ(grid.RowCount(), 0u);
  EXPECT_EQ(grid.Cell(0, 0), Variant());
  grid.SetFilter("");
  EXPECT_EQ(grid.RowCount(), 3u);
}

TEST_F(GridTest, OrderKeepsPositionsAndIdsTogether) {
  const char* const names[] = {"tank10", "Tank2", "", "Ölstand", "Tank02", "tank2x"};
  rows->All().clear();
  for (const char* name : names) {
    rows->All().push_back(
        {10 + static_cast<std::int64_t>(rows->All().size()), {Variant(name), Variant(false)}});
  }
  rows->All()[3].cells[1] = Variant(true);
  grid.Rebind();
  grid.SetCurrentId(13);
  grid.SetSelection({11, 13});
  const auto ids = [&] {
    std::vector<std::int64_t> shown;
    for (std::size_t i = 0; i < grid.RowCount(); ++i) {
      shown.push_back(grid.IdAt(i));
      EXPECT_EQ(grid.PositionOf(shown.back()), i);
      EXPECT_EQ(grid.Cell(i, 0), rows->All()[static_cast<std::size_t>(shown[i] - 10)].cells[0]);
    }
    return shown;
  };
  using Ids = std::vector<std::int64_t>;
  grid.SetSort(RowSort{0, false});
  EXPECT_EQ(ids(), (Ids{12, 14, 11, 15, 10, 13}));
  EXPECT_EQ(grid.CurrentId(), 13);
  EXPECT_EQ(grid.SelectedIds(), (Ids{11, 13}));
  grid.SetSort(RowSort{0, true});
  EXPECT_EQ(ids(), (Ids{13, 10, 15, 11, 14, 12}));
  grid.SetFilter("tank");
  EXPECT_EQ(ids(), (Ids{10, 15, 11, 14}));
  EXPECT_EQ(grid.SelectedIds(), (Ids{11}));
  EXPECT_EQ(grid.PositionOf(13), std::nullopt);
  grid.SetFilter("");
  rows->All().pop_back();
  rows->All()[0].cells[0] = Variant("A");
  grid.Rebind();
  EXPECT_EQ(ids(), (Ids{13, 11, 14, 10, 12})) << "what changed has another place";
  grid.SetSort(RowSort{1, true});
  EXPECT_EQ(ids(), (Ids{13, 10, 11, 12, 14})) << "equal ones as they come";
  grid.SetSort(std::nullopt);
  EXPECT_EQ(ids(), (Ids{10, 11, 12, 13, 14}));
}

TEST_F(GridTest, ColumnsStayInTheirSplit) {
  struct Case {
    std::int32_t alias, in, out;
    std::vector<std::size_t> shown;
  };
  const Case cases[] = {
      {0, 0, 0, {0, 1, 2}},
      {9, 2, 1, {0, 2, 1}},
      {-1, 5, 5, {0, 1, 2}},
  };
  for (const Case& c : cases) {
    grid.ColumnAt(0).SetOrder(c.alias);
    grid.ColumnAt(1).SetOrder(c.in);
    grid.ColumnAt(2).SetOrder(c.out);
    EXPECT_EQ(grid.DisplayOrder(), c.shown);
  }
  grid.SetDisplayOrder({0, 2, 1});
  EXPECT_EQ(grid.DisplayOrder(), (std::vector<std::size_t>{0, 2, 1}));
  grid.SetDisplayOrder({1, 2, 0});
  EXPECT_EQ(grid.DisplayOrder(), (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(grid.SplitOfColumn(0), 0u);
  EXPECT_EQ(grid.SplitOfColumn(2), 1u);
}

TEST_F(GridTest, ReadsOnlyTheBlocksThatAreSeen) {
  auto many = std::make_shared<CountingRows>(100000);
  grid.SetRowSource(many);
  EXPECT_EQ(grid.RowCount(), 100000u);
  const std::size_t counted = many->counted();
  for (std::size_t i = 0; i < 40; ++i) {
    EXPECT_EQ(grid.Cell(70000 + i, 0), Variant("Tank" + std::to_string(70000 + i) + ".Level"));
  }
  EXPECT_LE(many->delivered(), 512u);
  EXPECT_EQ(many->counted(), counted) << "counting may read a file";
  EXPECT_TRUE(grid.SetCurrentId(CountingRows::Id(99999)));
  EXPECT_EQ(grid.CurrentPosition(), 99999u);
  EXPECT_EQ(grid.Cell(100000, 0), Variant());
  grid.SetFilter("tank9999");
  EXPECT_EQ(grid.RowCount(), 11u);
}

}  // namespace
}  // namespace forms
