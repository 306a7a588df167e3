// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_set.h"
#include "files/file_system.h"
#include "files/unit_of_work.h"
#include "jet/error.h"
#include "jet/row_log.h"
#include "jet/schema.h"
#include "jet/table.h"
#include "jet/value.h"
#include "messages/message.h"

namespace jet {

class Catalog;
class Session;

struct OpenOptions {
  bool read_only = false;
  std::size_t cache_pages = 2048;  // unchanged pages kept in memory, 4 KiB each
  // Pages that a transaction changed and keeps in memory; more go to a file without a name.
  std::size_t changed_pages = 1024;
  int wait_ms = 5000;  // how long to wait for another process's transaction
  // Files that an interrupted change of the database may have concerned besides it.
  files::Reach reach = {};
  // What others see in the .ldb file: name of this computer and of the account.
  std::string computer = "OVFORMULA";
  std::string user = "Admin";
};

// An entry of the catalog.
struct TableInfo {
  std::string name;
  PageNumber definition_page = 0;
  double created = 0;  // days since 1899-12-30
  double updated = 0;
  bool system = false;
};

// What a new table shall be.
struct ColumnSpec {
  std::string name;
  ColumnType type = ColumnType::kLong;
  std::uint16_t length = 0;  // text: characters, binary: bytes; 0 is the largest possible
  bool auto_number = false;
  bool compressed = true;  // text and memo
};
struct IndexSpec {
  struct Part {
    std::string column;
    bool ascending = true;
  };
  std::string name;
  std::vector<Part> columns;
  bool unique = false;
  bool primary = false;  // implies unique and required
  bool ignore_nulls = false;
  bool required = false;
};
struct TableSpec {
  std::string name;
  std::vector<ColumnSpec> columns;
  std::vector<IndexSpec> indexes;
};

// A relation as the catalog declares it.
struct Relation {
  std::string name;
  std::string table;  // the referencing side
  std::string referenced_table;
  std::vector<std::string> columns;
  std::vector<std::string> referenced_columns;
  bool enforced = false;
  bool cascade_updates = false;
  bool cascade_deletes = false;
};

// A property of a table (empty column) or of one of its columns.
struct Property {
  std::string column;
  std::string name;
  std::uint8_t type = 0;  // a ColumnType code
  std::string text;       // the value as text; binary as hex
};

struct HeaderInfo {
  std::uint32_t page_count = 0;
  std::uint32_t build = 0;  // of the engine that made the file
  std::uint16_t code_page = 0;
  std::uint16_t lcid = 0;
  double created = 0;
};

// One fault that Verify found.
struct Finding {
  Place place;
  std::string table;  // empty when no table is concerned
  messages::Message text;
};
// The fault with its table and its place in the file.
messages::Message Describe(const Finding& finding);

struct VerifyResult {
  std::uint64_t pages = 0, tables = 0, rows = 0, indexes = 0, entries = 0, long_values = 0;
  std::uint64_t free_pages = 0, leaked_pages = 0;
  std::vector<Finding> findings;
  bool ok() const { return findings.empty(); }
};

// An open Jet 4.0 database. Not for use by several threads at once. Everything that fails raises
// jet::Error or files::Error.
//
// Transactions nest: an inner Begin is a savepoint, an inner Commit keeps, an inner Rollback
// returns to it. The outermost level holds the write lock, and its Commit makes everything last
// through the change journal. As participant of a unit of work the database begins with Save,
// and the unit of work's journal takes the place of Commit.
class Database final : public files::Participant {
 public:
  // Opens after finishing what a journal beside the file may have left. Opens read-only, with a
  // reason, what may be read but not written.
  static std::unique_ptr<Database> Open(files::FileSystem& system, const std::string& path,
                                        const OpenOptions& options = {});
  // Creates an empty database; the file must not exist.
  static std::unique_ptr<Database> Create(files::FileSystem& system, const std::string& path,
                                          const OpenOptions& options = {});
  ~Database() override;
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  const std::string& path() const;
  // Why nothing can be changed; empty when changes are possible.
  const messages::Message& read_only_reason() const;
  // "COMPUTER (Account)" of a program that is not ours and has the database open, or empty.
  messages::Message ForeignUser();
  HeaderInfo Header();

  // The user's tables, by name. With `system`, also those of the engine and of Access.
  std::vector<TableInfo> Tables(bool system = false);
  // Raises kNotFound. Names match without regard to case. The object lives as long as this one.
  Table& OpenTable(std::string_view name);
  bool HasTable(std::string_view name);
  // Raises kExists, or kInvalid with the reason.
  Table& CreateTable(const TableSpec& spec);
  // Adds an index to a table, with entries for its rows. Raises kDuplicate, changing nothing.
  void CreateIndex(std::string_view table, const IndexSpec& spec);

  std::vector<Relation> Relations();
  std::vector<Property> Properties(std::string_view table);

  void Begin();
  void Commit();
  void Rollback() noexcept;
  bool InTransaction() const;

  // From now on the rows that transactions change are kept, until the next outermost one begins.
  void KeepRowLog();
  // What the open transaction, or the last, changed in the rows.
  const RowLog& row_log() const;

  // Rises when rows may have changed by others: what was read before may be out of date.
  std::uint64_t Generation();

  // Keeps others from committing while it lives, and saves the look at the file that every read
  // makes otherwise. For a group of reads that belong together; not across a user's pause.
  class ReadGuard {
   public:
    explicit ReadGuard(Database& database);
    ~ReadGuard();
    ReadGuard(const ReadGuard&) = delete;
    ReadGuard& operator=(const ReadGuard&) = delete;

   private:
    Session& session_;
  };

  // Walks everything. `progress` is called with pages done and pages in all.
  VerifyResult Verify(const std::function<void(std::uint64_t, std::uint64_t)>& progress = nullptr);

  // files::Participant
  void Save() override;
  void Collect(files::ChangeSet& changes) override;
  void Committed() noexcept override;
  void Restore() noexcept override;

 private:
  explicit Database(std::unique_ptr<Session> session);

  std::unique_ptr<Session> session_;
  std::unique_ptr<Catalog> catalog_;
  std::map<PageNumber, std::unique_ptr<Table>> tables_;  // by definition page
  // Of tables that are gone, because their creation was rolled back; somebody may hold them.
  std::vector<std::unique_ptr<Table>> retired_;
};

// Rolls back unless Commit was called.
class Transaction {
 public:
  explicit Transaction(Database& database) : database_(database) { database_.Begin(); }
  ~Transaction() {
    if (!done_) database_.Rollback();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit() {
    database_.Commit();
    done_ = true;
  }

 private:
  Database& database_;
  bool done_ = false;
};

}  // namespace jet
