// SPDX-License-Identifier: MIT
// Fuzz target: a database with damaged bytes, opened, read, verified and changed. The input is a
// list of edits of a sound database, so that small inputs reach deep:
//   u16 pages that are cut off, modulo their number + 1; then for each edit
//   u24 offset, u8 new byte
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "files/memory_file_system.h"
#include "jet/database.h"

namespace {

constexpr const char* kPath = "/fuzz.mdb";
constexpr std::size_t kPageSize = 4096;

// Values of most types; long values, moved and deleted rows, an index with nodes.
std::string MakeDatabase() {
  files::MemoryFileSystem system;
  {
    const auto database = jet::Database::Create(system, kPath);
    jet::TableSpec spec;
    spec.name = "Things";
    spec.columns = {{"ID", jet::ColumnType::kLong, 0, true},
                    {"Name", jet::ColumnType::kText},
                    {"When", jet::ColumnType::kDate},
                    {"Is", jet::ColumnType::kBoolean},
                    {"Note", jet::ColumnType::kMemo}};
    spec.indexes = {{"PrimaryKey", {{"ID", true}}, false, true},
                    {"Name", {{"Name", true}, {"When", false}}, true}};
    jet::Table& table = database->CreateTable(spec);
    jet::Transaction transaction(*database);
    for (int i = 0; i < 120; ++i) {
      const std::string name = std::string(20 + i % 60, 'a') + std::to_string(i);
      const std::string note(static_cast<std::size_t>(i) * (i % 10 == 0 ? 80 : 1), 'n');
      const std::array values = {jet::ColumnValue{1, jet::Value::Text(name)},
                                 jet::ColumnValue{2, jet::Value::Date(45000 + i)},
                                 jet::ColumnValue{3, jet::Value::Boolean(i % 2 == 0)},
                                 jet::ColumnValue{4, jet::Value::Text(note)}};
      const jet::RowId id = table.Insert(values).id;
      const std::string longer = name + std::string(100, 'b');
      const jet::ColumnValue update{1, jet::Value::Text(longer)};
      if (i % 7 == 0) table.Delete(id);
      if (i % 7 == 1) table.Update(id, {&update, 1});
    }
    transaction.Commit();
  }
  return system.Get(kPath);
}

std::string Damaged(const std::uint8_t* data, std::size_t size) {
  static const std::string sound = MakeDatabase();
  std::string file = sound;
  if (size < 2) return file;
  const std::size_t pages = file.size() / kPageSize;
  file.resize((pages - (data[0] | std::size_t{data[1]} << 8) % (pages + 1)) * kPageSize);
  for (std::size_t i = 2; i + 4 <= size && !file.empty(); i += 4) {
    const std::size_t offset =
        data[i] | std::size_t{data[i + 1]} << 8 | std::size_t{data[i + 2]} << 16;
    file[offset % file.size()] = static_cast<char>(data[i + 3]);
  }
  return file;
}

void ReadAll(jet::Database& database) {
  jet::RowBuffer row;
  for (const jet::TableInfo& info : database.Tables(true)) {
    try {
      jet::Scan scan = database.OpenTable(info.name).OpenScan();
      for (bool more = true; more;) {
        try {
          more = scan.Next(row);
        } catch (const jet::Error&) {
        }
      }
      database.Properties(info.name);
    } catch (const jet::Error&) {
    }
  }
}

void Change(jet::Database& database) {
  for (const jet::TableInfo& info : database.Tables()) {
    try {
      jet::Table& table = database.OpenTable(info.name);
      const jet::RowId id = table.Insert({}).id;
      table.Delete(id);
    } catch (const jet::Error&) {
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  files::MemoryFileSystem system;
  system.Put(kPath, Damaged(data, size));
  try {
    const auto database = jet::Database::Open(system, kPath);
    ReadAll(*database);
    database->Verify();
    database->Relations();
    Change(*database);
  } catch (const jet::Error&) {
  } catch (const files::Error&) {
  }
  return 0;
}
