// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "jet/index_page.h"
#include "jet/page.h"
#include "jet/pager.h"

namespace jet {

// Longest key an index takes; with it at least two entries fit on any page.
inline constexpr std::size_t kMaxIndexKey = kIndexCapacity / 2 - kRowReferenceSize - kChildSize;

// The way from the root to a leaf. In a node the position is that of the entry whose child was
// taken, or Used() for the tail.
struct IndexPath {
  struct Step {
    PageNumber page = 0;
    std::size_t position = 0;
  };
  // Two entries on a page suffice to reach every page of a file with 20 levels.
  static constexpr std::size_t kMaxDepth = 24;

  std::array<Step, kMaxDepth> steps;
  std::size_t depth = 0;

  Step& leaf() { return steps[depth - 1]; }
  const Step& leaf() const { return steps[depth - 1]; }
};

// A tree of index entries on disk. Entries are ordered by plain comparison of their bytes: key,
// then row.
//
// 1. The root keeps its page number. 2. A node holds, for each child but the last, the exact last
// entry of the child's subtree; the last child is the tail, but an only child has an entry.
// 3. Links connect all leaves, and nodes under one parent. 4. Every page is in the index's usage
// map. 5. No page but the root is empty.
//
// There is to be one IndexTree per tree and Pager: it remembers where it was. A change that raises
// leaves the tree to be rolled back.
class IndexTree {
 public:
  struct Location {
    PageNumber table = 0;  // definition page, which owns the index pages
    PageNumber root = 0;
    RowId usage_map;
  };

  // `capacity` bounds the entry bytes of a page, for tests that want deep trees. The pager must
  // outlive the tree.
  IndexTree(Pager& pager, Location location, std::size_t capacity = kIndexCapacity);

  // The row of the first entry whose key begins with the bytes: the parts of all columns or of
  // the leading ones.
  std::optional<RowId> Find(ByteView key) const;
  // The rows of all entries, in the order of these: many times faster than a walk. Raises kDamaged
  // for entries that do not rise or name no row.
  std::vector<RowId> Rows() const;
  // Like Find with a whole key, when an Insert of that key is likely to follow.
  bool Contains(ByteView key);

  // Adds an entry; returns whether no other entry had its key. Raises kInvalid for a key longer
  // than kMaxIndexKey and kDamaged when the entry is there already, both before any change.
  bool Insert(ByteView key, RowId row);
  // False when there is no such entry.
  bool Erase(ByteView key, RowId row);

  // Differs from all earlier values when positions in the tree may have moved.
  std::uint64_t Stamp() const { return version_ + pager_.generation(); }
  const Location& location() const { return location_; }
  Pager& pager() const { return pager_; }

  // For those who walk the tree. An index page of this table; raises kDamaged for any other.
  PageRef Read(PageNumber page) const;
  // Goes down to the leaf where the first entry at the bound belongs.
  PageRef Descend(ByteView target, Bound bound, IndexPath& path) const;
  // Goes down along the first or the last children.
  PageRef DescendFirst() const;
  PageRef DescendLast(PageNumber from) const;
  // The leaf where the entry, a key with its row, belongs, and whether it stands there. Saves the
  // way down for entries of one leaf; so the separators are taken to be right.
  std::pair<PageNumber, bool> LocateEntry(ByteView entry);

 private:
  void AppendRows(const PageRef& page, std::vector<RowId>& rows) const;
  [[noreturn]] void ThrowOutOfOrder(PageNumber page) const;

  // Changes at the leaf; index_tree.cpp.
  PageRef Locate(ByteView entry);
  bool IsInside(IndexPage leaf, std::size_t position) const;
  bool HasKeyBeside(IndexPage leaf, std::size_t position, ByteView key) const;

  // Separators; index_tree_nodes.cpp.
  std::optional<std::size_t> WrongSeparator(const IndexPath& path, ByteView last) const;
  void CorrectSeparators(ByteView last);
  void ReplaceSeparator(IndexPath& path, std::size_t step, ByteView last);

  // Splits; index_tree_split.cpp.
  void SplitAndInsert(IndexPath& path, std::size_t step, ByteView entry);
  bool EndsTree(const IndexPath& path, std::size_t step) const;
  void PushDownRoot(IndexPath& path);
  PageEdit NewRightNeighbour(const PageEdit& left);
  void AddToParent(IndexPath& path, std::size_t step, ByteView separator, PageNumber right);
  void UnlinkBetween(PageNumber left, PageNumber right);

  // Empty pages; index_tree_nodes.cpp.
  void RemovePage(const IndexPath& path, std::size_t step);
  void RemoveChild(const IndexPath& path, std::size_t step);
  void KeepOnlyTail(PageEdit& node);
  void Unlink(IndexPage page);

  PageEdit Modify(PageNumber page);

  Pager& pager_;
  Location location_;
  std::size_t capacity_;
  std::uint64_t version_ = 0;

  // The way to the leaf that was changed or asked last. Holds while no node changed since.
  IndexPath path_;
  bool path_holds_ = false;
  std::uint64_t path_generation_ = 0;
  std::vector<std::byte> entry_;  // of the insertion or removal under way
};

}  // namespace jet
