// SPDX-License-Identifier: MIT
// Separators that follow the last entry of their subtree, and the removal of empty pages.
#include <string>

#include "jet/error.h"
#include "jet/index_page_edit.h"
#include "jet/index_tree.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

// Whether a node's entry names its last child; that child then is the end of the node's subtree.
bool IsEnd(IndexPage node, std::size_t position) {
  return node.Tail() == 0 && node.After(position) == node.Used();
}

// A node's entry without the child. REQUIRES: position < node.Used().
void ReadSeparator(IndexPage node, std::size_t position, std::vector<std::byte>& separator) {
  node.Read(position, separator);
  separator.resize(separator.size() < kChildSize ? 0 : separator.size() - kChildSize);
}

}  // namespace

// The topmost node on the path whose entry for the path's subtree is not `last`, the last entry
// of that subtree. REQUIRES: `last` is or will be the last entry of the path's leaf.
std::optional<std::size_t> IndexTree::WrongSeparator(const IndexPath& path, ByteView last) const {
  std::optional<std::size_t> wrong;
  for (std::size_t step = path.depth - 1; step-- > 0;) {
    const auto& [number, position] = path.steps[step];
    const PageRef page = Read(number);
    const IndexPage node(page.data());
    if (position == node.Used()) continue;
    if (node.Size(position) != last.size() + kChildSize || !node.StartsWith(position, last)) {
      wrong = step;
    }
    if (!IsEnd(node, position)) break;
  }
  return wrong;
}

void IndexTree::CorrectSeparators(ByteView last) {
  path_holds_ = false;
  for (std::size_t tries = 0; tries < IndexPath::kMaxDepth; ++tries) {
    IndexPath path;
    Descend(last, Bound::kFirst, path);
    const auto step = WrongSeparator(path, last);
    if (!step) return;
    ReplaceSeparator(path, *step, last);
  }
  ThrowDamaged(pager_.path(), {location_.root, -1}, message::kEntriesOutOfOrder);
}

void IndexTree::ReplaceSeparator(IndexPath& path, std::size_t step, ByteView last) {
  auto& [number, position] = path.steps[step];
  const PageEdit page = Modify(number);
  const IndexPage node(page.data());
  std::vector<std::byte> entry(last.begin(), last.end());
  AppendChild(node.Child(position), entry);
  EraseEntry(page.data(), position, capacity_);
  position = node.Find(entry, Bound::kFirst);
  if (!InsertEntry(page.data(), position, entry, capacity_)) SplitAndInsert(path, step, entry);
}

// Takes the page out of the chain of its level.
void IndexTree::Unlink(IndexPage page) {
  if (page.Previous() != 0) SetNext(Modify(page.Previous()).data(), page.Next());
  if (page.Next() != 0) SetPrevious(Modify(page.Next()).data(), page.Previous());
}

// Gives up the empty page of a step. REQUIRES: step > 0.
void IndexTree::RemovePage(const IndexPath& path, std::size_t step) {
  const PageNumber number = path.steps[step].page;
  Unlink(IndexPage(Read(number).data()));
  UsageMap pages(pager_, location_.usage_map);
  if (!pages.Contains(number)) {
    ThrowDamaged(pager_.path(), {number, -1}, message::kIndexPageNotInMap);
  }
  pages.Remove(number);
  pager_.Free(number);
  RemoveChild(path, step - 1);
}

// Takes the child of a step out of its node; the child's page is gone already.
void IndexTree::RemoveChild(const IndexPath& path, std::size_t step) {
  const auto& [number, position] = path.steps[step];
  PageEdit page = Modify(number);
  const IndexPage node(page.data());
  const std::size_t count = node.Count();
  const bool was_tail = position == node.Used();
  if (was_tail ? count == 0 : count == 1 && node.Tail() == 0) {
    if (step > 0) return RemovePage(path, step);
    InitIndexPage(page.data(), PageType::kIndexLeaf, location_.table, 0);
    return;
  }
  if (!was_tail && node.Tail() != 0) {
    EraseEntry(page.data(), position, capacity_);
    if (count == 1) KeepOnlyTail(page);
    return;
  }
  // The last child went: the one before it is the end of the subtree now.
  std::vector<std::byte> last;
  if (was_tail) {
    const std::size_t end = node.Before(node.Used());
    ReadSeparator(node, end, last);
    SetTail(page.data(), count == 1 ? 0 : node.Child(end));
    if (count > 1) EraseEntry(page.data(), end, capacity_);
  } else {
    EraseEntry(page.data(), position, capacity_);
    ReadSeparator(node, node.Before(node.Used()), last);
  }
  CorrectSeparators(last);
}

// An only child has an entry, not the tail.
void IndexTree::KeepOnlyTail(PageEdit& page) {
  const PageNumber child = IndexPage(page.data()).Tail();
  const PageRef end = DescendLast(child);
  const IndexPage leaf(end.data());
  if (leaf.Used() == 0) return;
  std::vector<std::byte> entry;
  leaf.Read(leaf.Before(leaf.Used()), entry);
  AppendChild(child, entry);
  SetTail(page.data(), 0);
  if (!InsertEntry(page.data(), 0, entry, capacity_)) {
    ThrowDamaged(pager_.path(), {end.number(), -1}, message::kEntryTooLong);
  }
}

}  // namespace jet
