// SPDX-License-Identifier: MIT
#include "com/ado_connection.h"

#include <utility>

#include "com/ado_recordset.h"
#include "com/ado_schema.h"
#include "com/provider_messages.h"
#include "recordset/messages.h"

namespace com {

namespace {

// Nothing can be done about a failure.
template <class Action>
void Try(const Action& action) noexcept {
  try {
    action();
  } catch (const std::exception&) {
    // The reference goes in any case.
  }
}

}  // namespace

AdoConnection::AdoConnection(AdoObjects objects)
    : session_(std::make_shared<AdoSession>(std::move(objects))) {}

AdoConnection::~AdoConnection() { CloseAll(); }

void AdoConnection::Open(std::string_view connection_string) {
  if (session_->connection) {
    Refuse(platform::kErrObjectOpen, recordset::message::kConnectionOpen);
  }
  constexpr std::int32_t kUnspecified = -1;
  session_->Driving([&] {
    LateBound connection = session_->Make("Connection");
    connection.Get(L"Open", {Value(connection_string), Value(""), Value(""), Value(kUnspecified)});
    session_->connection = std::move(connection);
  });
}

void AdoConnection::CloseAll() noexcept {
  for (const auto& recordset : session_->OpenRecordsets()) recordset->Abandon();
  const LateBound connection = std::exchange(session_->connection, {});
  if (!connection) return;
  for (; transactions_ > 0; --transactions_) Try([&] { connection.Get(L"RollbackTrans"); });
  Try([&] { connection.Get(L"Close"); });
}

void AdoConnection::Close() {
  session_->OpenConnection();
  CloseAll();
}

platform::ObjectState AdoConnection::State() const {
  return session_->connection ? platform::ObjectState::kOpen : platform::ObjectState::kClosed;
}

// --- Transactions ---

void AdoConnection::RequireTransaction() const {
  session_->OpenConnection();
  if (transactions_ == 0) {
    Refuse(platform::kErrNotAllowedHere, recordset::message::kNoTransaction);
  }
}

void AdoConnection::BeginTrans() {
  session_->Driving([&] { session_->OpenConnection().Get(L"BeginTrans"); });
  ++transactions_;
}

void AdoConnection::CommitTrans() {
  RequireTransaction();
  session_->Driving([&] { session_->connection.Get(L"CommitTrans"); });
  --transactions_;
}

void AdoConnection::RollbackTrans() {
  constexpr auto kNoTransaction = static_cast<HRESULT>(0x8004D00E);
  RequireTransaction();
  session_->Driving([&] {
    try {
      session_->connection.Get(L"RollbackTrans");
    } catch (const Failure& failure) {
      // A commit that failed has ended it.
      if (failure.result() != kNoTransaction) throw;
    }
  });
  --transactions_;
}

// --- Recordsets ---

std::shared_ptr<platform::Recordset> AdoConnection::CreateRecordset() {
  return std::make_shared<AdoRecordset>(session_);
}

std::vector<std::shared_ptr<platform::Recordset>> AdoConnection::OpenRecordsets() {
  const auto open = session_->OpenRecordsets();
  return {open.begin(), open.end()};
}

// --- Definitions ---

std::vector<std::string> AdoConnection::TableNames() {
  return session_->Driving([&] { return ReadTableNames(session_->OpenConnection()); });
}

std::vector<platform::Connection::IndexInfo> AdoConnection::Indexes(std::string_view table) {
  return session_->Driving([&] { return ReadIndexes(session_->OpenConnection(), table); });
}

std::vector<platform::Connection::ColumnInfo> AdoConnection::Columns(std::string_view table) {
  return session_->Driving([&] { return ReadColumns(session_->OpenConnection(), table); });
}

std::int32_t AdoConnection::TableRowCount(std::string_view table) {
  return session_->Driving([&] { return ReadRowCount(session_->OpenConnection(), table); });
}

void AdoConnection::RefuseDefinition() const {
  Refuse(platform::kErrFeatureNotAvailable,
         {message::kDefinitionsStay, {{"<Provider>", session_->provider()}}});
}

void AdoConnection::Create(std::string_view) { RefuseDefinition(); }

void AdoConnection::CreateTable(std::string_view, const std::vector<ColumnInfo>&,
                                const std::vector<IndexInfo>&) {
  RefuseDefinition();
}

void AdoConnection::CreateIndex(std::string_view, const IndexInfo&) { RefuseDefinition(); }

}  // namespace com
