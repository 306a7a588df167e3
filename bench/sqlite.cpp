// SPDX-License-Identifier: MIT
#include "bench/sqlite.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace bench {
namespace {

[[noreturn]] void Fail(sqlite3* handle) {
  std::fprintf(stderr, "SQLite: %s\n", sqlite3_errmsg(handle));
  std::exit(1);
}

}  // namespace

Sqlite::Sqlite(const std::string& path) {
  if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) Fail(handle_);
}

Sqlite::~Sqlite() { sqlite3_close(handle_); }

void Sqlite::Run(const std::string& sql) {
  if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(handle_);
}

SqliteStatement::SqliteStatement(const Sqlite& database, const std::string& sql)
    : database_(database) {
  Check(sqlite3_prepare_v3(database.handle(), sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT,
                           &statement_, nullptr),
        SQLITE_OK);
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(statement_); }

void SqliteStatement::Check(int result, int expected) const {
  if (result != expected) Fail(database_.handle());
}

void SqliteStatement::Bind(int index, std::int64_t value) {
  Check(sqlite3_bind_int64(statement_, index, value), SQLITE_OK);
}

void SqliteStatement::Bind(int index, std::string_view text) {
  Check(sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()), nullptr),
        SQLITE_OK);
}

bool SqliteStatement::Step() {
  const int result = sqlite3_step(statement_);
  if (result != SQLITE_ROW) Check(result, SQLITE_DONE);
  return result == SQLITE_ROW;
}

std::int64_t SqliteStatement::Integer(int column) {
  return sqlite3_column_int64(statement_, column);
}

std::string_view SqliteStatement::Text(int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

void SqliteStatement::Reset() { Check(sqlite3_reset(statement_), SQLITE_OK); }

}  // namespace bench
