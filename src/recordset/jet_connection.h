// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"
#include "files/unit_of_work.h"
#include "jet/database.h"
#include "platform/ado.h"

namespace recordset {

class ConnectionState;

// A connection to a database file of the Jet engine. Outside a transaction every change of a row
// is a transaction of its own. Destroying it closes it; its recordsets are closed then, and what
// is pending in them is lost.
class JetConnection final : public platform::Connection {
 public:
  // The file system must outlive the connection. Of the options, what the connection string says
  // goes before.
  explicit JetConnection(files::FileSystem& system, const jet::OpenOptions& options = {});
  ~JetConnection() override;

  void Open(std::string_view connection_string) override;
  void Close() override;
  platform::ObjectState State() const override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  const std::vector<platform::ProviderError>& Errors() const override;
  std::shared_ptr<platform::Recordset> CreateRecordset() override;
  std::vector<std::shared_ptr<platform::Recordset>> OpenRecordsets() override;

  std::vector<std::string> TableNames() override;
  std::vector<IndexInfo> Indexes(std::string_view table) override;
  std::vector<ColumnInfo> Columns(std::string_view table) override;
  std::int32_t TableRowCount(std::string_view table) override;
  void Create(std::string_view connection_string) override;
  void CreateTable(std::string_view name, const std::vector<ColumnInfo>& columns,
                   const std::vector<IndexInfo>& indexes) override;
  void CreateIndex(std::string_view table, const IndexInfo& index) override;

  // The open database, for what ADO has no words for: as participant of a unit of work its
  // changes and those of other files are carried out together. Valid until the connection is
  // closed. Raises kErrObjectClosed.
  jet::Database& database();

 private:
  jet::Table& Table(std::string_view name);
  void CloseDatabase() noexcept;
  void RequireTransaction() const;

  files::FileSystem& system_;
  jet::OpenOptions options_;
  std::shared_ptr<ConnectionState> session_;
  int transactions_ = 0;
};

}  // namespace recordset
