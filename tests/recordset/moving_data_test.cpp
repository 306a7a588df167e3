// SPDX-License-Identifier: MIT
// A recordset beside a plain model of it, while another one changes the table: random moves,
// filters, searches, bookmarks, additions, changes and deletions.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/memory_database.h"

namespace recordset {
namespace {

using platform::Variant;

// What TvbfParams holds: ParentID by ID.
using Rows = std::map<std::int32_t, std::int32_t>;

// The rows a recordset knows, by ID in the order of addition, and the current one.
class Model {
 public:
  explicit Model(const Rows& table) : table_(table) {}

  void Settle(std::optional<std::int32_t> parent) {
    parent_ = parent;
    keys_.clear();
    deleted_ = false;
    for (const auto& [id, row_parent] : table_) {
      if (!parent || row_parent == *parent) keys_.push_back(id);
    }
    at_ = 0;
    if (keys_.empty()) at_ = kNowhere;
  }

  // The ID of the current row; nothing at the ends.
  std::optional<std::int32_t> Current() const {
    if (deleted_ || at_ < 0 || at_ >= Size()) return std::nullopt;
    return keys_[static_cast<std::size_t>(at_)];
  }
  bool AtEnd() const { return !deleted_ && (at_ == kNowhere || at_ >= Size()); }
  bool AtBegin() const { return !deleted_ && (at_ == kNowhere || at_ < 0); }

  // Rows that somebody deleted or that no longer pass the filter are passed over and forgotten
  // when a move comes upon them.
  void Go(std::ptrdiff_t to, int onward) {
    at_ = to;
    deleted_ = false;
    while (Current() && IsGone(*Current())) {
      keys_.erase(keys_.begin() + at_);
      if (onward < 0) --at_;
    }
    if (keys_.empty()) at_ = kNowhere;
  }
  void MoveFirst() { Go(0, 1); }
  void MoveLast() { Go(Size() - 1, -1); }
  void MoveNext() { Go(deleted_ ? at_ : at_ + 1, 1); }
  void MovePrevious() { Go(std::min(at_, Size()) - 1, -1); }
  void FindForward(std::int32_t parent) {
    if (at_ == kNowhere) return;
    if (at_ < 0) at_ = 0;
    deleted_ = false;
    if (keys_.empty()) at_ = kNowhere;
    while (at_ != kNowhere && at_ < Size() && !IsIn(parent)) ++at_;
  }
  void FindBackward(std::int32_t parent) {
    if (at_ == kNowhere) return;
    if (deleted_ || at_ >= Size()) at_ = std::min(at_, Size()) - 1;
    deleted_ = false;
    while (at_ >= 0 && !IsIn(parent)) --at_;
    if (keys_.empty()) at_ = kNowhere;
  }
  // False, changing nothing, when the row is not among those that are known.
  bool GoToRow(std::int32_t id) {
    const auto found = std::find(keys_.begin(), keys_.end(), id);
    if (found == keys_.end()) return false;
    Go(found - keys_.begin(), 1);
    return true;
  }
  void Add(std::int32_t id) {
    keys_.push_back(id);
    at_ = Size() - 1;
    deleted_ = false;
  }
  // The position is where the row was, until a move.
  void DeleteCurrent() {
    keys_.erase(keys_.begin() + at_);
    deleted_ = true;
  }
  bool empty() const { return keys_.empty(); }
  // From 1 on.
  std::int32_t Position() const { return static_cast<std::int32_t>(at_) + 1; }
  std::int32_t Count() const { return static_cast<std::int32_t>(keys_.size()); }

 private:
  static constexpr std::ptrdiff_t kNowhere = -99;
  // Whether the current row is there and has that parent.
  bool IsIn(std::int32_t parent) const {
    return !IsGone(*Current()) && table_.at(*Current()) == parent;
  }
  bool IsGone(std::int32_t id) const {
    const auto row = table_.find(id);
    return row == table_.end() || (parent_ && row->second != *parent_);
  }
  std::ptrdiff_t Size() const { return static_cast<std::ptrdiff_t>(keys_.size()); }

  const Rows& table_;
  std::optional<std::int32_t> parent_;  // the filter
  std::vector<std::int32_t> keys_;
  std::ptrdiff_t at_ = 0;
  bool deleted_ = false;
};

// Every second seed lets another connection change the table.
class MovingDataTest : public testing::TestWithParam<unsigned> {
 protected:
  MovingDataTest() : connection_(GetParam() % 2 == 0 ? db_.connection() : db_.Connect()) {
    // Keeps the page, so that the places of deleted rows are not given away again.
    Others()->AddNew({"ParentID", "AliasID"}, {-1, 0});
    for (int i = 0; i < 12; ++i) AddRow(*Others());
    rows_ = db_.Open("SELECT * FROM TvbfParams WHERE ParentID >= 0");
    model_.Settle(std::nullopt);
  }

