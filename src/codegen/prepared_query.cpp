// SPDX-License-Identifier: MIT
#include "codegen/prepared_query.h"

#include <utility>

namespace codegen {
namespace {

constexpr std::int32_t kBlock = 512;

}  // namespace

PreparedQuery::PreparedQuery(platform::Connection& connection, std::string_view sql)
    : recordset_(connection.CreateRecordset()) {
  recordset_->SetSource(sql);
  recordset_->SetCommandType(platform::CommandType::kText);
  recordset_->SetCursorLocation(platform::CursorLocation::kServer);
  recordset_->SetCursorType(platform::CursorType::kForwardOnly);
  recordset_->SetLockType(platform::LockType::kReadOnly);
}

void PreparedQuery::Open(std::vector<platform::Variant> parameters) {
  // A failure may have left it open.
  if (recordset_->State() == platform::ObjectState::kOpen) recordset_->Close();
  recordset_->SetParameters(std::move(parameters));
  recordset_->Open();
}

platform::RowBlock PreparedQuery::Read(std::vector<platform::Variant> parameters,
                                       const std::vector<std::string>& fields, std::int32_t count) {
  Open(std::move(parameters));
  platform::RowBlock rows(fields.size());
  if (!recordset_->EOF_()) rows = recordset_->GetRows(count, fields);
  recordset_->Close();
  return rows;
}

void PreparedQuery::ForEachRow(
    std::vector<platform::Variant> parameters, const std::vector<std::string>& fields,
    const std::function<void(const platform::RowBlock& rows, std::size_t row)>& visit) {
  Open(std::move(parameters));
  while (!recordset_->EOF_()) {
    const platform::RowBlock rows = recordset_->GetRows(kBlock, fields);
    for (std::size_t row = 0; row < rows.RowCount(); ++row) visit(rows, row);
  }
  recordset_->Close();
}

}  // namespace codegen
