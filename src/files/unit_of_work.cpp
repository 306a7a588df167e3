// SPDX-License-Identifier: MIT
#include "files/unit_of_work.h"

#include <cassert>
#include <exception>
#include <utility>

#include "platform/error.h"

namespace files {
namespace {

platform::ErrorKind ToPlatform(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::kConflict:
      return platform::ErrorKind::kConflict;
    case ErrorKind::kNotFound:
      return platform::ErrorKind::kNotFound;
    default:
      return platform::ErrorKind::kIo;
  }
}

// Raises what is being handled as platform::Error.
[[noreturn]] void RaiseAsPlatform() {
  try {
    throw;
  } catch (const platform::Error&) {
    throw;
  } catch (const Error& error) {
    throw platform::Error(ToPlatform(error.kind()), 0, error.message());
  } catch (const std::exception& error) {
    throw platform::Error(platform::ErrorKind::kIo, 0, messages::MessageOf(error));
  }
}

}  // namespace

JournalledUnitOfWork::JournalledUnitOfWork(FileSystem& system, std::string database_path,
                                           Reach reach)
    : journal_(system, std::move(database_path), std::move(reach)) {}

void JournalledUnitOfWork::Enlist(Participant& participant) {
  assert(depth_ == 0);
  participants_.push_back(&participant);
}

void JournalledUnitOfWork::Begin() {
  if (depth_ == 0) {
    rolled_back_ = false;
    title_ = {};
    not_undone_.clear();
    std::size_t saved = 0;
    try {
      for (; saved < participants_.size(); ++saved) participants_[saved]->Save();
    } catch (...) {
      while (saved > 0) participants_[--saved]->Restore();
      RaiseAsPlatform();
    }
  }
  ++depth_;
}

void JournalledUnitOfWork::SetTitle(const messages::Message& title) {
  assert(depth_ > 0);
  if (title_.empty()) title_ = title;
}

void JournalledUnitOfWork::Commit() {
  assert(depth_ > 0);
  if (--depth_ > 0) return;
  if (rolled_back_) {
    Undo();
    throw platform::Error(platform::ErrorKind::kRefused, 0, message::kStepRolledBack);
  }
  try {
    ChangeSet changes;
    for (Participant* participant : participants_) participant->Collect(changes);
    journal_.Commit(changes);
  } catch (const NotUndoneError& error) {
    not_undone_.push_back(error.message());
    Undo();
    RaiseAsPlatform();
  } catch (...) {
    Undo();
    RaiseAsPlatform();
  }
  for (Participant* participant : participants_) participant->Committed();
}

void JournalledUnitOfWork::Rollback() noexcept {
  assert(depth_ > 0);
  rolled_back_ = true;
  if (--depth_ == 0) Undo();
}

void JournalledUnitOfWork::Undo() noexcept {
  for (auto it = participants_.rbegin(); it != participants_.rend(); ++it) (*it)->Restore();
}

bool JournalledUnitOfWork::IsOpen() const { return depth_ > 0; }

std::vector<messages::Message> JournalledUnitOfWork::NotUndone() const { return not_undone_; }

}  // namespace files
