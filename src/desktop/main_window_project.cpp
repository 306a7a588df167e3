// SPDX-License-Identifier: MIT
// The window's project: opened, created, closed, backed up and restored.
#include <wx/filedlg.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include <algorithm>

#include "desktop/choice_menu.h"
#include "desktop/crash_log.h"
#include "desktop/main_window.h"
#include "desktop/notice_bar.h"
#include "desktop/welcome.h"
#include "files/error.h"
#include "project/new_project.h"
#include "project/state_files.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

using studio::TextNumber;

constexpr const char* kExtension = ".ovs";
constexpr const char* kRoot = "FOR0";
constexpr const char* kFormulas = "FORF0";

}  // namespace

// Where the user works; "" leaves the choice to the system.
wxString MainWindow::ProjectFolder() const {
  return session_ ? wx::ToWx(parts_.files.Folder(project_->path())) : wxString();
}

void MainWindow::AskNew() {
  wxFileDialog dialog(this, wx::ToWx(Text(TextNumber::kTextNewProject)), ProjectFolder(),
                      "Plant.ovs", wx::ToWx(Text(TextNumber::kTextFileFilter)), wxFD_SAVE);
  if (dialog.ShowModal() != wxID_OK) return;
  std::string path = wx::FromWx(dialog.GetPath());
  if (!dialog.GetPath().Lower().EndsWith(kExtension)) path += kExtension;
  try {
    project::MakeProject(parts_.files, path, {});
    OpenProject(path);
  } catch (const std::exception& error) {
    ShowFailure(parts_.texts.Text(TextNumber::kTextCannotCreate, {{"<File>", path}}),
                parts_.texts.Sentence(error));
  }
}

void MainWindow::AskOpen() {
  wxFileDialog dialog(this, wx::ToWx(Text(TextNumber::kTextOpenProject)), ProjectFolder(), "",
                      wx::ToWx(Text(TextNumber::kTextFileFilter)),
                      wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() == wxID_OK) OpenProject(wx::FromWx(dialog.GetPath()));
}

bool MainWindow::OpenProject(const std::string& path, const ReadingOptions& given) {
  RememberStep("open project");
  const std::string before = session_ ? project_->path() : std::string();
  const wxBusyCursor busy;
  if (!CloseProject()) return false;
  try {
    project::ProjectOptions options = parts_.options;
    options.vb.on_pane = [this](const vbfiles::PaneEvent& event) { OnPane(event); };
    const std::string full = parts_.files.Canonical(path);
    (given.Empty() ? parts_.state.OptionsOf(full) : given).ApplyTo(options);
    options.open_database = false;
    project_ = std::make_unique<project::Project>(parts_.files, full, options, parts_.texts);
    session_ = std::make_unique<studio::AddInSession>(
        *project_, studio::AddInSession::Dependencies{
                       parts_.toolkit, parts_.window_system, parts_.help, parts_.settings,
                       parts_.texts, [this](const std::string& html) { ShowReport(html); }});
  } catch (const std::exception& error) {
    ShowFailure(parts_.texts.Text(TextNumber::kTextCannotOpen, {{"<File>", path}}),
                parts_.texts.Sentence(error));
    ForgetMissing(path);
    FillBackups(path);
    if (!before.empty() && before != path) OpenProject(before);
    return false;
  }
  ConnectStudio();
  EnlistBackup();
  KeepUnsavedCode();
  tree_->ShowTree(&session_->studio().tree());
  session_->Start();
  tree_->SelectKey(kRoot);
  if (!session_->add_in().Initialised()) {
    const std::string full = project_->path();
    CloseProject();
    FillBackups(full);
    OfferBackup(full);
    if (session_) return true;
    if (!before.empty() && before != path) OpenProject(before);
    return false;
  }
  tree_->ExpandKey(kRoot);
  tree_->ExpandKey(kFormulas);
  const bool same = parts_.state.project == project_->path();
  if (same && !parts_.state.node.empty()) tree_->SelectKey(parts_.state.node);
  if (!given.Empty()) parts_.state.KeepOptions(project_->path(), given);
  parts_.state.project = project_->path();
  parts_.state.recent.Add(project_->path());
  parts_.state.Save();
  ShowRecent();
  FillBackups(project_->path());
  ShowStatus(parts_.texts.Text(TextNumber::kTextOpened, {{"<File>", project_->path()}}));
  tree_->SetFocus();
  CallAfter([this] {
    TellProblems();
    OfferUnsavedCode();
  });
  return true;
}

