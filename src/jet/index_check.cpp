// SPDX-License-Identifier: MIT
#include "jet/index_check.h"

#include <algorithm>
#include <utility>

#include "jet/error.h"
#include "jet/index_cursor.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

constexpr int kNamedEntries = 20;

bool SetsBitAbove(const PageRef& page, std::size_t used) {
  const std::byte* mask = page.data() + kIndexMaskOffset;
  for (std::size_t bit = used + 1; bit < 8 * kIndexMaskSize; ++bit) {
    if ((Load8(mask + bit / 8) >> bit % 8 & 1) != 0) return true;
  }
  return false;
}

messages::Message RowName(RowId row) {
  return {message::kRowOfPage, {{"<Row>", row.slot}, {"<Page>", row.page}}};
}

}  // namespace

IndexChecker::IndexChecker(Pager& pager, IndexTree::Location location, bool unique,
                           std::size_t columns, Found found)
    : pager_(pager),
      tree_(pager, location),
      unique_(unique),
      columns_(columns),
      found_(std::move(found)),
      reached_(pager.page_count()) {}

void IndexChecker::Report(PageNumber page, const messages::Message& text) { found_(page, text); }

void IndexChecker::Walk(const Reached& reached) {
  WalkPage(tree_.location().root, 0, reached);
  if (announced_leaf_ != 0) Report(last_leaf_, message::kLastLeafNamesNext);
  CheckUsageMap();
}

// Whether the page can be walked: readable, not too deep, not met before.
bool IndexChecker::Enter(PageNumber number, std::size_t depth, const Reached& reached) {
  if (depth >= IndexPath::kMaxDepth) {
    Report(number, message::kTheTooManyLevels);
    broken_ = true;
    return false;
  }
  if (number < reached_.size() && reached_[number]) {
    Report(number, message::kReachedTwice);
    broken_ = true;
    return false;
  }
  try {
    tree_.Read(number);
  } catch (const Error& error) {
    Report(number, error.cause());
    broken_ = true;
    return false;
  }
  reached_[number] = true;
  reached(number);
  return true;
}

void IndexChecker::WalkPage(PageNumber number, std::size_t depth, const Reached& reached) {
  if (!Enter(number, depth, reached)) return;
  const PageRef page = tree_.Read(number);
  CheckMask(page);
  if (IndexPage(page.data()).IsLeaf()) {
    WalkLeaf(page, depth);
  } else {
    WalkNode(page, depth, reached);
  }
}

void IndexChecker::CheckMask(const PageRef& page) {
  const IndexPage view(page.data());
  if (SetsBitAbove(page, view.Used())) {
    Report(page.number(), message::kMaskGoesOn);
  }
}

void IndexChecker::WalkNode(const PageRef& page, std::size_t depth, const Reached& reached) {
  const IndexPage node(page.data());
  std::vector<std::byte> separator;
  for (std::size_t at = 0; at < node.Used(); at = node.After(at)) {
    node.Read(at, separator);
    const PageNumber child = node.Child(at);
    if (separator.size() < kRowReferenceSize + kChildSize || child == 0) {
      Report(page.number(), message::kNodeEntryTooShort);
      broken_ = true;
      continue;
    }
    separator.resize(separator.size() - kChildSize);
    WalkPage(child, depth + 1, reached);
    if (separator != last_) {
      Report(page.number(), {message::kNodeEntryNotLast, {{"<Page>", child}}});
    }
  }
  if (node.Tail() != 0) {
    WalkPage(node.Tail(), depth + 1, reached);
  } else if (node.Used() == 0) {
    Report(page.number(), message::kNodeWithoutChild);
  }
}

void IndexChecker::WalkLeaf(const PageRef& page, std::size_t depth) {
  const IndexPage leaf(page.data());
  const bool first = last_leaf_ == 0;
  if (!first && depth != leaf_depth_) {
    Report(page.number(), message::kLeavesNotLevel);
  }
  leaf_depth_ = depth;
  if (leaf.Previous() != last_leaf_) {
    Report(page.number(), message::kLeafPrevious);
  }
  if (!first && announced_leaf_ != page.number()) {
    Report(last_leaf_, message::kLeafNext);
  }
  last_leaf_ = page.number();
  announced_leaf_ = leaf.Next();
  if (leaf.Used() == 0 && depth > 0) Report(page.number(), message::kLeafEmpty);
  std::vector<std::byte> entry;
  for (std::size_t at = 0; at < leaf.Used(); at = leaf.After(at)) {
    leaf.Read(at, entry);
    ++entries_;
    CheckEntry(page.number(), entry);
    std::swap(last_, entry);
  }
}

