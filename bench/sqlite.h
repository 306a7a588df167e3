// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

// A database of SQLite for comparison. Every failure ends the program with its text.
class Sqlite {
 public:
  explicit Sqlite(const std::string& path);
  ~Sqlite();
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  void Run(const std::string& sql);
  sqlite3* handle() const { return handle_; }

 private:
  sqlite3* handle_ = nullptr;
};

// A prepared statement.
class SqliteStatement {
 public:
  SqliteStatement(const Sqlite& database, const std::string& sql);
  ~SqliteStatement();
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  void Bind(int index, std::int64_t value);
  // The text has to live until Reset.
  void Bind(int index, std::string_view text);
  // Whether there is a row.
  bool Step();
  std::int64_t Integer(int column);
  // Valid until the next Step or Reset.
  std::string_view Text(int column);
  void Reset();

 private:
  void Check(int result, int expected) const;

  const Sqlite& database_;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace bench
