// SPDX-License-Identifier: MIT
#pragma once

#include <wx/frame.h>
#include <wx/timer.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "desktop/backup_keeper.h"
#include "desktop/change_watch.h"
#include "desktop/check_list.h"
#include "desktop/code_assistant.h"
#include "desktop/code_lookup.h"
#include "desktop/code_search.h"
#include "desktop/flow_chart.h"
#include "desktop/formula_commands.h"
#include "desktop/formula_facts.h"
#include "desktop/history_list.h"
#include "desktop/list_exchange.h"
#include "desktop/main_menu.h"
#include "desktop/name_search.h"
#include "desktop/project_undo.h"
#include "desktop/row_dropping.h"
#include "desktop/several_at_once.h"
#include "desktop/status_row.h"
#include "desktop/undo_menu.h"
#include "desktop/undo_offer.h"
#include "desktop/unsaved_code_keeper.h"
#include "desktop/view_menu.h"
#include "desktop/window_messages.h"
#include "desktop/window_panes.h"
#include "desktop/window_parts.h"
#include "desktop/window_place.h"
#include "desktop/workbench_tools.h"
#include "messages/text_number.h"
#include "project/project.h"
#include "studio/add_in_session.h"
#include "studio/unsaved_code.h"

namespace desktop {

// The window that stands in for the studio: project tree, editor and code. It opens and closes
// projects and passes events on; what it is made of has classes of its own.
class MainWindow : public wxFrame {
 public:
  using Parts = WindowParts;

  explicit MainWindow(const Parts& parts);
  ~MainWindow() override;

  // Opens a project in place of the one that is open; what cannot be opened is told. True when it
  // is open afterwards. Options that were given are kept for the project.
  bool OpenProject(const std::string& path, const ReadingOptions& given = {});
  // Runs the task when the window stands on the screen, so that a question stands over it.
  void CallWhenShown(std::function<void()> task) { when_shown_ = std::move(task); }
  // Tells of the log that the last start left behind, once.
  void ShowLastCrash();
  // The editor's window takes this panel.
  wxWindow* EditorHost() const { return &panes_.editor_host(); }

 private:
  MainWindow(const Parts& parts, const wxRect& place);
  MainMenu::Commands MenuCommands();
  BackupKeeper::Dependencies BackupDependencies();
  void ConnectPanes();
  void AskOptions();
  void ShowFonts();
  void AddTools();
  void ConnectTree();
  void ConnectStudio();
  void Bind();

  wxString ProjectFolder() const;
  void AskNew();
  void AskOpen();
  // Opens the project again with Visual Basic files that the user chooses.
  void AskCode();
  void ShowRecent();
  void ForgetMissing(const std::string& path);
  void ShowLimits();
  void StartSession(const std::string& path, const project::ProjectOptions& options);
  // Gives a new session what goes with it in this window.
  void EquipSession();
  // Shows what is otherwise now, by no operation of the editor.
  void FollowChange();
  bool CloseProject();
  CodePane::Answer AskAboutCode(const std::string& module);
  void OnClose(wxCloseEvent& event);
  void OnTimer();
  void LookAtStatus();
  void OnShown();

  void ShowTitle();
  std::string NameOfNode(const std::string& key) const;
  bool MoveKeyboard(const wxKeyEvent& event);
  bool CloseLowerPane(const wxKeyEvent& event);
  bool RunViewKey(const wxKeyEvent& event);
  // The tree has the keyboard, in sight again if it was not.
  void TakeTree();
  void SelectNode(const studio::StudioNode& node);
  // The overview for the folder of the formulas, the editor for every other node.
  void ShowUpperPane(const std::string& key);
  // Selects a node and puts the keyboard into what is shown of it.
  void GoToNode(const std::string& key);
  void TakeUpperPane();
  // Reads tree and tables again.
  void RefreshViews();
  void MakeFormula();
  void AddSeveral();
  void ShowKeys();
  void CopyNodeName();
  void SaveCode();
  // Runs a way of lists for the project that is open.
  void Exchange(void (ListExchange::*way)(editor::frmtabgrid&, project::Project&));
  void ShowUses();
  std::optional<std::string> ChooseItem(std::string_view current);
  void ShowWarnings(const std::vector<platform::Notice>& warnings);
  bool RunViewKeyOfTree(const forms::KeyEvent& event);
  bool RunTreeKey(const std::string& key, const forms::KeyEvent& event);
  void ShowReport(const std::string& html);
  bool ShowInBrowser(const std::string& path);
  void OfferReport(const std::string& path, const std::string& html);
  void WriteReport(const std::string& path, const std::string& html);
  std::string Text(messages::TextNumber number) const { return parts_.Text(number); }

  const Parts parts_;
  StatusRow status_{*this, parts_.texts};
  MessageLog log_;
  const WindowMessages messages_{*this, parts_, log_};
  MainMenu menu_;
  UndoMenu undo_menu_{*this, parts_.texts, messages_};
  UndoOffer undo_offer_{*this, parts_.texts, messages_};
  WorkbenchTools tools_;
  WindowPanes panes_;
  ProjectTree& tree_ = panes_.tree();
  CodePane& code_ = panes_.code();
  ViewMenu view_menu_{*this, parts_.texts, panes_};
  WindowPlace place_;
  ListExchange lists_{*this, parts_, messages_};
  SeveralAtOnce several_{parts_, messages_};
  BackupKeeper backups_;
  wxTimer timer_{this};
  std::function<void()> when_shown_;
  forms::Subscription title_;
  // Of the project that is open.
  std::unique_ptr<project::Project> project_;
  std::unique_ptr<studio::AddInSession> session_;
  std::unique_ptr<FormulaFacts> facts_;
  std::unique_ptr<CodeLookup> lookup_;
  std::unique_ptr<CodeSearch> search_;
  std::unique_ptr<CodeAssistant> assistant_;
  std::unique_ptr<UnsavedCodeKeeper> unsaved_;  // null when the user has no state folder
  std::unique_ptr<ChangeWatch> watch_;
  std::unique_ptr<ProjectUndo> undo_;
  std::unique_ptr<HistoryList> history_;
  std::unique_ptr<CheckList> check_;
  std::unique_ptr<FlowChart> flow_;
  std::unique_ptr<FormulaCommands> formulas_;
  std::unique_ptr<RowDropping> dropping_;
  std::unique_ptr<NameSearch> names_;
};

}  // namespace desktop
