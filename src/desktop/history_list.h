// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desktop/history_pane.h"
#include "desktop/project_context.h"
#include "desktop/project_undo.h"
#include "files/file_system.h"
#include "history/entries.h"

namespace desktop {

// The history of the open project in its pane: read when that opens, and again when the file
// becomes another one.
class HistoryList {
 public:
  // All of it outlives this object.
  HistoryList(const ProjectContext& own, ProjectUndo& undo, HistoryPane& pane);
  // The pane closes.
  ~HistoryList();
  HistoryList(const HistoryList&) = delete;
  HistoryList& operator=(const HistoryList&) = delete;

  void Open();
  // Called now and then.
  void Look();

 private:
  void Read();
  void ShowSelected();
  std::string ChangeOf(std::uint64_t number);
  void Revert();

  const ProjectContext own_;
  ProjectUndo& undo_;
  HistoryPane& pane_;
  std::vector<history::Entry> entries_;   // that the pane shows
  std::optional<files::FileStamp> seen_;  // of the file when they were read
};

}  // namespace desktop
