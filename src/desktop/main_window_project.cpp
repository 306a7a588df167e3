// SPDX-License-Identifier: MIT
// The window's project: opened, created and closed.
#include <wx/filedlg.h>
#include <wx/utils.h>

#include "desktop/crash_log.h"
#include "desktop/main_window.h"
#include "project/new_project.h"
#include "project/state_files.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr const char* kExtension = ".ovs";
constexpr const char* kRoot = "FOR0";
constexpr const char* kFormulas = "FORF0";

}  // namespace

// Where the user works; "" leaves the choice to the system.
wxString MainWindow::ProjectFolder() const {
  return session_ ? wx::ToWx(parts_.files.Folder(project_->path())) : wxString();
}

void MainWindow::AskNew() {
  wxFileDialog dialog(this, wx::ToWx(Text(studio::kTextNewProject)), ProjectFolder(), "Plant.ovs",
                      wx::ToWx(Text(studio::kTextFileFilter)), wxFD_SAVE);
  if (dialog.ShowModal() != wxID_OK) return;
  std::string path = wx::FromWx(dialog.GetPath());
  if (!dialog.GetPath().Lower().EndsWith(kExtension)) path += kExtension;
  try {
    project::MakeProject(parts_.files, path, {});
    OpenProject(path);
  } catch (const std::exception& error) {
    messages_.Fail(parts_.texts.Text(studio::kTextCannotCreate, {{"<File>", path}}),
                   parts_.texts.Sentence(error));
  }
}

void MainWindow::AskOpen() {
  wxFileDialog dialog(this, wx::ToWx(Text(studio::kTextOpenProject)), ProjectFolder(), "",
                      wx::ToWx(Text(studio::kTextFileFilter)), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() == wxID_OK) OpenProject(wx::FromWx(dialog.GetPath()));
}

void MainWindow::AskCode() {
  wxFileDialog dialog(this, wx::ToWx(Text(studio::kTextChooseCode)), ProjectFolder(), "",
                      wx::ToWx(Text(studio::kTextCodeFileFilter)),
                      wxFD_OPEN | wxFD_FILE_MUST_EXIST | wxFD_MULTIPLE);
  if (dialog.ShowModal() != wxID_OK) return;
  const std::string path = project_->path();
  ReadingOptions options = parts_.state.OptionsOf(path);
  wxArrayString chosen;
  dialog.GetPaths(chosen);
  options.vb_files.clear();
  for (const wxString& file : chosen) options.vb_files.push_back(wx::FromWx(file));
  OpenProject(path, options);
}

void MainWindow::ShowLimits() {
  watch_->ShowLimits([this, path = project_->path()] { OpenProject(path); },
                     [this] {
                       if (session_) AskCode();
                     });
}

bool MainWindow::OpenProject(const std::string& path, const ReadingOptions& given) {
  RememberStep("open project");
  const std::string before = session_ ? project_->path() : std::string();
  const wxBusyCursor busy;
  if (!CloseProject()) return false;
  try {
    project::ProjectOptions options = parts_.options;
    const std::string full = parts_.files.Canonical(path);
    (given.Empty() ? parts_.state.OptionsOf(full) : given).ApplyTo(options);
    StartSession(full, options);
  } catch (const std::exception& error) {
    messages_.Fail(parts_.texts.Text(studio::kTextCannotOpen, {{"<File>", path}}),
                   parts_.texts.Sentence(error));
    ForgetMissing(path);
    backups_.List(path);
    if (!before.empty() && before != path) OpenProject(before);
    return false;
  }
  EquipSession();
  ConnectStudio();
  tree_.ShowTree(&session_->studio().tree(), facts_.get());
  session_->Start();
  tree_.SelectKey(kRoot);
  if (!session_->add_in().Initialised()) {
    const std::string full = project_->path();
    CloseProject();
    backups_.List(full);
    backups_.Offer(full);
    if (session_) return true;
    if (!before.empty() && before != path) OpenProject(before);
    return false;
  }
  tree_.ExpandKey(kRoot);
  tree_.ExpandKey(kFormulas);
  const bool same = parts_.state.project == project_->path();
  if (same && !parts_.state.node.empty()) tree_.SelectKey(parts_.state.node);
  if (!given.Empty()) parts_.state.KeepOptions(project_->path(), given);
  parts_.state.project = project_->path();
  parts_.state.recent.Add(project_->path());
  parts_.state.Save();
  ShowRecent();
  backups_.List(project_->path());
  messages_.Status(parts_.texts.Text(studio::kTextOpened, {{"<File>", project_->path()}}));
  panes_.TreeShown() ? tree_.SetFocus() : GoToNode(tree_.SelectedKey());
  CallAfter([this] {
    if (watch_) watch_->ShowProblems();
    if (watch_) ShowLimits();
    if (unsaved_) unsaved_->Offer();
  });
  return true;
}

