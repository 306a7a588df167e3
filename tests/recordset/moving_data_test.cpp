// SPDX-License-Identifier: MIT
// A recordset beside a plain model of it, while another one changes the table: random moves,
// filters, searches, additions and deletions.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <random>
#include <string>
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
  void Find(std::int32_t parent) {
    if (at_ == kNowhere) return;
    if (at_ < 0) at_ = 0;
    deleted_ = false;
    if (keys_.empty()) at_ = kNowhere;
    while (at_ != kNowhere && at_ < Size()) {
      if (!IsGone(*Current()) && table_.at(*Current()) == parent) return;
      ++at_;
    }
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

 private:
  static constexpr std::ptrdiff_t kNowhere = -99;
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

class MovingDataTest : public testing::TestWithParam<unsigned> {
 protected:
  std::int32_t AddRow(platform::Recordset& rows) {
    const std::int32_t parent = Below(4);
    rows.AddNew({"ParentID", "AliasID"}, {parent, ++alias_});
    const std::int32_t id = rows.Fields("ID").Value().ToLong();
    table_[id] = parent;
    return id;
  }
  std::int32_t Below(std::int32_t end) {
    return static_cast<std::int32_t>(random_() % static_cast<unsigned>(end));
  }

  support::MemoryDatabase db_;
  Rows table_;
  std::int32_t alias_ = 0;
  std::mt19937 random_{GetParam()};
};

TEST_P(MovingDataTest, StaysWithTheModel) {
  auto other = db_.Open("TvbfParams");
  // Keeps the page, so that the places of deleted rows are not given away again.
  other->AddNew({"ParentID", "AliasID"}, {-1, 0});
  for (int i = 0; i < 12; ++i) AddRow(*other);
  auto rows = db_.Open("SELECT * FROM TvbfParams WHERE ParentID >= 0");
  Model model(table_);
  model.Settle(std::nullopt);

  std::string trace;
  for (int step = 0; step < 400; ++step) {
    const int action = Below(14);
    trace += " " + std::to_string(action);
    const std::int32_t parent = Below(4);
    switch (action) {
      case 0:
        if (!model.empty()) rows->MoveFirst(), model.MoveFirst();
        break;
      case 1:
        if (!model.empty()) rows->MoveLast(), model.MoveLast();
        break;
      case 2:
      case 3:
        if (!model.AtEnd()) rows->MoveNext(), model.MoveNext();
        break;
      case 4:
        if (!model.AtBegin()) rows->MovePrevious(), model.MovePrevious();
        break;
      case 5:
        rows->Find("ParentID = " + std::to_string(parent));
        model.Find(parent);
        break;
      case 6:
        rows->SetFilter("ParentID = " + std::to_string(parent));
        model.Settle(parent);
        break;
      case 7:
        rows->SetFilter("");
        model.Settle(std::nullopt);
        break;
      case 8:
        model.Add(AddRow(*rows));
        break;
      case 9:
        AddRow(*other);  // does not join the rows
        break;
      case 10:
        if (const auto id = model.Current()) {
          rows->Delete();
          table_.erase(*id);
          model.DeleteCurrent();
        }
        break;
      case 11:
        if (const auto id = model.Current()) {
          rows->Fields("ParentID").SetValue(parent);
          rows->Update();
          table_[*id] = parent;
        }
        break;
      default:
        // Somebody deletes a row that is not the current one.
        if (!table_.empty()) {
          const auto row =
              std::next(table_.begin(), Below(static_cast<std::int32_t>(table_.size())));
          if (model.Current() == row->first) break;
          other->SetFilter("ID = " + std::to_string(row->first));
          other->Delete();
          table_.erase(row);
        }
    }
    const auto current = model.Current();
    ASSERT_EQ(rows->BOF(), model.AtBegin()) << trace;
    ASSERT_EQ(rows->EOF_(), model.AtEnd()) << trace;
    if (!current) continue;
    ASSERT_EQ(rows->Fields("ID").Value(), Variant(*current)) << trace;
    ASSERT_EQ(rows->Fields("ParentID").Value(), Variant(table_.at(*current))) << trace;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, MovingDataTest,
                         testing::Range(1u, std::getenv("OV_LONG") ? 400u : 9u));

}  // namespace
}  // namespace recordset
