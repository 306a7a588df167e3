// SPDX-License-Identifier: MIT
#include "jet/database.h"

#include <algorithm>

#include "files/change_journal.h"
#include "jet/catalog.h"
#include "jet/new_database.h"
#include "jet/session.h"
#include "jet/table_creator.h"
#include "jet/table_state.h"
#include "jet/verifier.h"

namespace jet {

Database::Database(std::unique_ptr<Session> session) : session_(std::move(session)) {
  const ReadHold hold(*session_);
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
    throw Error(ErrorKind::kExists, path, {}, "The file exists already.",
                "Choose another name, or open it.");
  }
  files::ChangeSet changes;
  changes.files.push_back({path, std::nullopt, NewDatabase(DateNow())});
  files::ChangeJournal(system, path).Commit(changes);
  return Open(system, path, options);
}

const std::string& Database::path() const { return session_->path(); }
const std::string& Database::read_only_reason() const { return session_->read_only_reason(); }

HeaderInfo Database::Header() {
  const ReadHold hold(*session_);
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
  const ReadHold hold(*session_);
  const auto entry = catalog_->FindTable(name);
  if (!entry) {
    throw Error(ErrorKind::kNotFound, path(), {}, "There is no table " + std::string(name) + ".",
                "Look at the names of the tables and try again.");
  }
  if (entry->type != ObjectType::kLocalTable) {
    throw Error(ErrorKind::kUnsupported, path(), {},
                "The table " + entry->name + " is only a link to another database.",
                "Open the database that holds it.");
  }
  const auto page = static_cast<PageNumber>(entry->id);
  std::unique_ptr<Table>& table = tables_[page];
  if (table && table->name() != entry->name) retired_.push_back(std::move(table));
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
  if (const std::string reason = opened.ReadOnlyReason(); !reason.empty()) {
    throw Error(ErrorKind::kReadOnly, path(), {}, reason, "Change the table in Access.");
  }
  TableCreator(*session_, *catalog_).CreateIndex(*opened.state_, spec);
  transaction.Commit();
}

void Database::Begin() { session_->Begin(); }
void Database::Commit() { session_->Commit(); }
void Database::Rollback() noexcept { session_->Rollback(); }
bool Database::InTransaction() const { return session_->InTransaction(); }
std::uint64_t Database::Generation() {
  const ReadHold hold(*session_);
  return session_->generation();
}

VerifyResult Database::Verify(const std::function<void(std::uint64_t, std::uint64_t)>& progress) {
  const ReadHold hold(*session_);
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
