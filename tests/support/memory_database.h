// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/memory_file_system.h"
#include "platform/ado.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/schema.h"
#include "tests/support/any_file.h"

namespace support {

// A connection that puts back whatever an interrupted operation of the plant left.
inline jet::OpenOptions AnyFileOptions() {
  jet::OpenOptions options;
  options.reach = kAnyFile;
  return options;
}

inline constexpr const char* kDatabasePath = "/plant/Plant.ovs";

// An empty project database in those files.
inline void PutDatabase(files::FileSystem& system) {
  recordset::JetConnection connection(system, AnyFileOptions());
  connection.Create(store::ProjectConnectionString(kDatabasePath));
  store::CompleteSchema(connection);
}

// A project database that lives in memory, made by the engine itself, with its three empty tables.
class MemoryDatabase {
 public:
  MemoryDatabase()
      : connection_(std::make_shared<recordset::JetConnection>(system_, AnyFileOptions())) {
    system_.CreateDirectories(system_.Folder(path_));
    connection_->Create(store::ProjectConnectionString(path_));
    store::CompleteSchema(*connection_);
    front_ = in_front ? in_front(connection_) : connection_;
  }

  // Tests of recordsets are run over another implementation, too: one that gets at this engine's.
  using InFront =
      std::shared_ptr<platform::Connection> (*)(const std::shared_ptr<recordset::JetConnection>&);
  static inline InFront in_front = nullptr;
  // The connection that Open uses: the engine's own, unless there is one in front of it.
  platform::Connection& front() { return *front_; }

  files::MemoryFileSystem& system() { return system_; }
  const std::string& path() const { return path_; }
  const std::shared_ptr<recordset::JetConnection>& connection() { return connection_; }

  // A second connection to the same file, as another program has it.
  std::shared_ptr<recordset::JetConnection> Connect() {
    auto other = std::make_shared<recordset::JetConnection>(system_, AnyFileOptions());
    other->Open(store::ProjectConnectionString(path_));
    return other;
  }

  // An open recordset on a table or query, with optimistic locking.
  std::shared_ptr<platform::Recordset> Open(std::string_view source,
                                            std::vector<platform::Variant> parameters = {}) {
    return Open(*front_, source, std::move(parameters));
  }
  static std::shared_ptr<platform::Recordset> Open(platform::Connection& connection,
                                                   std::string_view source,
                                                   std::vector<platform::Variant> parameters = {}) {
    auto recordset = connection.CreateRecordset();
    recordset->SetSource(source);
    recordset->SetLockType(platform::LockType::kOptimistic);
    recordset->SetParameters(std::move(parameters));
    recordset->Open();
    return recordset;
  }
  // A table with an index for Seek.
  std::shared_ptr<platform::Recordset> OpenTable(std::string_view table, std::string_view index) {
    auto recordset = front_->CreateRecordset();
    recordset->SetSource(table);
    recordset->SetCommandType(platform::CommandType::kTableDirect);
    recordset->SetLockType(platform::LockType::kOptimistic);
    recordset->SetIndex(index);
    recordset->Open();
    return recordset;
  }

  std::int32_t AddFormula(std::string_view name, std::string_view prog_id, std::int32_t type = 0,
                          const platform::Variant& comment = platform::Null{}) {
    return Add("TvbfFormulas", {"Name", "ProgID", "Type", "ScanTime", "Enabled", "Comment"},
               {name, prog_id, type, 0, true, comment});
  }
  std::int32_t AddAlias(std::string_view item, std::string_view vb_alias) {
    return Add("TvbfAlias", {"ItemID", "VBAlias"}, {item, vb_alias});
  }
  std::int32_t AddArgument(std::int32_t formula, std::int32_t alias, bool in = true,
                           bool out = false) {
    return Add("TvbfParams", {"ParentID", "AliasID", "In", "Out"}, {formula, alias, in, out});
  }
  // Adds a row and returns its ID.
  std::int32_t Add(std::string_view table, const std::vector<std::string>& fields,
                   const std::vector<platform::Variant>& values) {
    auto recordset = Open(table);
    recordset->AddNew(fields, values);
    return recordset->Fields("ID").Value().ToLong();
  }

 private:
  files::MemoryFileSystem system_;
  std::string path_ = "/plant/plant.ovs";
  std::shared_ptr<recordset::JetConnection> connection_;
  std::shared_ptr<platform::Connection> front_;
};

}  // namespace support
