// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "jet/index_tree.h"
#include "messages/message.h"

namespace jet {

// Checks one index against its rules and against the rows of its table:
//
//   IndexChecker checker(pager, location, unique, columns, found);
//   checker.Walk(reached);
//   for each row that has an entry: checker.ExpectEntry(key, row);
//   checker.Finish(key_of);
//
// Nothing that the file holds makes it fail; what is wrong is reported.
class IndexChecker {
 public:
  // A fault and the page where it was met.
  using Found = std::function<void(PageNumber page, const messages::Message& text)>;
  using Reached = std::function<void(PageNumber page)>;
  // The key of a row as it is now; nothing when there is no such row, or none with an entry.
  using KeyOf = std::function<std::optional<std::vector<std::byte>>(RowId row)>;

  // `unique`: no two entries may have the same key, unless all of the `columns` are Null.
  IndexChecker(Pager& pager, IndexTree::Location location, bool unique, std::size_t columns,
               Found found);

  // Walks the tree: order, separators, depth, links, keys of a unique index, usage map. Calls
  // `reached` for every page of the index, once.
  void Walk(const Reached& reached);
  void ExpectEntry(ByteView key, RowId row);
  // For a row whose key cannot be derived, because it holds a character that has none: the index
  // is to have one entry of the row, whatever its key.
  void ExpectAnyEntry(RowId row) { any_key_.insert(row); }
  // Reports the entries that no expected row has, by name as long as they are few.
  void Finish(const KeyOf& key_of);

  std::uint64_t entries() const { return entries_; }

 private:
  bool Enter(PageNumber page, std::size_t depth, const Reached& reached);
  void WalkPage(PageNumber page, std::size_t depth, const Reached& reached);
  void WalkNode(const PageRef& page, std::size_t depth, const Reached& reached);
  void WalkLeaf(const PageRef& page, std::size_t depth);
  void CheckEntry(PageNumber page, ByteView entry);
  void CheckMask(const PageRef& page);
  void CheckUsageMap();
  bool IsAllNull(ByteView key) const;
  int FindUnexpected(const KeyOf& key_of);
  void Report(PageNumber page, const messages::Message& text);

  Pager& pager_;
  IndexTree tree_;
  bool unique_;
  std::size_t columns_;
  Found found_;
  std::vector<bool> reached_;
  std::vector<std::byte> last_;   // the entry met last
  std::vector<std::byte> entry_;  // the entry expected last
  PageNumber last_leaf_ = 0;
  PageNumber announced_leaf_ = 0;  // what the leaf met last names as the next one
  std::size_t leaf_depth_ = 0;
  std::uint64_t entries_ = 0;
  std::uint64_t expected_ = 0;  // of these rows the entry was there
  std::set<RowId> any_key_;
  bool broken_ = false;  // pages could not be read
};

}  // namespace jet
