// SPDX-License-Identifier: MIT
#include "jet/index_cursor.h"

#include <algorithm>
#include <utility>

#include "jet/error.h"

namespace jet {

bool EntryCursor::Seek(ByteView target, Bound bound) {
  state_ = State::kBegin;
  IndexPath path;
  PageRef page = tree_->Descend(target, bound, path);
  return TakeForward(std::move(page), path.leaf().position);
}

bool EntryCursor::Next() {
  if (state_ == State::kEnd) return false;
  if (state_ == State::kBegin) return TakeForward(tree_->DescendFirst(), 0);
  if (PositionHolds()) {
    PageRef page = tree_->Read(leaf_);
    const std::size_t next = IndexPage(page.data()).After(position_);
    return TakeForward(std::move(page), next);
  }
  IndexPath path;
  PageRef page = tree_->Descend(entry_, Bound::kPast, path);
  return TakeForward(std::move(page), path.leaf().position);
}

bool EntryCursor::Previous() {
  if (state_ == State::kBegin) return false;
  if (state_ == State::kEnd) {
    PageRef page = tree_->DescendLast(tree_->location().root);
    const std::size_t end = IndexPage(page.data()).Used();
    return TakeBackward(std::move(page), end);
  }
  if (PositionHolds()) return TakeBackward(tree_->Read(leaf_), position_);
  IndexPath path;
  PageRef page = tree_->Descend(entry_, Bound::kFirst, path);
  return TakeBackward(std::move(page), path.leaf().position);
}

bool EntryCursor::KeyStartsWith(ByteView bytes) const {
  const ByteView own = key();
  return own.size() >= bytes.size() && std::equal(bytes.begin(), bytes.end(), own.begin());
}

bool EntryCursor::PositionHolds() const { return stamp_ == tree_->Stamp(); }

PageRef EntryCursor::Neighbour(PageNumber number) const {
  PageRef page = tree_->Read(number);
  if (!IndexPage(page.data()).IsLeaf()) {
    ThrowDamaged(tree_->pager().path(), {number, -1}, message::kLeafLinkedToNode);
  }
  return page;
}

bool EntryCursor::TakeForward(PageRef page, std::size_t position) {
  for (PageNumber left = tree_->pager().page_count(); left > 0; --left) {
    const IndexPage leaf(page.data());
    if (position < leaf.Used()) {
      Take(page, position, Way::kForward);
      return true;
    }
    if (leaf.Next() == 0) break;
    page = Neighbour(leaf.Next());
    position = 0;
  }
  state_ = State::kEnd;
  return false;
}

bool EntryCursor::TakeBackward(PageRef page, std::size_t position) {
  for (PageNumber left = tree_->pager().page_count(); left > 0; --left) {
    const IndexPage leaf(page.data());
    if (position > 0) {
      Take(page, leaf.Before(position), Way::kBackward);
      return true;
    }
    if (leaf.Previous() == 0) break;
    page = Neighbour(leaf.Previous());
    position = IndexPage(page.data()).Used();
  }
  state_ = State::kBegin;
  return false;
}

void EntryCursor::Take(const PageRef& page, std::size_t position, Way way) {
  const IndexPage leaf(page.data());
  if (leaf.Size(position) < kRowReferenceSize) {
    ThrowDamaged(tree_->pager().path(), {page.number(), -1}, message::kEntryWithoutRow);
  }
  leaf.Read(position, next_);
  // Entries of a sound index rise; where they do not, a walk could go in circles.
  const bool rises =
      way == Way::kForward ? CompareBytes(entry_, next_) < 0 : CompareBytes(next_, entry_) < 0;
  if (state_ == State::kOnEntry && !rises) {
    ThrowDamaged(tree_->pager().path(), {page.number(), -1}, message::kEntriesOutOfOrder);
  }
  std::swap(entry_, next_);
  state_ = State::kOnEntry;
  leaf_ = page.number();
  position_ = position;
  stamp_ = tree_->Stamp();
}

}  // namespace jet
