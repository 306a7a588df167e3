// SPDX-License-Identifier: MIT
#include "jet/index_tree.h"

#include <cassert>

#include "jet/error.h"
#include "jet/index_page_edit.h"

namespace jet {

IndexTree::IndexTree(Pager& pager, Location location, std::size_t capacity)
    : pager_(pager), location_(location), capacity_(capacity) {
  assert(capacity <= kIndexCapacity);
}

PageRef IndexTree::Read(PageNumber number) const {
  PageRef page = pager_.Read(number);
  if (const messages::Pattern* fault = IndexPage::Fault(page.data())) {
    ThrowDamaged(pager_.path(), {number, -1}, {message::kInIndex, {{"<Fault>", *fault}}});
  }
  if (IndexPage(page.data()).Owner() != location_.table) {
    ThrowDamaged(pager_.path(), {number, -1}, message::kIndexOfOtherTable);
  }
  return page;
}

PageEdit IndexTree::Modify(PageNumber number) {
  Read(number);
  return pager_.Modify(number);
}

namespace {

// The position of the child to go to: that of its entry, or Used() for the tail.
std::size_t ChildPosition(IndexPage node, std::size_t position) {
  const std::size_t used = node.Used();
  if (position == used && node.Tail() == 0 && used > 0) return node.Before(used);
  return position;
}

PageNumber ChildAt(IndexPage node, std::size_t position) {
  return position == node.Used() ? node.Tail() : node.Child(position);
}

}  // namespace

PageRef IndexTree::Descend(ByteView target, Bound bound, IndexPath& path) const {
  path.depth = 0;
  PageNumber number = location_.root;
  while (path.depth < IndexPath::kMaxDepth) {
    PageRef page = Read(number);
    const IndexPage view(page.data());
    std::size_t position = view.Find(target, bound);
    if (!view.IsLeaf()) position = ChildPosition(view, position);
    path.steps[path.depth++] = {number, position};
    if (view.IsLeaf()) return page;
    number = ChildAt(view, position);
  }
  ThrowDamaged(pager_.path(), {location_.root, -1}, message::kIndexCircle);
}

PageRef IndexTree::DescendFirst() const {
  IndexPath path;
  return Descend({}, Bound::kFirst, path);
}

PageRef IndexTree::DescendLast(PageNumber number) const {
  for (std::size_t depth = 0; depth < IndexPath::kMaxDepth; ++depth) {
    PageRef page = Read(number);
    const IndexPage view(page.data());
    if (view.IsLeaf()) return page;
    number = ChildAt(view, ChildPosition(view, view.Used()));
  }
  ThrowDamaged(pager_.path(), {location_.root, -1}, message::kIndexCircle);
}

std::optional<RowId> IndexTree::Find(ByteView key) const {
  IndexPath path;
  PageRef page = Descend(key, Bound::kFirst, path);
  std::size_t position = path.leaf().position;
  IndexPage leaf(page.data());
  for (PageNumber left = pager_.page_count(); position == leaf.Used() && left > 0; --left) {
    if (leaf.Next() == 0) return std::nullopt;
    page = Read(leaf.Next());
    leaf = IndexPage(page.data());
    position = 0;
  }
  if (position == leaf.Used() || !leaf.StartsWith(position, key)) return std::nullopt;
  if (leaf.Size(position) < kRowReferenceSize) {
    ThrowDamaged(pager_.path(), {page.number(), -1}, message::kEntryWithoutRow);
  }
  return leaf.Row(position);
}

std::vector<RowId> IndexTree::Rows() const {
  std::vector<RowId> rows;
  std::vector<std::byte> first, last;  // of this leaf, of the leaf before
  PageRef page = DescendFirst();
  for (PageNumber left = pager_.page_count(); left > 0; --left) {
    const IndexPage leaf(page.data());
    if (!leaf.IsLeaf()) {
      ThrowDamaged(pager_.path(), {page.number(), -1}, message::kLeafLinkedToNode);
    }
    if (leaf.Used() > 0) {
      leaf.Read(0, first);
      if (!last.empty() && CompareBytes(last, first) >= 0) ThrowOutOfOrder(page.number());
      AppendRows(page, rows);
      leaf.Read(leaf.Before(leaf.Used()), last);
    }
    if (leaf.Next() == 0) return rows;
    page = Read(leaf.Next());
  }
  ThrowOutOfOrder(location_.root);
}

// The entries of a leaf share its prefix, so their suffixes tell whether they rise.
void IndexTree::AppendRows(const PageRef& page, std::vector<RowId>& rows) const {
  const IndexPage leaf(page.data());
  const std::size_t used = leaf.Used();
  ByteView before;
  for (std::size_t position = 0; position < used;) {
    const ByteView suffix = leaf.Suffix(position);
    if (position > 0 && CompareBytes(before, suffix) >= 0) ThrowOutOfOrder(page.number());
    if (leaf.Prefix() + suffix.size() < kRowReferenceSize) {
      ThrowDamaged(pager_.path(), {page.number(), -1}, message::kEntryWithoutRow);
    }
    rows.push_back(leaf.Row(position));
    before = suffix;
    position = (position == 0 ? leaf.Prefix() : position) + suffix.size();
  }
}

void IndexTree::ThrowOutOfOrder(PageNumber page) const {
  ThrowDamaged(pager_.path(), {page, -1}, message::kEntriesOutOfOrder);
}

// Whether the leaf is where the entry at the position belongs, as far as the leaf alone tells.
bool IndexTree::IsInside(IndexPage leaf, std::size_t position) const {
  return position > 0 && (position < leaf.Used() || leaf.Next() == 0);
}

// Sets path_ to the leaf for the bytes. Rows that are added or looked up one after the other
// often meet the same leaf: then the way down is saved.
PageRef IndexTree::Locate(ByteView entry) {
  if (path_holds_ && path_generation_ == pager_.generation()) {
    PageRef page = Read(path_.leaf().page);
    const IndexPage leaf(page.data());
    std::size_t& position = path_.leaf().position;
    if (!leaf.BelongsAt(position, entry)) position = leaf.Find(entry, Bound::kFirst);
    if (leaf.IsLeaf() && IsInside(leaf, position)) return page;
  }
  path_holds_ = false;
  PageRef page = Descend(entry, Bound::kFirst, path_);
  path_holds_ = true;
  path_generation_ = pager_.generation();
  return page;
}

std::pair<PageNumber, bool> IndexTree::LocateEntry(ByteView entry) {
  const PageRef page = Locate(entry);
  const IndexPage leaf(page.data());
  std::size_t& position = path_.leaf().position;
  const bool found = position < leaf.Used() && leaf.Size(position) == entry.size() &&
                     leaf.StartsWith(position, entry);
  // Often the entry behind it is the next one that is looked for.
  if (found && leaf.After(position) < leaf.Used()) position = leaf.After(position);
  return {page.number(), found};
}

bool IndexTree::HasKeyBeside(IndexPage leaf, std::size_t position, ByteView key) const {
  if (position < leaf.Used()) {
    if (leaf.StartsWith(position, key)) return true;
  } else if (leaf.Next() != 0) {
    const PageRef page = Read(leaf.Next());
    const IndexPage next(page.data());
    if (next.Used() > 0 && next.StartsWith(0, key)) return true;
  }
  if (position > 0) return leaf.StartsWith(leaf.Before(position), key);
  if (leaf.Previous() == 0) return false;
  const PageRef page = Read(leaf.Previous());
  const IndexPage previous(page.data());
  return previous.Used() > 0 && previous.StartsWith(previous.Before(previous.Used()), key);
}

bool IndexTree::Contains(ByteView key) {
  const PageRef page = Locate(key);
  return HasKeyBeside(IndexPage(page.data()), path_.leaf().position, key);
}

bool IndexTree::Insert(ByteView key, RowId row) {
  if (key.size() > kMaxIndexKey || 2 * (key.size() + kRowReferenceSize + kChildSize) > capacity_) {
    throw Error(ErrorKind::kInvalid, pager_.path(), {location_.root, -1}, message::kKeysTooLong,
                message::kShortenOne);
  }
  entry_.assign(key.begin(), key.end());
  AppendRow(row, entry_);
  PageRef page = Locate(entry_);
  if (path_.leaf().position == IndexPage(page.data()).Used() && WrongSeparator(path_, entry_)) {
    CorrectSeparators(entry_);
    page = Locate(entry_);
  }
  const IndexPage leaf(page.data());
  const std::size_t position = path_.leaf().position;
  if (position < leaf.Used() && leaf.StartsWith(position, entry_)) {
    ThrowDamaged(pager_.path(), {page.number(), -1}, message::kEntryOfNewRow);
  }
  const bool is_new = !HasKeyBeside(leaf, position, key);
  ++version_;
  const PageEdit edit = pager_.Modify(page.number());
  if (!InsertEntry(edit.data(), position, entry_, capacity_)) {
    path_holds_ = false;
    SplitAndInsert(path_, path_.depth - 1, entry_);
    return is_new;
  }
  // Where the next one belongs when entries arrive in order.
  path_.leaf().position = IndexPage(edit.data()).After(position);
  return is_new;
}

bool IndexTree::Erase(ByteView key, RowId row) {
  entry_.assign(key.begin(), key.end());
  AppendRow(row, entry_);
  const PageRef page = Locate(entry_);
  const IndexPage leaf(page.data());
  const std::size_t position = path_.leaf().position;
  if (position == leaf.Used() || leaf.Size(position) != entry_.size() ||
      !leaf.StartsWith(position, entry_)) {
    return false;
  }
  const bool was_last = leaf.After(position) == leaf.Used();
  ++version_;
  const PageEdit edit = pager_.Modify(page.number());
  EraseEntry(edit.data(), position, capacity_);
  if (!was_last) return true;
  const IndexPage rest(edit.data());
  if (rest.Used() == 0) {
    path_holds_ = false;
    if (path_.depth > 1) RemovePage(path_, path_.depth - 1);
    return true;
  }
  rest.Read(rest.Before(rest.Used()), entry_);
  if (WrongSeparator(path_, entry_)) CorrectSeparators(entry_);
  return true;
}

}  // namespace jet
