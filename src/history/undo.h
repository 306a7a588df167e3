// SPDX-License-Identifier: MIT
// Taking operations back and doing them again, each as one operation: all or nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "codegen/code_context.h"
#include "files/change_set.h"
#include "files/file_identity.h"
#include "files/file_system.h"
#include "history/recorder.h"
#include "messages/message.h"
#include "store/operations.h"

namespace history {

// What Undo or Redo would take.
struct Candidate {
  std::uint64_t number = 0;
  messages::Message title;
};

struct Reverted {
  store::OperationResult result;
  Candidate operation;                   // that was taken back or done again
  std::vector<files::FileChange> files;  // that were written, or would be in a dry run
};

class UndoRedo {
 public:
  // What it refers to must outlive it. `code` may be null when there is none.
  struct Parts {
    files::FileSystem& system;
    Recorder& recorder;
    store::Operations& operations;
    const codegen::CodeContext* code;
    files::Reach reach;  // the files that may be written
  };
  explicit UndoRedo(Parts parts) : parts_(std::move(parts)) {}

  // The last operation that is not undone; the last that was undone when no other came since.
  // Nothing when there is none. They read only the end of the history. Raise files::Error.
  std::optional<Candidate> NextUndo();
  std::optional<Candidate> NextRedo();

  // Brings the rows and lines that the operation changed (that of the number, or the next one) back
  // to what they were before it, or to what it had made of them. Refused, with nothing changed,
  // when a row or a line is not as it was left, or a later operation rests on it; the detail names
  // the places with both versions. Of the options counts whether it is a dry run.
  Reverted Undo(std::optional<std::uint64_t> number, const store::OperationOptions& options = {});
  Reverted Redo(std::optional<std::uint64_t> number, const store::OperationOptions& options = {});

 private:
  Reverted Run(bool undo, std::optional<std::uint64_t> number,
               const store::OperationOptions& options);
  // Warnings.
  std::vector<messages::Message> FollowComponents(const Record& record);

  Parts parts_;
};

}  // namespace history
