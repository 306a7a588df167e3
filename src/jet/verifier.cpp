// SPDX-License-Identifier: MIT
#include "jet/verifier.h"

#include <algorithm>

#include "jet/bytes.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/free_page_map.h"
#include "jet/header_page.h"
#include "jet/long_value.h"
#include "jet/table_scan.h"
#include "jet/usage_map.h"
#include "jet/usage_map_record.h"

namespace jet {
namespace {

constexpr std::size_t kMaxFindings = 5000;
constexpr std::uint64_t kProgressStep = 256;
constexpr std::uint16_t kGeneralLegacy = 0x0409;
constexpr messages::Pattern kPlaceAndFault{messages::kNoText, "<Place>: <Fault>"};

messages::Message RowName(RowId id) {
  return {message::kPageRow, {{"<Page>", id.page}, {"<Row>", id.slot}}};
}

}  // namespace

// One table on the way.
struct Verifier::TableWalk {
  TableWalk(Session& session, const CatalogEntry& entry)
      : state(session, entry.name, static_cast<PageNumber>(entry.id)), user(entry.IsUserObject()) {}

  const TableDefinition& definition() const { return state.definition(); }

  TableState state;
  bool user;
  std::vector<std::unique_ptr<IndexChecker>> checkers;
  std::vector<bool> key_known;  // by index: whether its keys can be derived
  std::set<PageNumber> pages;
  std::set<RowId> targets;     // data of moved rows
  std::set<RowId> references;  // where moved rows point to
  std::uint64_t rows = 0;
  std::int64_t largest_number = 0;
  RowBuffer row;
  IndexKey key;
  std::vector<Value> values;
  std::vector<Use> long_values;  // by column: the use of the pages of its long values
};

Verifier::Verifier(Session& session, Catalog& catalog, Progress progress)
    : session_(session),
      pager_(session.pager()),
      catalog_(catalog),
      progress_(std::move(progress)),
      uses_(1),
      use_of_page_(pager_.page_count()) {}

void Verifier::Report(Place place, const messages::Message& text) {
  if (result_.findings.size() < kMaxFindings) result_.findings.push_back({place, table_, text});
}

template <class Step>
bool Verifier::Try(Step step) {
  try {
    step();
    return true;
  } catch (const Error& error) {
    Report(error.place(), error.cause());
    return false;
  }
}

Verifier::Use Verifier::UseOf(const messages::Message& name) {
  Use& use = use_numbers_[name.English()];
  if (use == 0) {
    use = static_cast<Use>(uses_.size());
    uses_.push_back(name);
  }
  return use;
}

void Verifier::Reach(PageNumber page, Use use) {
  if (page >= use_of_page_.size()) {
    Report({page, -1}, {message::kUsedBeyondFile, {{"<Use>", uses_[use]}}});
    return;
  }
  if (const Use other = use_of_page_[page]; other != 0) {
    Report({page, -1}, {message::kUsedTwice, {{"<Use>", uses_[other]}, {"<Other>", uses_[use]}}});
    return;
  }
  use_of_page_[page] = use;
  if (progress_ && ++reached_ % kProgressStep == 0) progress_(reached_, use_of_page_.size());
}

VerifyResult Verifier::Run() {
  const ReadLock lock(session_);
  result_.pages = pager_.page_count();
  Reach(0, UseOf(message::kHeader));
  Reach(1, UseOf(message::kFreePageMap));
  std::vector<CatalogEntry> tables;
  Try([&] {
    TableScan scan(catalog_.table(), catalog_.columns());
    RowBuffer row;
    for (bool more = true; more;) {
      Try([&] {
        more = scan.Next(row);
        if (!more) return;
        CatalogEntry entry = catalog_.Entry(row);
        if (entry.type == ObjectType::kLocalTable) tables.push_back(std::move(entry));
      });
    }
  });
  for (const CatalogEntry& entry : tables) {
    table_ = entry.name;
    Try([&] { VerifyTable(entry); });
  }
  table_.clear();
  Try([&] { CheckFreePages(); });
  return std::move(result_);
}

void Verifier::VerifyTable(const CatalogEntry& entry) {
  ++result_.tables;
  const messages::Message name = messages::Message::Verbatim(entry.name);
  TableWalk walk(session_, entry);
  const TableDefinition& definition = walk.definition();
  const Use own = UseOf({message::kUseDefinition, {{"<Table>", entry.name}}});
  for (const PageNumber page : definition.pages) Reach(page, own);
  ReachMap(definition.owned_map, name);
  ReachMap(definition.free_map, name);
  for (std::size_t i = 0; i < definition.physical.size(); ++i) {
    const PhysicalIndex& index = definition.physical[i];
    ++result_.indexes;
    ReachMap(index.usage_map, name);
    walk.key_known.push_back(
        std::none_of(index.columns.begin(), index.columns.end(), [&](const IndexColumn& part) {
          const Column& column = definition.columns[part.column];
          const bool text = column.type == ColumnType::kText || column.type == ColumnType::kMemo;
          return text && (column.lcid != kGeneralLegacy || column.collation_version != 0);
        }));
    const Use use = UseOf({message::kUseIndex, {{"<Table>", entry.name}, {"<Index>", i}}});
    walk.checkers.push_back(std::make_unique<IndexChecker>(
        pager_, IndexTree::Location{definition.page, index.root, index.usage_map}, index.unique,
        index.columns.size(), [this](PageNumber page, const messages::Message& text) {
          Report({page, -1}, text);
        }));
    Try([&] {
      const UsageMap pages(pager_, index.usage_map);
      walk.checkers[i]->Walk([&](PageNumber page) {
        Reach(page, use);
        if (!pages.Contains(page)) {
          Report({page, -1}, message::kIndexPageNotInMap);
        }
      });
    });
  }
  ReachLongValuePages(walk);
  WalkRows(walk);
  CheckTargets(walk);
  CheckFreeMap(walk);
  CheckCounters(walk);
  for (std::size_t i = 0; i < walk.checkers.size(); ++i) {
    const PhysicalIndex& index = definition.physical[i];
    Try([&] {
      walk.checkers[i]->Finish([&](RowId id) -> std::optional<std::vector<std::byte>> {
        const auto stored = walk.state.reader().Find(id);
        if (!stored) return std::nullopt;
        walk.state.reader().Decode(id, *stored, walk.state.all_columns(), walk.row);
        walk.values.clear();
        for (const IndexColumn& part : index.columns) walk.values.push_back(walk.row[part.column]);
        walk.key.Make(index, definition.columns, walk.values, session_.path());
        if (!walk.key.HasEntry(index)) return std::nullopt;
        return walk.key.bytes;
      });
    });
    result_.entries += walk.checkers[i]->entries();
  }
}

// The page of a map record holds records of many tables; each record is used once.
void Verifier::ReachMap(RowId record, const messages::Message& user) {
  if (record == RowId{}) return;
  if (!map_records_.insert(record).second) {
    Report({record.page, record.slot}, message::kUsageMapTwice);
    return;
  }
  Try([&] {
    const MapRecord map(pager_, record, 0);
    const Use maps = UseOf(message::kUsageMaps);
    if (use_of_page_[record.page] != maps) Reach(record.page, maps);
    if (map.is_inline()) return;
    const Use use = UseOf({message::kUseUsageMap, {{"<Use>", user}}});
    for (std::size_t i = 0; i < map.reference_count(); ++i) {
      const PageNumber bitmap = map.reference(i);
      if (bitmap != 0 && bitmap < pager_.page_count()) Reach(bitmap, use);
    }
  });
}

std::vector<PageNumber> Verifier::Members(RowId record) {
  std::vector<PageNumber> members;
  Try([&] {
    const UsageMap map(pager_, record);
    for (auto page = map.Next(0); page; page = map.Next(*page + 1)) members.push_back(*page);
  });
  return members;
}

void Verifier::ReachLongValuePages(TableWalk& walk) {
  const TableDefinition& definition = walk.definition();
  for (const Column& column : definition.columns) {
    Use& use = walk.long_values.emplace_back(0);
    if (!column.IsLongValue()) continue;
    use = UseOf(
        {message::kUseLongValues, {{"<Table>", walk.state.name()}, {"<Column>", column.name}}});
  }
  for (const LongValueMaps& maps : definition.long_values) {
    const Use use = walk.long_values[maps.column];
    ReachMap(maps.owned, uses_[use]);
    ReachMap(maps.free, uses_[use]);
    for (const PageNumber number : Members(maps.owned)) {
      Reach(number, use);
      Try([&] { CheckDataPage(pager_, pager_.Read(number), kLongValueOwner); });
    }
  }
}

void Verifier::WalkRows(TableWalk& walk) {
  const Use use = UseOf({message::kUseRows, {{"<Table>", walk.state.name()}}});
  for (const PageNumber number : Members(walk.definition().owned_map)) {
    walk.pages.insert(number);
    Reach(number, use);
    Try([&] { WalkPage(walk, number); });
  }
  result_.rows += walk.rows;
}

void Verifier::WalkPage(TableWalk& walk, PageNumber number) {
  const PageRef page = pager_.Read(number);
  CheckDataPage(pager_, page, walk.definition().page);
  if (StatedFreeBytes(page.data()) != FreeBytes(page.data())) {
    Report({number, -1}, message::kWrongFreeBytes);
  }
  for (std::size_t i = 0; i < SlotCount(page.data()); ++i) {
    const RowId id{number, static_cast<std::uint8_t>(i)};
    const std::uint16_t state = GetSlot(page.data(), i).state;
    if (state == kSlotTarget) walk.targets.insert(id);
    if (state == kSlotLive || state == kSlotMoved) {
      ++walk.rows;
      Try([&] { VerifyRow(walk, id, page); });
    }
  }
}

void Verifier::VerifyRow(TableWalk& walk, RowId id, const PageRef& page) {
  try {
    const StoredRow stored = walk.state.reader().At(page, id.slot);
    if (stored.place != id && !walk.references.insert(stored.place).second) {
      Report({id.page, id.slot}, {message::kMovedTwice, {{"<Place>", RowName(stored.place)}}});
    }
    walk.state.reader().Decode(id, stored, walk.state.all_columns(), walk.row);
    VerifyLongValues(walk, id, stored);
  } catch (const Error&) {
    for (auto& checker : walk.checkers) checker->ExpectAnyEntry(id);
    throw;
  }
  ExpectEntries(walk, id, walk.row);
}

void Verifier::VerifyLongValues(TableWalk& walk, RowId id, const StoredRow& stored) {
  RowView view;
  if (view.Parse(stored.bytes) != nullptr) return;  // said already: it was decoded
  const std::vector<Column>& columns = walk.definition().columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    if (!column.IsLongValue() || !view.HasValue(column)) continue;
    ++result_.long_values;
    const Place place{id.page, id.slot};
    ForEachLongValueRecord(pager_, place, *view.Bytes(column), [&](RowId record) {
      if (!long_records_.insert(record).second) {
        Report(place, {message::kLongValueShared,
                       {{"<Column>", column.name}, {"<Place>", RowName(record)}}});
      }
      if (use_of_page_[record.page] != walk.long_values[i]) {
        Report(place, {message::kLongValueForeignPage,
                       {{"<Column>", column.name}, {"<Page>", record.page}}});
      }
    });
  }
}