void IndexChecker::CheckEntry(PageNumber page, ByteView entry) {
  if (entry.size() <= kRowReferenceSize) {
    Report(page, message::kEntryTooShort);
    return;
  }
  if (last_.size() <= kRowReferenceSize) return;
  if (CompareBytes(last_, entry) >= 0) {
    Report(page, message::kTheEntriesOutOfOrder);
    return;
  }
  const ByteView key = entry.first(entry.size() - kRowReferenceSize);
  const ByteView last = ByteView(last_).first(last_.size() - kRowReferenceSize);
  if (unique_ && !IsAllNull(key) && CompareBytes(key, last) == 0) {
    Report(page, {message::kKeyTwice, {{"<Row>", RowName(RowOfEntry(entry))}}});
  }
}

// The part of a Null column is one byte, so a key of nothing else has one byte for each column.
bool IndexChecker::IsAllNull(ByteView key) const {
  return key.size() == columns_ && std::all_of(key.begin(), key.end(), [](std::byte b) {
           return b == std::byte{0x00} || b == std::byte{0xFF};
         });
}

void IndexChecker::CheckUsageMap() {
  try {
    const UsageMap map(pager_, tree_.location().usage_map);
    PageNumber number = 0;
    for (auto page = map.Next(0); page; page = map.Next(*page + 1)) {
      for (; number < *page && number < reached_.size(); ++number) {
        if (reached_[number]) Report(number, message::kMapLacksPage);
      }
      if (number == *page && number < reached_.size() && reached_[number++]) continue;
      if (!broken_) Report(*page, message::kMapNamesPage);
    }
    for (; number < reached_.size(); ++number) {
      if (reached_[number]) Report(number, message::kMapLacksPage);
    }
  } catch (const Error& error) {
    Report(error.place().page, error.cause());
  }
}

void IndexChecker::ExpectEntry(ByteView key, RowId row) {
  entry_.assign(key.begin(), key.end());
  AppendRow(row, entry_);
  try {
    const auto [leaf, found] = tree_.LocateEntry(entry_);
    if (found) {
      ++expected_;
    } else {
      Report(leaf, {message::kEntryLacking, {{"<Row>", RowName(row)}}});
    }
  } catch (const Error& error) {
    if (!broken_) Report(error.place().page, error.cause());
    broken_ = true;
  }
}

// Reports entries that are those of no row, and returns how many. Entries of rows in any_key_ are
// taken as expected, once for each.
int IndexChecker::FindUnexpected(const KeyOf& key_of) {
  int unexpected = 0;
  const bool others_match = entries_ == expected_ + any_key_.size();
  EntryCursor cursor(tree_);
  while (unexpected < kNamedEntries && cursor.Next()) {
    if (any_key_.erase(cursor.row()) > 0) {
      ++expected_;
      continue;
    }
    if (others_match) continue;
    const auto key = key_of(cursor.row());
    if (key && CompareBytes(*key, cursor.key()) == 0) continue;
    ++unexpected;
    Report(tree_.location().root, {message::kEntryWrong, {{"<Row>", RowName(cursor.row())}}});
  }
  return unexpected;
}

void IndexChecker::Finish(const KeyOf& key_of) {
  if (entries_ == expected_ && any_key_.empty()) return;
  try {
    const int unexpected = FindUnexpected(key_of);
    for (const RowId row : any_key_) {
      Report(tree_.location().root, {message::kEntryLacking, {{"<Row>", RowName(row)}}});
    }
    if (entries_ <= expected_ || unexpected > 0) return;
    Report(tree_.location().root,
           {message::kEntryCount, {{"<Count>", entries_}, {"<Rows>", expected_}}});
  } catch (const Error& error) {
    if (!broken_) Report(error.place().page, error.cause());
    broken_ = true;
  }
}

}  // namespace jet