void MainWindow::StartSession(const std::string& path, const project::ProjectOptions& given) {
  project::ProjectOptions options = given;
  options.vb.on_pane = [this](const vbfiles::PaneEvent& event) {
    if (lookup_) lookup_->OnPane(event);
  };
  options.open_database = false;
  auto opened = std::make_unique<project::Project>(parts_.files, path, options, parts_.texts);
  session_ = std::make_unique<studio::AddInSession>(
      *opened, studio::AddInSession::Dependencies{
                   parts_.toolkit, parts_.window_system, parts_.help, parts_.settings, parts_.texts,
                   [this](const std::string& html) { ShowReport(html); }});
  project_ = std::move(opened);
  facts_ = std::make_unique<FormulaFacts>(
      FormulaFacts::Dependencies{[this] {
                                   editor::frmtabgrid* editor = session_->add_in().EditorWindow();
                                   return editor ? &editor->operations() : nullptr;
                                 },
                                 [this] { return parts_.files.Stamp(project_->path()); }});
}

void MainWindow::EquipSession() {
  const ProjectContext context{parts_, messages_, *project_, *session_};
  lookup_ = std::make_unique<CodeLookup>(*project_, *session_, code_, parts_.texts);
  search_ = std::make_unique<CodeSearch>(
      CodeSearch::Dependencies{context, *lookup_, code_, panes_.search()});
  assistant_ =
      std::make_unique<CodeAssistant>(CodeAssistant::Dependencies{context, *lookup_, code_});
  watch_ = std::make_unique<ChangeWatch>(
      ChangeWatch::Dependencies{context, panes_.notices(), [this] { check_->Check(); }});
  undo_ = std::make_unique<ProjectUndo>(context);
  undo_->on_done = [this] { FollowChange(); };
  undo_menu_.Serve(undo_.get());
  undo_offer_.Serve(project_.get(), undo_.get());
  history_ = std::make_unique<HistoryList>(context, *undo_, panes_.history());
  check_ = std::make_unique<CheckList>(CheckList::Dependencies{context, *lookup_, panes_.check()});
  check_->on_checked = [this] { watch_->OnChecked(); };
  check_->on_repaired = [this] { FollowChange(); };
  flow_ = std::make_unique<FlowChart>(FlowChart::Dependencies{context, panes_.flow()});
  formulas_ = std::make_unique<FormulaCommands>(FormulaCommands::Dependencies{
      context, panes_.overview(), panes_.strip(), [this](const std::string& key) { GoToNode(key); },
      [this] {
        code_.Refresh();
        undo_menu_.Update();
      }});
  dropping_ = std::make_unique<RowDropping>(
      tree_, *session_, [this](const std::vector<std::int32_t>& ids, const std::string& prog_id) {
        formulas_->Move(ids, prog_id);
      });
  names_ = std::make_unique<NameSearch>(
      NameSearch::Dependencies{context, *this, [this](const std::string& key) { GoToNode(key); },
                               [this](const std::string& prog_id) {
                                 GoToNode(kFormulas);
                                 panes_.overview().ShowClass(prog_id);
                               }});
  backups_.Watch(*project_);
  if (parts_.state.folder().empty()) return;
  unsaved_ =
      std::make_unique<UnsavedCodeKeeper>(parts_, messages_, code_, *lookup_, project_->path());
}

void MainWindow::FollowChange() {
  code_.Refresh();
  ShowUpperPane(tree_.SelectedKey());
  lookup_->ShowNode(tree_.SelectedKey());
  ShowTitle();
  undo_menu_.Update();
  history_->Look();
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
  if (!code_.MayLeave()) return false;
  parts_.state.node = tree_.SelectedKey();
  code_.CloseModule();
  unsaved_.reset();
  session_->Stop();
  tree_.ShowTree(nullptr);
  title_ = {};
  panes_.notices().DismissAll();
  names_.reset();
  dropping_.reset();
  formulas_.reset();
  undo_menu_.Serve(nullptr);
  undo_offer_.Serve(nullptr, nullptr);
  flow_.reset();
  check_.reset();
  history_.reset();
  undo_.reset();
  assistant_.reset();
  search_.reset();
  lookup_.reset();
  facts_.reset();
  session_.reset();
  project_.reset();
  watch_.reset();
  panes_.ShowUpper(WindowPanes::Upper::kWelcome);
  ShowTitle();
  messages_.Status("");
  return true;
}

CodePane::Answer MainWindow::AskAboutCode(const std::string& module) {
  if (parts_.state.save_when_leaving) return CodePane::Answer::kSave;
  const auto answer = parts_.toolkit.Show(
      {parts_.texts.Text(studio::kTextSaveQuestion, {{"<Name>", module}}),
       Text(studio::kTextDiscardDetail), "", platform::MessageButtons::kYesNoCancel,
       platform::MessageResult::kYes, platform::MessageIcon::kQuestion, Text(studio::kTextSaveCode),
       Text(studio::kTextDiscardCode)});
  return answer == platform::MessageResult::kYes  ? CodePane::Answer::kSave
         : answer == platform::MessageResult::kNo ? CodePane::Answer::kDiscard
                                                  : CodePane::Answer::kStay;
}

void MainWindow::ShowRecent() {
  const std::vector<std::string>& paths = parts_.state.recent.Paths();
  menu_.ShowRecent(paths);
  panes_.welcome().ShowRecent(paths);
}

}  // namespace desktop
