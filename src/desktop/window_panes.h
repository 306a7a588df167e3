// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>

#include <vector>

#include "desktop/check_pane.h"
#include "desktop/code_pane.h"
#include "desktop/desktop_state.h"
#include "desktop/flow_pane.h"
#include "desktop/formula_overview.h"
#include "desktop/formula_strip.h"
#include "desktop/history_pane.h"
#include "desktop/message_pane.h"
#include "desktop/notice_bar.h"
#include "desktop/search_pane.h"
#include "desktop/tree_pane.h"
#include "desktop/welcome.h"

class wxSplitterWindow;

namespace desktop {

// What fills the main window: the tree at the left, at the right the editor (the overview for all
// formulas, the welcome while no project is open) over the code, below all of it one of the lower
// panes, and notices.
class WindowPanes {
 public:
  // The frame owns the panes; it and the rest outlive this object.
  WindowPanes(wxFrame& frame, const texts::TextTable& texts, DesktopState::Place& place);

  NoticeBar& notices() const { return *notices_; }
  ProjectTree& tree() const { return tree_->tree(); }
  TreePane& tree_pane() const { return *tree_; }
  wxPanel& editor_host() const { return *editor_host_; }
  Welcome& welcome() const { return *welcome_; }
  FormulaOverview& overview() const { return *overview_; }
  FormulaStrip& strip() const { return *strip_; }
  CodePane& code() const { return *code_; }
  SearchPane& search() const { return *search_; }
  HistoryPane& history() const { return *history_; }
  CheckPane& check() const { return *check_; }
  FlowPane& flow() const { return *flow_; }
  MessagePane& messages() const { return *messages_; }

  // With the welcome there is neither tree nor code.
  enum class Upper { kWelcome, kEditor, kOverview };
  void ShowUpper(Upper upper);
  // Above the editor.
  void ShowStrip(bool shown);
  // Closes the pane below tree, table and code; false when there is none.
  bool CloseLower();
  bool TreeShown() const;
  bool CodeShown() const;
  bool CodeBeside() const { return place_.code_beside; }
  // While a project is shown. Each comes back as large as it was.
  bool ProjectShown() const { return project_shown_; }
  void ShowTree(bool shown);
  void ShowCode(bool shown);
  void SetTreeLook(const TreeLook& look);
  // Beside the table where it was below it, and back. The code is shown then.
  void PutCodeBeside(bool beside);

  // As long as the window changes its size by itself, each step would share the new room between
  // table and code.
  void RestoreCodeSize();
  // Writes down how the panes share the window.
  void Keep();

 private:
  wxFrame& frame_;
  DesktopState::Place& place_;
  // Lays the window out anew: what stands above stays where it is, the code gives the room.
  void Arrange();
  void ShowProject(bool shown);
  void SplitTree();
  void SplitCode();
  void KeepTreeWidth();
  void KeepCodeSize();
  // One of the lower panes is shown; closing it gives its room back.
  void Connect(LowerPane& pane);

  // Height of the table before a pane was opened below, and what was left of it: it comes back with
  // the pane's end unless its user has chosen another one.
  int table_alone_ = 0;
  int table_beside_pane_ = 0;
  bool project_shown_ = false;
  NoticeBar* notices_;
  wxSplitterWindow* whole_;
  wxSplitterWindow* columns_;
  TreePane* tree_;
  wxSplitterWindow* rows_;
  wxPanel* upper_;
  FormulaStrip* strip_;
  wxPanel* editor_host_;
  Welcome* welcome_;
  FormulaOverview* overview_;
  CodePane* code_;
  wxPanel* lower_;
  SearchPane* search_;
  HistoryPane* history_;
  CheckPane* check_;
  FlowPane* flow_;
  MessagePane* messages_;
};

}  // namespace desktop