  std::shared_ptr<platform::Recordset> Others(const std::string& filter = "") {
    auto rows = support::MemoryDatabase::Open(*connection_, "TvbfParams");
    rows->SetFilter(filter);
    return rows;
  }
  std::int32_t AddRow(platform::Recordset& rows) {
    const std::int32_t parent = Below(kParents);
    rows.AddNew({"ParentID", "AliasID"}, {parent, ++alias_});
    const std::int32_t id = rows.Fields("ID").Value().ToLong();
    table_[id] = parent;
    return id;
  }
  std::int32_t Below(std::int32_t end) {
    return static_cast<std::int32_t>(random_() % static_cast<unsigned>(end));
  }
  static std::string IsParent(std::int32_t parent) {
    return "ParentID = " + std::to_string(parent);
  }

  void Move() {
    switch (Below(5)) {
      case 0:
        if (!model_.empty()) rows_->MoveFirst(), model_.MoveFirst();
        break;
      case 1:
        if (!model_.empty()) rows_->MoveLast(), model_.MoveLast();
        break;
      case 2:
        if (!model_.AtBegin()) rows_->MovePrevious(), model_.MovePrevious();
        break;
      default:
        if (!model_.AtEnd()) rows_->MoveNext(), model_.MoveNext();
    }
  }

  void Search() {
    const std::int32_t parent = Below(kParents);
    switch (Below(4)) {
      case 0:
        rows_->Find(IsParent(parent), platform::SearchDirection::kBackward);
        model_.FindBackward(parent);
        break;
      case 1:
        rows_->SetFilter(IsParent(parent));
        model_.Settle(parent);
        break;
      case 2:
        rows_->SetFilter("");
        model_.Settle(std::nullopt);
        break;
      default:
        rows_->Find(IsParent(parent));
        model_.FindForward(parent);
    }
  }

  void Mark() {
    if (const auto id = model_.Current(); id && Below(2) == 0) {
      marked_.emplace_back(rows_->GetBookmark(), *id);
    } else if (!marked_.empty()) {
      const auto& [bookmark, row] =
          marked_[static_cast<std::size_t>(Below(static_cast<std::int32_t>(marked_.size())))];
      bool known = true;
      try {
        rows_->SetBookmark(bookmark);
      } catch (const platform::Error& error) {
        ASSERT_EQ(error.number(), platform::kErrInvalidArgument) << trace_;
        known = false;
      }
      ASSERT_EQ(model_.GoToRow(row), known) << trace_;
    }
  }

  void Edit() {
    const auto id = model_.Current();
    switch (Below(3)) {
      case 0:
        model_.Add(AddRow(*rows_));
        break;
      case 1:
        if (!id) break;
        rows_->Delete();
        table_.erase(*id);
        model_.DeleteCurrent();
        break;
      default:
        if (!id) break;
        table_[*id] = Below(kParents);
        rows_->Fields("ParentID").SetValue(table_[*id]);
        rows_->Update();
    }
  }

  // Somebody adds a row, which does not join those that are known, or deletes or changes one that
  // is not current.
  void OthersEdit() {
    const int what = Below(4);
    if (what == 0 || table_.empty()) {
      AddRow(*Others());
      return;
    }
    const auto row = std::next(table_.begin(), Below(static_cast<std::int32_t>(table_.size())));
    if (model_.Current() == row->first) return;
    const auto others = Others("ID = " + std::to_string(row->first));
    if (what == 1) {
      others->Delete();
      table_.erase(row);
    } else {
      row->second = Below(kParents);
      others->Fields("ParentID").SetValue(row->second);
      others->Update();
    }
  }

  void Check() {
    const auto current = model_.Current();
    ASSERT_EQ(rows_->BOF(), model_.AtBegin()) << trace_;
    ASSERT_EQ(rows_->EOF_(), model_.AtEnd()) << trace_;
    ASSERT_EQ(rows_->RecordCount(), model_.Count()) << trace_;
    ASSERT_EQ(rows_->AbsolutePosition(), current ? model_.Position() : 0) << trace_;
    if (!current) return;
    ASSERT_EQ(rows_->Fields("ID").Value(), Variant(*current)) << trace_;
    ASSERT_EQ(rows_->Fields("ParentID").Value(), Variant(table_.at(*current))) << trace_;
  }

  static constexpr std::int32_t kParents = 4;

  support::MemoryDatabase db_;
  std::shared_ptr<platform::Connection> connection_;  // of the others
  Rows table_;
  std::int32_t alias_ = 0;
  std::mt19937 random_{GetParam()};
  std::shared_ptr<platform::Recordset> rows_;
  Model model_{table_};
  std::vector<std::pair<platform::Bookmark, std::int32_t>> marked_;
  std::string trace_;
};

TEST_P(MovingDataTest, StaysWithTheModel) {
  for (int step = 0; step < 500 && !HasFatalFailure(); ++step) {
    const int action = Below(10);
    trace_ += " " + std::to_string(action);
    if (action < 3) {
      Move();
    } else if (action < 5) {
      Search();
    } else if (action == 5) {
      Mark();
    } else if (action < 8) {
      Edit();
    } else {
      OthersEdit();
    }
    Check();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, MovingDataTest,
                         testing::Range(1u, std::getenv("OV_LONG") ? 400u : 9u));

}  // namespace
}  // namespace recordset
