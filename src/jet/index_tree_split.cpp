// SPDX-License-Identifier: MIT
// Splits of index pages, up to the root.
#include <algorithm>
#include <cstring>
#include <string>

#include "jet/error.h"
#include "jet/index_entries.h"
#include "jet/index_page_edit.h"
#include "jet/index_tree.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

// Where the entries of a page, the new one included, are divided. On leaves [0, cut) stay and
// [cut, size) go to the right; on nodes the entry at the cut goes up instead.
class Cut {
 public:
  Cut(const IndexEntries& entries, bool leaf, std::size_t capacity)
      : entries_(entries), skip_(leaf ? 0 : 1), capacity_(capacity) {}

  std::size_t RightBegin(std::size_t cut) const { return cut + skip_; }

  // A cut in the middle, or the nearest to it with which both parts fit; 0 when there is none.
  std::size_t Middle() const { return Nearest(MiddleByBytes()); }

  // The cut that leaves the left page full when entries arrive in order.
  std::size_t AtEnd() const {
    if (entries_.size() < 2 + skip_) return 0;
    const std::size_t cut = entries_.size() - 1 - skip_;
    return Fits(cut) ? cut : Middle();
  }

 private:
  bool Fits(std::size_t cut) const {
    return entries_.FormOf(0, cut, capacity_).size <= capacity_ &&
           entries_.FormOf(RightBegin(cut), entries_.size(), capacity_).size <= capacity_;
  }

  std::size_t MiddleByBytes() const {
    std::size_t all = 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) all += entries_[i].size();
    std::size_t left = 0;
    std::size_t cut = 0;
    while (cut < entries_.size() && 2 * left + entries_[cut].size() <= all) {
      left += entries_[cut++].size();
    }
    return cut;
  }

  std::size_t Nearest(std::size_t wanted) const {
    const std::size_t size = entries_.size();
    const std::size_t end = size < skip_ ? 0 : size - skip_;
    for (std::size_t distance = 0; distance <= size; ++distance) {
      if (wanted >= distance && IsCut(wanted - distance, end)) return wanted - distance;
      if (IsCut(wanted + distance, end)) return wanted + distance;
    }
    return 0;
  }
  bool IsCut(std::size_t cut, std::size_t end) const { return cut > 0 && cut < end && Fits(cut); }

  const IndexEntries& entries_;
  std::size_t skip_;
  std::size_t capacity_;
};

}  // namespace

// Adds an entry to a page that cannot take it. Every page of the path is as Descend saw it.
void IndexTree::SplitAndInsert(IndexPath& path, std::size_t step, ByteView entry) {
  if (step == 0) {
    PushDownRoot(path);
    step = 1;
  }
  const auto [number, position] = path.steps[step];
  const PageEdit left = Modify(number);
  const IndexPage view(left.data());
  const bool leaf = view.IsLeaf();
  IndexEntries entries(view);
  const std::size_t index = entries.IndexOf(view, position);
  const bool at_end = index == entries.size() && EndsTree(path, step);
  entries.Insert(index, entry);

  const Cut cuts(entries, leaf, capacity_);
  const std::size_t cut = at_end ? cuts.AtEnd() : cuts.Middle();
  if (cut == 0) {
    ThrowDamaged(pager_.path(), {number, -1}, message::kEntriesIndivisible);
  }
  const std::size_t right_begin = cuts.RightBegin(cut);
  const PageEdit right = NewRightNeighbour(left);
  entries.Store(right_begin, entries.size(), entries.FormOf(right_begin, entries.size(), capacity_),
                right.data());
  entries.Store(0, cut, entries.FormOf(0, cut, capacity_), left.data());
  ByteView separator = entries[leaf ? cut - 1 : cut];
  if (!leaf) {
    SetTail(right.data(), view.Tail());
    const ByteView child = separator.last(kChildSize);
    SetTail(left.data(), LoadBig32(child.data()));
    separator = separator.first(separator.size() - kChildSize);
    UnlinkBetween(view.Tail(), IndexPage(right.data()).Child(0));
  }
  AddToParent(path, step - 1, separator, right.number());
}

// Whether a page of the path has nothing to its right.
bool IndexTree::EndsTree(const IndexPath& path, std::size_t step) const {
  while (step-- > 0) {
    const PageRef page = Read(path.steps[step].page);
    if (path.steps[step].position != IndexPage(page.data()).Used()) return false;
  }
  return true;
}

// Moves the root's content to a new page, its only child for now.
void IndexTree::PushDownRoot(IndexPath& path) {
  if (path.depth == IndexPath::kMaxDepth) {
    ThrowDamaged(pager_.path(), {location_.root, -1}, message::kTooManyLevels);
  }
  const PageEdit root = Modify(location_.root);
  const PageEdit child = pager_.Allocate();
  UsageMap(pager_, location_.usage_map).Add(child.number());
  std::memcpy(child.data(), root.data(), kPageSize);
  SetPrevious(child.data(), 0);
  SetNext(child.data(), 0);
  InitIndexPage(root.data(), PageType::kIndexNode, location_.table,
                static_cast<std::uint8_t>(path.depth));
  SetTail(root.data(), child.number());

  std::copy_backward(path.steps.begin(),
                     path.steps.begin() + static_cast<std::ptrdiff_t>(path.depth),
                     path.steps.begin() + static_cast<std::ptrdiff_t>(path.depth) + 1);
  ++path.depth;
  path.steps[0] = {location_.root, 0};
  path.steps[1].page = child.number();
}

// An empty page of the same kind, linked behind `left`.
PageEdit IndexTree::NewRightNeighbour(const PageEdit& left) {
  const IndexPage view(left.data());
  PageEdit right = pager_.Allocate();
  UsageMap(pager_, location_.usage_map).Add(right.number());
  InitIndexPage(right.data(), view.IsLeaf() ? PageType::kIndexLeaf : PageType::kIndexNode,
                location_.table, view.Level());
  SetPrevious(right.data(), left.number());
  SetNext(right.data(), view.Next());
  if (view.Next() != 0) SetPrevious(Modify(view.Next()).data(), right.number());
  SetNext(left.data(), right.number());
  return right;
}

// Enters `right`, the new neighbour of the child of a step. `separator` is the child's last entry.
void IndexTree::AddToParent(IndexPath& path, std::size_t step, ByteView separator,
                            PageNumber right) {
  auto& [number, position] = path.steps[step];
  const PageEdit page = Modify(number);
  const IndexPage node(page.data());
  const PageNumber left = path.steps[step + 1].page;
  if (position == node.Used()) {
    SetTail(page.data(), right);
  } else if (node.Tail() == 0 && node.After(position) == node.Used()) {
    EraseEntry(page.data(), position, capacity_);
    SetTail(page.data(), right);
    position = node.Used();
  } else {
    SetChild(page.data(), position, right);
  }
  std::vector<std::byte> entry(separator.begin(), separator.end());
  AppendChild(left, entry);
  if (!InsertEntry(page.data(), position, entry, capacity_)) SplitAndInsert(path, step, entry);
}

// Cuts the link between two nodes that have different parents now; between leaves it stays.
void IndexTree::UnlinkBetween(PageNumber left, PageNumber right) {
  if (IndexPage(Read(left).data()).IsLeaf()) return;
  SetNext(Modify(left).data(), 0);
  SetPrevious(Modify(right).data(), 0);
}

}  // namespace jet
