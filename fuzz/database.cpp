// SPDX-License-Identifier: MIT
#include "fuzz/database.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <vector>

#include "cli/database_schema.h"
#include "cli/export_format.h"
#include "files/memory_file_system.h"
#include "jet/database.h"

namespace fuzz {
namespace {

using jet::ColumnType;
using jet::Value;

constexpr const char* kPath = "/fuzz.mdb";

constexpr std::array<std::byte, 17> kBytes = {std::byte{0x80}, std::byte{1}, std::byte{2}};

Value SampleValue(ColumnType type, int i) {
  const std::span<const std::byte, 17> bytes(kBytes);
  switch (type) {
    case ColumnType::kBoolean:
      return Value::Boolean(i % 2 == 0);
    case ColumnType::kByte:
    case ColumnType::kInteger:
    case ColumnType::kLong:
      return Value::Integer(i % 200);
    case ColumnType::kCurrency:
      return Value::Currency(std::int64_t{i} * 12345);
    case ColumnType::kSingle:
    case ColumnType::kDouble:
      return Value::Real(i / 3.0);
    case ColumnType::kDate:
      return Value::Date(45000.25 + i);
    case ColumnType::kText:
    case ColumnType::kMemo:
      return Value::Text("text");
    case ColumnType::kGuid:
      return Value::Guid(bytes.first<16>());
    case ColumnType::kDecimal:
      return Value::Decimal(bytes);
    default:
      return Value::Binary(bytes);
  }
}

std::string MakeDatabase() {
  files::MemoryFileSystem system;
  {
    const auto database = jet::Database::Create(system, kPath);
    jet::TableSpec spec;
    spec.name = kTable;
    spec.columns = {{"ID", ColumnType::kLong, 0, true},  {"Name", ColumnType::kText},
                    {"When", ColumnType::kDate},         {"Is", ColumnType::kBoolean},
                    {"Note", ColumnType::kMemo},         {"Byte", ColumnType::kByte},
                    {"Integer", ColumnType::kInteger},   {"Money", ColumnType::kCurrency},
                    {"Single", ColumnType::kSingle},     {"Double", ColumnType::kDouble},
                    {"Binary", ColumnType::kBinary, 20}, {"Ole", ColumnType::kOle},
                    {"Guid", ColumnType::kGuid},         {"Decimal", ColumnType::kDecimal}};
    spec.indexes = {{"PrimaryKey", {{"ID", true}}, false, true},
                    {"Name", {{"Name", true}, {"When", false}}, true},
                    {"Numbers", {{"Decimal", true}, {"Guid", false}, {"Money", true}}}};
    jet::Table& table = database->CreateTable(spec);
    jet::Transaction transaction(*database);
    for (int i = 0; i < 120; ++i) {
      const std::string name =
          std::string(20 + static_cast<std::size_t>(i) % 60, 'a') + std::to_string(i);
      const std::string note(static_cast<std::size_t>(i) * (i % 10 == 0 ? 80 : 1), 'n');
      std::vector<jet::ColumnValue> values = {{1, Value::Text(name)}, {4, Value::Text(note)}};
      for (const std::size_t column : {2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13}) {
        if (i % 5 == 0 && column > 3) continue;
        values.push_back({column, SampleValue(spec.columns[column].type, i)});
      }
      const jet::RowId id = table.Insert(values).id;
      const std::string longer = name + std::string(100, 'b');
      const jet::ColumnValue update{1, Value::Text(longer)};
      if (i % 7 == 0) table.Delete(id);
      if (i % 7 == 1) table.Update(id, {&update, 1});
    }
    transaction.Commit();
  }
  return system.Get(kPath);
}

// Runs a step that damage may stop.
template <class Step>
bool Try(Step step) {
  try {
    step();
    return true;
  } catch (const jet::Error&) {
    return false;
  } catch (const files::Error&) {
    return false;
  }
}

void Export(jet::Table& table) {
  jet::RowBuffer row;
  std::string text;
  jet::Scan scan = table.OpenScan();
  for (bool more = true; more;) {
    Try([&] {
      more = scan.Next(row);
      if (!more) return;
      cli::AppendCsvRow(text, row.values(), table.columns());
      for (std::size_t i = 0; i < row.size(); ++i) {
        cli::AppendJson(text, row[i], table.columns()[i]);
      }
    });
    text.clear();
  }
  Try([&] { scan.Shortfall(); });
  for (std::size_t i = 0; i < table.indexes().size(); ++i) {
    Try([&] { table.IndexedRows(i); });
  }
}

void Read(jet::Database& database) {
  for (const jet::TableInfo& info : database.Tables(true)) {
    Try([&] { Export(database.OpenTable(info.name)); });
    Try([&] { database.Properties(info.name); });
  }
  Try([&] { cli::SchemaAsText(database); });
  Try([&] { cli::SchemaAsJson(database); });
  Try([&] { database.Relations(); });
}

std::optional<jet::RowId> FirstRow(jet::Table& table) {
  jet::RowBuffer row;
  jet::Scan scan = table.OpenScan();
  if (!scan.Next(row)) return std::nullopt;
  return row.id();
}

void Change(jet::Table& table) {
  std::vector<jet::ColumnValue> values;
  for (std::size_t i = 0; i < table.columns().size(); ++i) {
    const jet::Column& column = table.columns()[i];
    if (!column.auto_number) values.push_back({i, SampleValue(column.type, 7)});
  }
  std::optional<jet::RowId> added;
  Try([&] { added = table.Insert(values).id; });
  Try([&] { table.Insert({}); });
  Try([&] {
    if (const auto first = FirstRow(table)) {
      table.Update(*first, {values.data(), values.size() / 2});
      table.Delete(*first);
    }
  });
  Try([&] {
    if (added) table.Delete(*added);
  });
}

}  // namespace

const std::string& SoundDatabase() {
  static const std::string bytes = MakeDatabase();
  return bytes;
}

void UseDatabase(const std::string& bytes) {
  files::MemoryFileSystem system;
  system.Put(kPath, bytes);
  Try([&] {
    const auto database = jet::Database::Open(system, kPath);
    Read(*database);
    const bool sound = database->Verify().ok();
    for (const jet::TableInfo& info : database->Tables()) {
      Try([&] { Change(database->OpenTable(info.name)); });
    }
    if (sound && !database->Verify().ok()) std::abort();
  });
}

}  // namespace fuzz
