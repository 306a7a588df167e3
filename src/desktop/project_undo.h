// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "files/file_system.h"
#include "history/undo.h"
#include "project/project.h"
#include "studio/add_in_session.h"

namespace desktop {

// Takes operations of the open project back and does them again, and shows what came of it.
class ProjectUndo {
 public:
  // All of it outlives this object.
  ProjectUndo(const WindowParts& parts, const WindowMessages& messages, project::Project& opened,
              studio::AddInSession& session)
      : parts_(parts), messages_(messages), project_(opened), session_(session) {}

  // What would be taken back and done again; nothing where there is nothing.
  struct Next {
    std::optional<history::Candidate> undo, redo;
  };
  // Reads the end of the history when that is another one than at the last call. True then.
  bool Look();
  const Next& next() const { return next_; }
  // Whether operations leave a record at all.
  bool On() const { return project_.history().on(); }

  // The operation of the number, or the next one. A refusal is told with what stands in the way.
  void Undo(std::optional<std::uint64_t> number = std::nullopt) { Run(true, number); }
  void Redo(std::optional<std::uint64_t> number = std::nullopt) { Run(false, number); }

  std::function<void()> on_done;  // rows and code are others now

 private:
  void Run(bool undo, std::optional<std::uint64_t> number);
  void ShowProblems();

  const WindowParts& parts_;
  const WindowMessages& messages_;
  project::Project& project_;
  studio::AddInSession& session_;
  std::optional<files::FileStamp> seen_;  // of the history when next_ was read
  bool looked_ = false;
  Next next_;
};

}  // namespace desktop