// What of the Visual Basic projects cannot be read.
void MainWindow::TellProblems() {
  if (!session_) return;
  std::string problems;
  for (const messages::Message& problem : project_->vb()->Problems())
    problems += (problems.empty() ? "" : "\n") + parts_.texts.Sentence(problem);
  if (problems.empty()) return;
  parts_.toolkit.Show(
      {parts_.texts.Text(TextNumber::kTextIncomplete, {{"<File>", project_->path()}}), problems, "",
       platform::MessageButtons::kOk, platform::MessageResult::kOk,
       platform::MessageIcon::kWarning});
}

// A project that is gone is neither offered nor opened at the next start.
void MainWindow::ForgetMissing(const std::string& path) {
  if (parts_.files.Exists(path)) return;
  parts_.state.recent.Remove(path);
  if (parts_.state.project == path) parts_.state.project.clear();
  parts_.state.Save();
  ShowRecent();
}

bool MainWindow::CloseProject() {
  if (!session_) return true;
  RememberStep("close project");
  if (!code_->MayLeave()) return false;
  parts_.state.node = tree_->SelectedKey();
  code_->CloseModule();
  code_->KeepCopiesIn(nullptr);
  unsaved_.reset();
  session_->Stop();
  tree_->ShowTree(nullptr);
  title_ = {};
  notice_->Dismiss();
  session_.reset();
  project_.reset();
  editor_host_->Hide();
  welcome_->Show();
  editor_host_->GetParent()->Layout();
  ShowTitle();
  ShowStatus("");
  return true;
}

void MainWindow::KeepUnsavedCode() {
  if (parts_.state.folder().empty()) return;
  unsaved_ = std::make_unique<studio::UnsavedCopies>(parts_.files,
                                                     StateFolderOf("unsaved", project_->path()));
  code_->KeepCopiesIn(unsaved_.get());
}

CodePane::Answer MainWindow::AskAboutCode(const std::string& module) {
  const auto answer = parts_.toolkit.Show(
      {parts_.texts.Text(TextNumber::kTextSaveQuestion, {{"<Name>", module}}),
       Text(TextNumber::kTextDiscardDetail), "", platform::MessageButtons::kYesNoCancel,
       platform::MessageResult::kYes, platform::MessageIcon::kQuestion,
       Text(TextNumber::kTextSaveCode), Text(TextNumber::kTextDiscardCode)});
  return answer == platform::MessageResult::kYes  ? CodePane::Answer::kSave
         : answer == platform::MessageResult::kNo ? CodePane::Answer::kDiscard
                                                  : CodePane::Answer::kStay;
}

// A copy that the user neither wants back nor gives up stays for the next time.
void MainWindow::OfferUnsavedCode() try {
  const auto left = unsaved_ ? unsaved_->FindLeft() : std::nullopt;
  if (!left) return;
  const auto answer = parts_.toolkit.Show(
      {parts_.texts.Text(TextNumber::kTextUnsavedLeft,
                         {{"<Name>", parts_.files.FileName(left->module)}}),
       Text(TextNumber::kTextUnsavedLeftDetail), "", platform::MessageButtons::kYesNoCancel,
       platform::MessageResult::kYes, platform::MessageIcon::kQuestion,
       Text(TextNumber::kTextBringBack), Text(TextNumber::kTextDiscardCode)});
  if (answer == platform::MessageResult::kCancel) return;
  if (answer == platform::MessageResult::kNo) return unsaved_->RemoveLeft();
  const auto component = FindComponentOf(left->module);
  if (component && code_->ShowModule(component, project_->unit())) {
    if (code_->BringBack(*left)) unsaved_->RemoveLeft();
    return;
  }
  CodePane::ToClipboard(left->text);
  ShowFailure(parts_.texts.Text(TextNumber::kTextModuleGone, {{"<File>", left->module}}), "");
} catch (const files::Error& error) {
  ShowStatus(parts_.texts.Text(TextNumber::kTextNoUnsavedCopy,
                               {{"<Text>", parts_.texts.Sentence(error)}}));
}

