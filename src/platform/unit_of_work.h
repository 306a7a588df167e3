// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "messages/message.h"

namespace platform {

// Everything that one operation of an engineer changes: database rows and source lines, together
// or not at all. Nested uses join the outer one: only the outermost Commit makes changes last,
// and a Rollback at any depth makes the outermost Commit fail.
class UnitOfWork {
 public:
  virtual ~UnitOfWork() = default;

  // Begins, or joins the unit that is open. Beginning drops cached module text, so that the
  // operation sees what stands in the files now. Raises platform::Error when a participant
  // cannot save its state; nothing is begun then.
  virtual void Begin() = 0;

  // Names what the open unit does, for who looks at it later. The first name given counts: what
  // joined it later is a part of that.
  virtual void SetTitle(const messages::Message& title) = 0;

  // Makes the changes last. Raises platform::Error (kConflict when somebody else changed a file
  // meanwhile, kIo otherwise) after everything was put back. What could not be put back is
  // returned by NotUndone.
  virtual void Commit() = 0;

  // Puts everything back. Never raises.
  virtual void Rollback() noexcept = 0;

  virtual bool IsOpen() const = 0;

  // What the last Commit or Rollback could not put back: one sentence each that names the file
  // and the remedy. Empty when all is well.
  virtual std::vector<messages::Message> NotUndone() const = 0;
};

// Rolls back unless Commit was called.
class UnitOfWorkScope {
 public:
  explicit UnitOfWorkScope(UnitOfWork& unit) : unit_(unit) { unit_.Begin(); }
  ~UnitOfWorkScope() {
    if (!done_) unit_.Rollback();
  }
  UnitOfWorkScope(const UnitOfWorkScope&) = delete;
  UnitOfWorkScope& operator=(const UnitOfWorkScope&) = delete;

  void Commit() {
    done_ = true;
    unit_.Commit();
  }

 private:
  UnitOfWork& unit_;
  bool done_ = false;
};

}  // namespace platform
