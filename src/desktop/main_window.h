// SPDX-License-Identifier: MIT
#pragma once

#include <wx/accel.h>
#include <wx/frame.h>
#include <wx/timer.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/code_pane.h"
#include "desktop/desktop_state.h"
#include "desktop/desktop_toolkit.h"
#include "desktop/project_tree.h"
#include "project/backups.h"
#include "project/daily_backup.h"
#include "project/project.h"
#include "studio/add_in_session.h"
#include "studio/unsaved_code.h"

class wxSplitterWindow;

namespace desktop {

class ChoiceMenu;
class NoticeBar;
class Welcome;

// The window that stands in for the studio: project tree, editor and code.
class MainWindow : public wxFrame {
 public:
  struct Parts {
    files::FileSystem& files;
    DesktopToolkit& toolkit;
    platform::WindowSystem& window_system;
    platform::Help& help;
    project::FileSettingsService& settings;
    const texts::TextTable& texts;
    DesktopState& state;
    project::ProjectOptions options;
  };

  explicit MainWindow(const Parts& parts);
  ~MainWindow() override;

  // Opens a project in place of the one that is open; what cannot be opened is told. True when it
  // is open afterwards. Options that were given are kept for the project.
  bool OpenProject(const std::string& path, const ReadingOptions& given = {});
  // Tells of the log that the last start left behind, once.
  void TellLastCrash();
  // The editor's window takes this panel.
  wxWindow* EditorHost() const { return editor_host_; }

 private:
  MainWindow(const Parts& parts, const wxRect& place);
  void InsistOnPlace();
  void RestoreCodeHeight();
  void KeepPlace();
  void CreateMenus();
  void CreatePanes();
  void ConnectTree();
  void ConnectStudio();
  void Bind();
  void AddItem(wxMenu& menu, int text, const char* shortcut, std::function<void()> action);

  wxString ProjectFolder() const;
  void AskNew();
  void AskOpen();
  void ShowRecent();
  // Those of the project that is open or could not be opened.
  void FillBackups(const std::string& path);
  void OfferBackup(const std::string& path);
  void RestoreBackup(const project::Backups::Backup& backup);
  void ShowAbout();
  void ForgetMissing(const std::string& path);
  bool CloseProject();
  CodePane::Answer AskAboutCode(const std::string& module);
  void KeepUnsavedCode();
  void OfferUnsavedCode();
  std::shared_ptr<platform::VBComponent> FindComponentOf(const std::string& file);
  std::string StateFolderOf(const char* kind, const std::string& path);
  void TellProblems();
  void TellReplacedCharacters();
  void OnClose(wxCloseEvent& event);
  void OnTimer();
  void LookForForeignChanges();

  void ShowTitle();
  bool RunShortcut(const wxKeyEvent& event);
  bool MoveKeyboard(const wxKeyEvent& event);
  void SelectNode(const studio::StudioNode& node);
  void ShowCodeOfNode(const std::string& key);
  void FindCodeOfNode(const std::string& key);
  void SaveCode();
  void OnPane(const vbfiles::PaneEvent& event);
  void ShowStatus(const std::string& text);
  void ShowFailure(const std::string& message, const std::string& detail);
  std::optional<std::string> ChooseItem(std::string_view current);
  void ShowReport(const std::string& html);
  void EnlistBackup();
  std::string Text(int number) const { return parts_.texts.Text(number); }

  Parts parts_;
  NoticeBar* notice_ = nullptr;  // that another program changed the database
  wxSplitterWindow* columns_ = nullptr;
  wxSplitterWindow* rows_ = nullptr;
  ProjectTree* tree_ = nullptr;
  wxPanel* editor_host_ = nullptr;
  Welcome* welcome_ = nullptr;
  CodePane* code_ = nullptr;
  ChoiceMenu* recent_menu_ = nullptr;
  ChoiceMenu* backup_menu_ = nullptr;
  std::map<int, std::function<void()>> actions_;  // by menu ID
  std::vector<std::pair<wxAcceleratorEntry, std::function<void()>>> shortcuts_;
  std::vector<project::Backups::Backup> backups_;  // in the order of their menu
  std::string backed_up_;                          // the project that they are of
  bool restoring_ = false;
  const wxRect wanted_;  // where the window was to be
  wxRect settled_;       // where that is in the window manager's eyes; empty as long as unknown
  bool placed_ = false, arranged_ = false;
  wxTimer timer_{this};
  std::unique_ptr<project::DailyBackup> backup_;    // of the session's project; outlives it
  std::unique_ptr<studio::UnsavedCopies> unsaved_;  // of the session's project
  forms::Subscription title_;
  std::unique_ptr<project::Project> project_;
  std::unique_ptr<studio::AddInSession> session_;
};

}  // namespace desktop
