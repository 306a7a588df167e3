// SPDX-License-Identifier: MIT
#include "jet/table_state.h"

#include <algorithm>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/text_codec.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

constexpr std::uint16_t kGeneralLegacy = 0x0409;

// The bytes of a definition, with all counters that every insert changes set to zero.
std::vector<std::byte> WithoutCounters(Pager& pager, const TableDefinition& definition) {
  std::vector<PageNumber> pages;
  std::vector<std::byte> bytes = ReadDefinitionBytes(pager, definition.page, pages);
  const auto clear = [&](std::size_t from, std::size_t to) {
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(from),
              bytes.begin() + static_cast<std::ptrdiff_t>(std::min(to, bytes.size())),
              std::byte{0});
  };
  clear(kDefinitionRowsOffset, kDefinitionTypeOffset);
  clear(kDefinitionCountersOffset,
        kDefinitionCountersOffset + definition.physical.size() * kDefinitionCounterSize);
  return bytes;
}

bool IsIndexed(const TableDefinition& definition, std::size_t column) {
  return std::any_of(definition.physical.begin(), definition.physical.end(),
                     [&](const PhysicalIndex& index) {
                       return std::any_of(index.columns.begin(), index.columns.end(),
                                          [&](const IndexColumn& c) { return c.column == column; });
                     });
}

}  // namespace

TableState::TableState(Session& session, std::string name, PageNumber page)
    : session_(session), name_(std::move(name)), page_(page) {
  Reload();
}

void TableState::Reload() {
  definition_ = ReadTableDefinition(pager(), page_);
  raw_ = WithoutCounters(pager(), definition_);
  reader_ = std::make_unique<RowReader>(pager(), definition_);
  writer_.reset();
  RenewTrees();
  all_columns_.resize(definition_.columns.size());
  std::iota(all_columns_.begin(), all_columns_.end(), std::size_t{0});
  read_only_reason_ = FindReadOnlyReason();
  generation_ = session_.generation();
}

std::optional<std::size_t> TableState::FindColumn(std::string_view name) const {
  for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
    if (SameName(definition_.columns[i].name, name)) return i;
  }
  return std::nullopt;
}

TableWriter& TableState::writer() {
  if (!writer_) writer_ = std::make_unique<TableWriter>(*this);
  return *writer_;
}

// Open cursors refer to the trees: those that stay are kept, and the others are not destroyed.
void TableState::RenewTrees() {
  std::vector<std::unique_ptr<IndexTree>> old = std::move(trees_);
  trees_.clear();
  indexed_stamp_.reset();
  for (const PhysicalIndex& index : definition_.physical) {
    const auto same = std::find_if(old.begin(), old.end(), [&](const auto& tree) {
      return tree && tree->location().root == index.root;
    });
    trees_.push_back(same != old.end()
                         ? std::move(*same)
                         : std::make_unique<IndexTree>(
                               pager(), IndexTree::Location{page_, index.root, index.usage_map}));
  }
  for (auto& tree : old) {
    if (tree) retired_trees_.push_back(std::move(tree));
  }
}

// A page that was released, or still is the table's, is what a deleted row leaves. What only looks
// released is still among the table's pages. Many rows may be asked for one after the other, so
// what the indexes name is gathered once.
void TableState::CheckGone(RowId id) {
  if (id.page < pager().page_count()) {
    const PageRef page = pager().Read(id.page);
    if (IsDataPageOf(page.data(), page_)) return;
    const bool looks_released = (Load8(page.data()) & kReleasedPage) != 0;
    if (looks_released && !UsageMap(pager(), definition_.owned_map).Contains(id.page)) return;
  }
  std::uint64_t stamp = 0;
  for (const auto& tree : trees_) stamp += tree->Stamp();
  if (indexed_stamp_ != stamp) {
    indexed_.clear();
    for (const auto& tree : trees_) {
      const std::vector<RowId> rows = tree->Rows();
      indexed_.insert(indexed_.end(), rows.begin(), rows.end());
    }
    std::ranges::sort(indexed_);
    indexed_stamp_ = stamp;
  }
  if (std::ranges::binary_search(indexed_, id)) {
    ThrowDamaged(path(), {id.page, id.slot}, message::kEntryWithoutRow);
  }
}

void TableState::Refresh() {
  if (generation_ == session_.generation()) return;
  if (WithoutCounters(pager(), definition_) != raw_) {
    Reload();
  }
  generation_ = session_.generation();
}

messages::Message TableState::FindReadOnlyReason() const {
  if (!definition_.unknown.empty()) {
    return {message::kOnlyAccessMaintains, {{"<Kind>", definition_.unknown}}};
  }
  for (const Index& index : definition_.indexes) {
    if (index.kind == IndexKind::kRelation) {
      return {message::kEnforcedRelation, {{"<Index>", index.name}}};
    }
  }
  for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
    const Column& column = definition_.columns[i];
    const bool text = column.type == ColumnType::kText || column.type == ColumnType::kMemo;
    if (text && IsIndexed(definition_, i) &&
        (column.lcid != kGeneralLegacy || column.collation_version != 0)) {
      return {message::kOtherLanguage, {{"<Column>", column.name}, {"<Language>", column.lcid}}};
    }
  }
  return session_.read_only_reason();
}

}  // namespace jet
