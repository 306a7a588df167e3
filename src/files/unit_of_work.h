// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files/change_journal.h"
#include "files/change_set.h"
#include "files/file_system.h"
#include "platform/unit_of_work.h"

namespace files {

// Something that changes in a unit of work: a database, the modules of the VB projects. Failures
// are files::Error, platform::Error or other standard exceptions.
class Participant {
 public:
  virtual ~Participant() = default;
  // Keeps the state that Restore returns to, and drops what is cached of files.
  virtual void Save() = 0;
  // Adds what has to be written. The objects named in the set stay as they are until Committed
  // or Restore is called.
  virtual void Collect(ChangeSet& changes) = 0;
  virtual void Committed() noexcept = 0;
  virtual void Restore() noexcept = 0;
};

// The unit of work over the change journal: collects the changes of all participants and commits
// them as one. What fails is put back and raised as platform::Error; the participants return to
// the state that they saved when the outermost unit began.
class JournalledUnitOfWork final : public platform::UnitOfWork {
 public:
  // `reach`: the files that may be written besides the database.
  JournalledUnitOfWork(FileSystem& system, std::string database_path, Reach reach = {});

  // Participants are not owned and must outlive the unit of work. Not while a unit is open.
  void Enlist(Participant& participant);

  void Begin() override;
  void SetTitle(const messages::Message& title) override;
  // Of the open unit; empty when it was given none.
  const messages::Message& title() const { return title_; }
  void Commit() override;
  void Rollback() noexcept override;
  bool IsOpen() const override;
  std::vector<messages::Message> NotUndone() const override;

 private:
  void Undo() noexcept;

  ChangeJournal journal_;
  std::vector<Participant*> participants_;
  int depth_ = 0;
  bool rolled_back_ = false;  // at some depth of the open unit
  messages::Message title_;
  std::vector<messages::Message> not_undone_;
};

}  // namespace files
