// SPDX-License-Identifier: MIT
// Fuzz target: a whole database file, opened, read, verified and changed.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "files/memory_file_system.h"
#include "jet/database.h"

namespace {

constexpr const char* kPath = "/fuzz.mdb";

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
  system.Put(kPath, {reinterpret_cast<const char*>(data), size});
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