void Verifier::ExpectEntries(TableWalk& walk, RowId id, const RowBuffer& row) {
  const TableDefinition& definition = walk.definition();
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    if (definition.columns[i].auto_number && !row[i].is_null()) {
      walk.largest_number = std::max(walk.largest_number, row[i].integer());
    }
  }
  for (std::size_t i = 0; i < walk.checkers.size(); ++i) {
    const PhysicalIndex& index = definition.physical[i];
    if (!walk.key_known[i]) {
      walk.checkers[i]->ExpectAnyEntry(id);
      continue;
    }
    walk.values.clear();
    for (const IndexColumn& part : index.columns) walk.values.push_back(row[part.column]);
    try {
      walk.key.Make(index, definition.columns, walk.values, session_.path());
    } catch (const Error&) {
      walk.checkers[i]->ExpectAnyEntry(id);
      continue;
    }
    if (walk.key.HasEntry(index)) walk.checkers[i]->ExpectEntry(walk.key.bytes, id);
  }
}

void Verifier::CheckTargets(TableWalk& walk) {
  for (const RowId target : walk.targets) {
    if (walk.references.count(target) == 0) {
      Report({target.page, target.slot}, message::kMovedDataUnused);
    }
  }
}

void Verifier::CheckFreeMap(TableWalk& walk) {
  for (const PageNumber page : Members(walk.definition().free_map)) {
    if (walk.pages.count(page) == 0) {
      Report({page, -1}, message::kFreeSpaceForeignPage);
    }
  }
}

