// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "files/unit_of_work.h"
#include "recordset/jet_connection.h"

namespace project {

// The database of a connection as participant of a unit of work, whichever database the
// connection has open when the unit begins; none, when it is closed.
class ConnectionParticipant final : public files::Participant {
 public:
  explicit ConnectionParticipant(std::shared_ptr<recordset::JetConnection> connection)
      : connection_(std::move(connection)) {}

  // That takes part in the open unit, or took part in the last; null for none.
  jet::Database* database() const { return database_; }

  void Save() override {
    database_ = nullptr;
    if (connection_->State() != platform::ObjectState::kOpen) return;
    jet::Database& database = connection_->database();
    database.Save();
    database_ = &database;
  }
  void Collect(files::ChangeSet& changes) override {
    if (database_) database_->Collect(changes);
  }
  void Committed() noexcept override {
    if (database_) database_->Committed();
  }
  void Restore() noexcept override {
    if (database_) database_->Restore();
  }

 private:
  std::shared_ptr<recordset::JetConnection> connection_;
  jet::Database* database_ = nullptr;  // that took part in the open unit
};

}  // namespace project
