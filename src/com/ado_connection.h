// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "com/ado_session.h"
#include "platform/ado.h"

namespace com {

// A database connection over late-bound objects of ADO's model: the provider that the studio itself
// uses. Definitions of tables are read, not changed. Whatever its objects raise, closing closes.
class AdoConnection final : public platform::Connection {
 public:
  explicit AdoConnection(AdoObjects objects);
  ~AdoConnection() override;

  void Open(std::string_view connection_string) override;
  void Close() override;
  platform::ObjectState State() const override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  const std::vector<platform::ProviderError>& Errors() const override { return session_->errors; }
  std::shared_ptr<platform::Recordset> CreateRecordset() override;
  std::vector<std::shared_ptr<platform::Recordset>> OpenRecordsets() override;

  std::vector<std::string> TableNames() override;
  std::vector<IndexInfo> Indexes(std::string_view table) override;
  std::vector<ColumnInfo> Columns(std::string_view table) override;
  std::int32_t TableRowCount(std::string_view table) override;

  // These raise kErrFeatureNotAvailable.
  void Create(std::string_view connection_string) override;
  void CreateTable(std::string_view name, const std::vector<ColumnInfo>& columns,
                   const std::vector<IndexInfo>& indexes) override;
  void CreateIndex(std::string_view table, const IndexInfo& index) override;

 private:
  void RequireTransaction() const;
  [[noreturn]] void RefuseDefinition() const;
  void CloseAll() noexcept;

  std::shared_ptr<AdoSession> session_;
  int transactions_ = 0;  // that are open
};

}  // namespace com
