// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "jet/index_page.h"
#include "jet/index_tree.h"

namespace jet {

// Walks the entries of a tree in order. It keeps the entry it stands on, so that the walk goes on
// in the right place when the tree changed meanwhile, also when that entry is gone.
class EntryCursor {
 public:
  // Stands before the first entry. The tree must outlive the cursor.
  explicit EntryCursor(const IndexTree& tree) : tree_(&tree) {}

  void ToEnd() { state_ = State::kEnd; }
  // Moves to the first entry that is not below `target` (kFirst), or that is above all entries
  // which begin with it (kPast). False when there is none; the cursor is then at the end.
  bool Seek(ByteView target, Bound bound);
  // Moves by one entry. False at the end, or at the begin.
  bool Next();
  bool Previous();

  bool OnEntry() const { return state_ == State::kOnEntry; }
  // The entry it stands on, also when it was removed since. REQUIRES: OnEntry().
  ByteView entry() const { return entry_; }
  ByteView key() const { return entry().first(entry_.size() - kRowReferenceSize); }
  RowId row() const { return RowOfEntry(entry_); }
  bool KeyStartsWith(ByteView bytes) const;

 private:
  enum class State : std::uint8_t { kBegin, kOnEntry, kEnd };

  enum class Way : std::uint8_t { kForward, kBackward };

  bool PositionHolds() const;
  // Takes the entry at a position, or the nearest one on the following or preceding leaves.
  bool TakeForward(PageRef page, std::size_t position);
  bool TakeBackward(PageRef page, std::size_t position);
  void Take(const PageRef& page, std::size_t position, Way way);
  PageRef Neighbour(PageNumber page) const;

  const IndexTree* tree_;
  State state_ = State::kBegin;
  std::vector<std::byte> entry_;
  std::vector<std::byte> next_;  // memory for the entry that follows
  PageNumber leaf_ = 0;
  std::size_t position_ = 0;
  std::uint64_t stamp_ = 0;
};

}  // namespace jet
