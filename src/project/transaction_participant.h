// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <memory>
#include <utility>
#include <vector>

#include "files/unit_of_work.h"
#include "platform/ado.h"

namespace project {

// The transaction of a database that our journal cannot carry, as participant of a unit of work. It
// is committed when the changes of the others have been collected: enlist it last, and beside it
// nothing that the journal would have to write.
class TransactionParticipant final : public files::Participant {
 public:
  explicit TransactionParticipant(std::shared_ptr<platform::Connection> connection)
      : connection_(std::move(connection)) {}

  // Why the last Restore did not put the rows back; empty when it did.
  const messages::Message& not_restored() const { return not_restored_; }

  void Save() override {
    not_restored_ = {};
    open_ = connection_->State() == platform::ObjectState::kOpen;
    if (open_) connection_->BeginTrans();
  }
  void Collect(files::ChangeSet&) override {
    if (open_) connection_->CommitTrans();
    open_ = false;
  }
  void Committed() noexcept override {}
  void Restore() noexcept override {
    if (!std::exchange(open_, false)) return;
    try {
      connection_->RollbackTrans();
    } catch (const std::exception& error) {
      not_restored_ = messages::MessageOf(error);
    }
  }

 private:
  std::shared_ptr<platform::Connection> connection_;
  bool open_ = false;  // a transaction of ours
  messages::Message not_restored_;
};

}  // namespace project
