// SPDX-License-Identifier: MIT
#include "jet/database.h"

#include <algorithm>
#include <utility>

#include "files/change_journal.h"
#include "jet/catalog.h"
#include "jet/lock_file.h"
#include "jet/messages.h"
#include "jet/new_database.h"
#include "jet/properties.h"
#include "jet/session.h"
#include "jet/table_creator.h"
#include "jet/table_scan.h"
#include "jet/table_state.h"
#include "jet/verifier.h"

namespace jet {
namespace {

constexpr PageNumber kRelationshipsDefinition = 5;
constexpr std::uint32_t kRelationNotEnforced = 0x0002;
constexpr std::uint32_t kRelationCascadeUpdates = 0x0100;
constexpr std::uint32_t kRelationCascadeDeletes = 0x1000;

}  // namespace

Database::Database(std::unique_ptr<Session> session) : session_(std::move(session)) {
  const ReadLock lock(*session_);
  catalog_ = std::make_unique<Catalog>(*session_);
}

Database::~Database() = default;

std::unique_ptr<Database> Database::Open(files::FileSystem& system, const std::string& path,
                                         const OpenOptions& options) {
  return std::unique_ptr<Database>(new Database(std::make_unique<Session>(system, path, options)));
}

std::unique_ptr<Database> Database::Create(files::FileSystem& system, const std::string& path,
                                           const OpenOptions& options) {
  if (system.Exists(path)) {
    throw Error(ErrorKind::kExists, path, {}, message::kFileExists, message::kChooseNameOrOpen);
  }
  if (LockFile::PathFor(path) == path) {
    throw Error(ErrorKind::kInvalid, path, {}, message::kNameOfLockFile, message::kChooseExtension);
  }
  files::ChangeSet changes;
  changes.files.push_back({path, std::nullopt, NewDatabase(DateNow())});
  files::ChangeJournal(system, path).Commit(changes);
  return Open(system, path, options);
}

const std::string& Database::path() const { return session_->path(); }
const messages::Message& Database::read_only_reason() const { return session_->read_only_reason(); }

messages::Message Database::ForeignUser() { return session_->ForeignUser(); }

HeaderInfo Database::Header() {
  const ReadLock lock(*session_);
  const HeaderFields& fields = session_->header();
  return {session_->pager().page_count(), fields.build, fields.code_page, fields.lcid,
          fields.created};
}

std::vector<TableInfo> Database::Tables(bool system) {
  std::vector<TableInfo> tables;
  catalog_->ForEach([&](const CatalogEntry& entry) {
    if (entry.type != ObjectType::kLocalTable || entry.parent != kTablesContainer) return;
    if (!system && !entry.IsUserObject()) return;
    tables.push_back({entry.name, static_cast<PageNumber>(entry.id), entry.created, entry.updated,
                      !entry.IsUserObject()});
  });
  std::sort(tables.begin(), tables.end(),
            [](const TableInfo& a, const TableInfo& b) { return a.name < b.name; });
  return tables;
}

bool Database::HasTable(std::string_view name) { return catalog_->FindTable(name).has_value(); }

Table& Database::OpenTable(std::string_view name) {
  const ReadLock lock(*session_);
  const auto entry = catalog_->FindTable(name);
  if (!entry) {
    throw Error(ErrorKind::kNotFound, path(), {}, {message::kNoTable, {{"<Table>", name}}},
                message::kLookAtTables);
  }
  if (entry->type != ObjectType::kLocalTable) {
    throw Error(ErrorKind::kUnsupported, path(), {},
                {message::kLinkedTable, {{"<Table>", entry->name}}}, message::kOpenHoldingDatabase);
  }
  const auto page = static_cast<PageNumber>(entry->id);
  std::unique_ptr<Table>& table = tables_[page];
  if (table && table->name() != entry->name) retired_.push_back(std::exchange(table, nullptr));
  if (!table) {
    table = std::make_unique<Table>(std::make_unique<TableState>(*session_, entry->name, page));
  }
  table->state_->Refresh();
  return *table;
}

Table& Database::CreateTable(const TableSpec& spec) {
  Transaction transaction(*this);
  TableCreator(*session_, *catalog_).CreateTable(spec);
  transaction.Commit();
  return OpenTable(spec.name);
}

void Database::CreateIndex(std::string_view table, const IndexSpec& spec) {
  Transaction transaction(*this);
  Table& opened = OpenTable(table);
  if (const messages::Message reason = opened.ReadOnlyReason(); !reason.empty()) {
    throw Error(ErrorKind::kReadOnly, path(), {}, reason, message::kChangeInAccess);
  }
  TableCreator(*session_, *catalog_).CreateIndex(*opened.state_, spec);
  transaction.Commit();
}

std::vector<Relation> Database::Relations() {
  const ReadLock lock(*session_);
  TableState table(*session_, "MSysRelationships", kRelationshipsDefinition);
  std::vector<std::size_t> columns;
  for (const char* name : {"szRelationship", "szObject", "szColumn", "szReferencedObject",
                           "szReferencedColumn", "grbit"}) {
    const auto position = table.FindColumn(name);
    if (!position) {
      ThrowDamaged(path(), {kRelationshipsDefinition, -1},
                   {message::kRelationsLackColumn, {{"<Column>", name}}});
    }
    columns.push_back(*position);
  }
  std::vector<Relation> relations;
  TableScan scan(table, columns);
  RowBuffer row;
  while (scan.Next(row)) {
    const auto text = [&](std::size_t i) {
      return row[i].is_null() ? std::string() : std::string(row[i].text());
    };
    const std::string name = text(0);
    auto relation = std::find_if(relations.begin(), relations.end(),
                                 [&](const Relation& r) { return r.name == name; });
    if (relation == relations.end()) relation = relations.insert(relation, Relation());
    relation->name = name;
    relation->table = text(1);
    relation->referenced_table = text(3);
    relation->columns.push_back(text(2));
    relation->referenced_columns.push_back(text(4));
    const auto flags = static_cast<std::uint32_t>(row[5].integer());
    relation->enforced = (flags & kRelationNotEnforced) == 0;
    relation->cascade_updates = (flags & kRelationCascadeUpdates) != 0;
    relation->cascade_deletes = (flags & kRelationCascadeDeletes) != 0;
  }
  return relations;
}

std::vector<Property> Database::Properties(std::string_view table) {
  const ReadLock lock(*session_);
  const auto entry = catalog_->FindTable(table);
  const std::size_t columns[] = {catalog_->Position("LvProp")};
  TableState& catalog = catalog_->table();
  const auto stored = entry ? catalog.reader().Find(entry->row) : std::nullopt;
  if (!stored) {
    throw Error(ErrorKind::kNotFound, path(), {}, {message::kNoTable, {{"<Table>", table}}},
                message::kLookAtTables);
  }
  RowBuffer row;
  catalog.reader().Decode(entry->row, *stored, columns, row);
  if (row[0].is_null()) return {};
  auto properties = DecodeProperties(row[0].bytes());
  if (!properties) {
    ThrowDamaged(path(), {entry->row.page, entry->row.slot},
                 {message::kPropertiesUnreadable, {{"<Table>", entry->name}}});
  }
  return std::move(*properties);
}

void Database::Begin() { session_->Begin(); }
void Database::Commit() { session_->Commit(); }
void Database::Rollback() noexcept { session_->Rollback(); }
bool Database::InTransaction() const { return session_->InTransaction(); }
void Database::KeepRowLog() { session_->row_log().kept = true; }
const RowLog& Database::row_log() const { return session_->row_log(); }
std::uint64_t Database::Generation() {
  const ReadLock lock(*session_);
  return session_->generation();
}

VerifyResult Database::Verify(const std::function<void(std::uint64_t, std::uint64_t)>& progress) {
  const ReadLock lock(*session_);
  return Verifier(*session_, *catalog_, progress).Run();
}

void Database::Save() { session_->Begin(); }
void Database::Collect(files::ChangeSet& changes) { session_->Collect(changes); }
void Database::Committed() noexcept { session_->Committed(); }
void Database::Restore() noexcept { session_->Rollback(); }

Database::ReadGuard::ReadGuard(Database& database) : session_(*database.session_) {
  session_.BeginRead();
}
Database::ReadGuard::~ReadGuard() { session_.EndRead(); }

}  // namespace jet