std::shared_ptr<platform::VBComponent> MainWindow::FindComponentOf(const std::string& file) {
  for (const auto& project : project_->vb()->VBProjects()) {
    for (const auto& component : project->VBComponents()) {
      if (component->FileName() == file) return component;
    }
  }
  return nullptr;
}

// What is kept of one project in the user's state.
std::string MainWindow::StateFolderOf(const char* kind, const std::string& path) {
  return project::ProjectStateFolder(parts_.files, parts_.state.folder(), kind, path);
}

// Before the first change of a day the project's files are copied.
void MainWindow::EnlistBackup() {
  if (parts_.state.folder().empty()) return;
  backup_ = std::make_unique<project::DailyBackup>(
      parts_.files, StateFolderOf("backups", project_->path()),
      project::DailyBackup::Dependencies{
          [] { return wx::FromWx(wxDateTime::Now().FormatISODate()); },
          [this] { return project_->ChangeableFiles(); },
          [this] { CallAfter([this] { FillBackups(backed_up_); }); },
          [this](const std::exception& reason) {
            ShowStatus(parts_.texts.Text(TextNumber::kTextBackupFailed,
                                         {{"<Text>", parts_.texts.Sentence(reason)}}));
          }});
  project_->unit().Enlist(*backup_);
}

void MainWindow::ShowRecent() {
  const std::vector<std::string>& paths = parts_.state.recent.Paths();
  recent_menu_->Fill(paths, Text(TextNumber::kTextNoRecent));
  welcome_->ShowRecent(paths);
}

void MainWindow::FillBackups(const std::string& path) {
  backups_.clear();
  backed_up_ = path;
  if (!path.empty() && !parts_.state.folder().empty()) {
    try {
      backups_ = project::Backups(parts_.files, StateFolderOf("backups", path)).List();
    } catch (const files::Error& error) {
      ShowStatus(parts_.texts.Sentence(error));
    }
  }
  std::vector<std::string> names;
  for (const auto& backup : backups_) names.push_back(backup.name);
  backup_menu_->Fill(names, Text(TextNumber::kTextNoBackups));
}

// For a project that cannot be shown: the last state from which a day's work began.
void MainWindow::OfferBackup(const std::string& path) {
  const auto daily = std::ranges::find_if(backups_, &project::Backups::Backup::IsDaily);
  if (restoring_ || backed_up_ != path || daily == backups_.end()) return;
  const project::Backups::Backup backup = *daily;
  RestoreBackup(backup);
}

void MainWindow::RestoreBackup(const project::Backups::Backup& backup) {
  const auto answer = parts_.toolkit.Show(
      {parts_.texts.Text(TextNumber::kTextRestoreQuestion, {{"<Date>", backup.name}}),
       Text(TextNumber::kTextRestoreDetail), "", platform::MessageButtons::kYesNo,
       platform::MessageResult::kNo, platform::MessageIcon::kQuestion});
  if (answer != platform::MessageResult::kYes) return;
  const std::string path = backed_up_;
  const wxBusyCursor busy;
  if (!CloseProject()) return;
  restoring_ = true;
  bool restored = false;
  try {
    project::Backups(parts_.files, StateFolderOf("backups", path))
        .Restore(backup, wx::FromWx(wxDateTime::Now().Format("%Y-%m-%d %H.%M.%S")));
    restored = true;
  } catch (const std::exception& error) {
    ShowFailure(Text(TextNumber::kTextCannotRestore), parts_.texts.Sentence(error));
  }
  if (OpenProject(path) && restored)
    ShowStatus(parts_.texts.Text(TextNumber::kTextRestored, {{"<Date>", backup.name}}));
  restoring_ = false;
}

}  // namespace desktop