// Access itself does not keep the row counts of system tables right.
void Verifier::CheckCounters(TableWalk& walk) {
  const PageRef page = pager_.Read(walk.definition().page);
  const std::uint32_t counted = Load32(page.data() + kDefinitionRowsOffset);
  if (walk.user && counted != walk.rows) {
    Report({walk.definition().page, -1},
           {message::kRowCount, {{"<Count>", counted}, {"<Found>", walk.rows}}});
  }
  const auto last = static_cast<std::int32_t>(Load32(page.data() + kDefinitionAutoNumberOffset));
  if (walk.largest_number > last) {
    Report({walk.definition().page, -1},
           {message::kLastAutoNumber, {{"<Last>", last}, {"<Found>", walk.largest_number}}});
  }
}

void Verifier::CheckFreePages() {
  const MapRecord map(pager_, HeaderFreeMap(pager_.Read(0).data()), 1);
  if (!map.is_inline()) {
    for (std::size_t i = 0; i < map.reference_count(); ++i) {
      const PageNumber bitmap = map.reference(i);
      if (bitmap != 0 && bitmap < pager_.page_count()) Reach(bitmap, UseOf(message::kFreePageMap));
    }
  }
  const FreePageMap free(pager_);
  for (PageNumber page = 0; page < pager_.page_count(); ++page) {
    const bool is_free = free.IsFree(page);
    if (is_free && use_of_page_[page] != 0) {
      Report({page, -1}, {message::kFreeButUsed, {{"<Use>", uses_[use_of_page_[page]]}}});
    }
    if (is_free) ++result_.free_pages;
    if (!is_free && use_of_page_[page] == 0) ++result_.leaked_pages;
  }
}

messages::Message Describe(const Finding& finding) {
  messages::Message text = finding.text;
  const Place place = finding.place;
  if (place.page != kNoPage) {
    const messages::Message where =
        place.row < 0 ? messages::Message(message::kPage, {{"<Page>", place.page}})
                      : RowName({place.page, static_cast<std::uint8_t>(place.row)});
    text = {kPlaceAndFault, {{"<Place>", where}, {"<Fault>", text}}};
  }
  if (finding.table.empty()) return text;
  return {kPlaceAndFault, {{"<Place>", finding.table}, {"<Fault>", text}}};
}

}  // namespace jet
