// SPDX-License-Identifier: MIT
#include "desktop/main_window.h"

#include <wx/display.h>
#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/utils.h>

#include <algorithm>

#include "desktop/about.h"
#include "desktop/choice_menu.h"
#include "desktop/crash_log.h"
#include "desktop/notice_bar.h"
#include "desktop/welcome.h"
#include "editor/node_key.h"
#include "files/replace_file.h"
#include "platform/error.h"
#include "project/report_file.h"
#include "project/skipped_items.h"
#include "studio/item_chooser.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/menu_view.h"

namespace desktop {

namespace {

using studio::TextNumber;

constexpr int kTimerMs = 700;            // how often files changed by others are looked for
constexpr int kLeastPane = 120;          // pixels at 100 %
constexpr std::size_t kEditorMenus = 1;  // the editor's menus stand behind the first
constexpr int kTitleBar = 30;            // pixels that the window manager adds at the top
constexpr int kTitleMiddle = 10;
constexpr std::int32_t kFirstTopic = 90001;
constexpr std::int32_t kCodeTopic = 90040;
constexpr std::int32_t kItemsTopic = 90032;
constexpr std::int32_t kRefreshView = 162;

wxSize LeastSize() { return wxWindow::FromDIP(wxSize(640, 420), nullptr); }

// Where the window was, on a screen that is there and large enough for it; else in the middle.
wxRect PlaceOnScreen(const DesktopState::Place& place) {
  const wxPoint title(place.left + place.width / 2, place.top + kTitleMiddle);
  const int found = place.left < 0 ? wxNOT_FOUND : wxDisplay::GetFromPoint(title);
  const bool gone = found == wxNOT_FOUND;
  const wxRect screen = wxDisplay(gone ? 0u : static_cast<unsigned>(found)).GetClientArea();
  wxSize size(place.width, place.height);
  size.IncTo(LeastSize());
  size.DecTo(wxSize(screen.width, screen.height - kTitleBar));
  if (gone) return wxRect(size).CentreIn(screen);
  const wxPoint last(screen.GetRight() + 1 - size.x, screen.GetBottom() + 1 - kTitleBar - size.y);
  return {wxPoint(std::clamp(place.left, screen.x, std::max(screen.x, last.x)),
                  std::clamp(place.top, screen.y, std::max(screen.y, last.y))),
          size};
}

bool HasKeyboard(const wxWindow& window) {
  wxWindow* focus = wxWindow::FindFocus();
  return focus && (focus == &window || window.IsDescendant(focus));
}

}  // namespace

MainWindow::MainWindow(const Parts& parts) : MainWindow(parts, PlaceOnScreen(parts.state.window)) {}

MainWindow::MainWindow(const Parts& parts, const wxRect& place)
    : wxFrame(nullptr, wxID_ANY, wx::ToWx(parts.texts.Text(TextNumber::kTextProduct)),
              place.GetPosition(), place.GetSize()),
      parts_(parts),
      wanted_(place) {
  SetMinSize(LeastSize());
  SetIcons(ProgramIcons());
  CreateStatusBar();
  CreateMenus();
  CreatePanes();
  ShowRecent();
  Bind();
  if (parts.state.window.maximised) Maximize();
  InsistOnPlace();
  parts_.toolkit.SetMainWindow(this);
  parts_.toolkit.SetEditorHost(editor_host_);
}

MainWindow::~MainWindow() {
  parts_.toolkit.SetEditorHost(nullptr);
  parts_.toolkit.SetMainWindow(nullptr);
}

// Some window managers choose a place of their own for a new window. It can be moved once it is on
// the screen, and gets its size in steps: until it has settled, each step would share the new room
// between table and code.
void MainWindow::InsistOnPlace() {
  wxFrame::Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (placed_ || !event.GetActive()) return;
    placed_ = true;
    CallAfter([this] {
      if (!IsMaximized()) Move(wanted_.GetPosition());
    });
  });
  rows_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    if (!arranged_) CallAfter([this] { RestoreCodeHeight(); });
  });
}

void MainWindow::RestoreCodeHeight() {
  const int height = rows_->GetSashSize() + FromDIP(parts_.state.window.code_height);
  rows_->SetSashPosition(std::max(1, rows_->GetClientSize().GetHeight() - height));
}

// What the user did to the place. Window managers differ in whether borders count, so only
// differences do.
void MainWindow::KeepPlace() {
  DesktopState::Place& place = parts_.state.window;
  place.maximised = IsMaximized();
  place.tree_width = ToDIP(columns_->GetSashPosition());
  place.code_height = ToDIP(code_->GetSize().GetHeight());
  if (place.maximised || IsIconized() || settled_.IsEmpty()) return;
  const wxRect now = GetRect();
  place.left = wanted_.x + now.x - settled_.x;
  place.top = wanted_.y + now.y - settled_.y;
  place.width = wanted_.width + now.width - settled_.width;
  place.height = wanted_.height + now.height - settled_.height;
}

// The number of its text is the entry's ID. IDs that the toolkit knows would bring its English
// help.
void MainWindow::AddItem(wxMenu& menu, int text, const char* shortcut,
                         std::function<void()> action) {
  wxString label = wx::ToWx(Text(text));
  if (*shortcut) label += wxString("\t") + shortcut;
  wxMenuItem* item = menu.Append(text, label);
  const std::unique_ptr<wxAcceleratorEntry> keys(item->GetAccel());
  if (keys) shortcuts_.emplace_back(*keys, action);
  actions_[text] = std::move(action);
}

void MainWindow::CreateMenus() {
  auto* project = new wxMenu;
  AddItem(*project, TextNumber::kTextMenuNew, "Ctrl+N", [this] { AskNew(); });
  AddItem(*project, TextNumber::kTextMenuOpen, "Ctrl+Shift+O", [this] { AskOpen(); });
  recent_menu_ = new ChoiceMenu;
  recent_menu_->on_choice = [this](std::size_t i) {
    const std::string path = parts_.state.recent.Paths()[i];  // the list changes by opening it
    OpenProject(path);
  };
  project->AppendSubMenu(recent_menu_, wx::ToWx(Text(TextNumber::kTextMenuRecent)));
  project->AppendSeparator();
  AddItem(*project, TextNumber::kTextMenuSaveCode, "Ctrl+S", [this] { SaveCode(); });
  backup_menu_ = new ChoiceMenu;
  backup_menu_->on_choice = [this](std::size_t i) {
    const project::Backups::Backup backup = backups_[i];  // restoring makes another
    RestoreBackup(backup);
  };
  project->AppendSubMenu(backup_menu_, wx::ToWx(Text(TextNumber::kTextMenuBackups)));
  project->AppendSeparator();
  AddItem(*project, TextNumber::kTextMenuQuit, "Ctrl+Q", [this] { Close(); });

  auto* help = new wxMenu;
  AddItem(*help, TextNumber::kTextMenuContents, "",
          [this] { parts_.help.ShowTopic(0, kFirstTopic); });
  AddItem(*help, TextNumber::kTextMenuAbout, "", [this] { ShowAbout(); });

  auto* bar = new wxMenuBar;
  bar->Append(project, wx::ToWx(Text(TextNumber::kTextMenuProject)));
  bar->Append(help, wx::ToWx(Text(TextNumber::kTextMenuHelp)));
  SetMenuBar(bar);
  FillBackups("");
}

void MainWindow::CreatePanes() {
  constexpr long kStyle = wxSP_LIVE_UPDATE | wxSP_3DSASH;
  notice_ =
      new NoticeBar(this, wx::ToWx(Text(kRefreshView)), wx::ToWx(Text(TextNumber::kTextLater)));
  notice_->on_action = [this] { session_->add_in().RebuildViews(); };
  columns_ = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, kStyle);
  tree_ = new ProjectTree(columns_, wx::ToWx(Text(TextNumber::kTextTreeName)));
  rows_ = new wxSplitterWindow(columns_, wxID_ANY, wxDefaultPosition, wxDefaultSize, kStyle);
  auto* upper = new wxPanel(rows_);
  editor_host_ = new wxPanel(upper);
  welcome_ = new Welcome(upper, parts_.texts);
  welcome_->on_open = [this] { AskOpen(); };
  welcome_->on_new = [this] { AskNew(); };
  welcome_->on_recent = [this](const std::string& path) { OpenProject(path); };
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(editor_host_, wxSizerFlags(1).Expand());
  sizer->Add(welcome_, wxSizerFlags(1).Expand());
  upper->SetSizer(sizer);
  editor_host_->Hide();
  code_ = new CodePane(rows_, parts_.texts);
  columns_->SetMinimumPaneSize(FromDIP(kLeastPane));
  rows_->SetMinimumPaneSize(FromDIP(kLeastPane));
  rows_->SetSashGravity(0.55);
  rows_->SplitHorizontally(upper, code_, -FromDIP(parts_.state.window.code_height));
  columns_->SplitVertically(tree_, rows_, FromDIP(parts_.state.window.tree_width));
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(notice_, wxSizerFlags().Expand());
  all->Add(columns_, wxSizerFlags(1).Expand());
  SetSizer(all);
  code_->on_status = [this](const std::string& text) { ShowStatus(text); };
  code_->on_failure = [this](const std::string& message, const std::string& detail) {
    ShowFailure(message, detail);
  };
  code_->on_conflict = [this](const std::string& module) {
    return parts_.toolkit.Show(
               {parts_.texts.Text(TextNumber::kTextCodeConflict, {{"<Name>", module}}),
                Text(TextNumber::kTextCodeConflictDetail), "", platform::MessageButtons::kYesNo,
                platform::MessageResult::kNo, platform::MessageIcon::kWarning}) ==
           platform::MessageResult::kYes;
  };
  code_->on_unsaved = [this](const std::string& module) { return AskAboutCode(module); };
  ConnectTree();
}

void MainWindow::ConnectTree() {
  tree_->on_select_node = [this](const studio::StudioNode& node) { SelectNode(node); };
  tree_->on_change = [this](const studio::StudioNode& node) {
    if (node.key == tree_->SelectedKey()) ShowCodeOfNode(node.key);  // its class may be another
  };
  tree_->on_expand_node = [this](const studio::StudioNode& node) {
    session_->add_in().NodeExpand(session_->studio().project(), node.key, node.text);
  };
  tree_->on_activate_node = [this](const studio::StudioNode& node) {
    session_->add_in().NodeDblClick(session_->studio().project(), node.key, node.text);
  };
  tree_->on_key = [this](const studio::StudioNode& node, forms::KeyEvent& event) {
    std::int16_t code = event.key_code, shift = event.shift;
    const std::string key = node.key, text = node.text;  // the node may go
    session_->add_in().NodeKeyDown(session_->studio().project(), key, text, code, shift);
    event.handled = code == 0 || event.key_code == forms::kKeyF1;
  };
  tree_->on_menu = [this](const studio::StudioNode& node) {
    const std::string key = node.key, text = node.text;
    session_->add_in().NodeMouseUp(session_->studio().project(), key, text, forms::kRightButton, 0,
                                   0, 0);
  };
}

void MainWindow::ConnectStudio() {
  studio::Studio::Window& window = session_->studio().window;
  window.handle = [this] { return wx::HandleOf(this); };
  window.select_node = [this](std::string_view key) { tree_->SelectKey(std::string(key)); };
  window.activate_tree = [this] { tree_->SetFocus(); };
  window.show_error = [this](std::string_view text) { ShowFailure(std::string(text), ""); };
  window.choose_item = [this](std::string_view current) { return ChooseItem(current); };
  window.show_code_window = [this] { code_->Refresh(); };
  window.show_warnings = [this](const std::vector<std::string>& warnings) {
    std::string text;
    for (const std::string& warning : warnings) text += (text.empty() ? "" : "  ·  ") + warning;
    if (!text.empty()) ShowStatus(text);
  };
  window.editor_handed_over = [this] {
    editor::frmtabgrid* editor = session_->add_in().EditorWindow();
    if (!editor) return;
    if (wx::MenuBarView* menus = parts_.toolkit.MenusOf(*editor))
      menus->AppendTo(*GetMenuBar(), *this, kEditorMenus);
    parts_.toolkit.ShowModeless(*editor);
    ShowTitle();
    title_ = editor->Observe([this](forms::Property property) {
      if (property == forms::Property::kCaption) ShowTitle();
    });
    editor_host_->Show();
    welcome_->Hide();
    editor_host_->GetParent()->Layout();
    project_->foreign_changes().Accept();
    notice_->Dismiss();
  };
}

void MainWindow::Bind() {
  wxFrame::Bind(wxEVT_MENU, [this](wxCommandEvent& event) {
    const auto found = actions_.find(event.GetId());
    if (found == actions_.end()) return event.Skip();
    RememberStep("menu " + std::to_string(event.GetId()));
    const auto action = found->second;  // the menu may be filled anew
    action();
  });
  // Tree, editor and dialogs answer F1 themselves.
  wxFrame::Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_F1) {
      parts_.help.ShowTopic(0, HasKeyboard(*code_) ? kCodeTopic : kFirstTopic);
    } else if (!RunShortcut(event) && !MoveKeyboard(event)) {
      event.Skip();
    }
  });
  wxFrame::Bind(wxEVT_CLOSE_WINDOW, &MainWindow::OnClose, this);
  wxFrame::Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
  timer_.Start(kTimerMs);
}

// The native lists have uses of their own for some of the menu's keys.
bool MainWindow::RunShortcut(const wxKeyEvent& event) {
  for (const auto& [keys, action] : shortcuts_) {
    if (event.GetKeyCode() != keys.GetKeyCode() || event.GetModifiers() != keys.GetFlags())
      continue;
    action();
    return true;
  }
  return false;
}

// F6 goes round: tree, table, code. In the code Escape and Alt+F6 go back to the tree, too.
bool MainWindow::MoveKeyboard(const wxKeyEvent& event) {
  const bool round = event.GetKeyCode() == WXK_F6 && !event.HasAnyModifiers();
  const bool back = event.GetKeyCode() == WXK_ESCAPE ||
                    (event.GetKeyCode() == WXK_F6 && event.GetModifiers() == wxMOD_ALT);
  if (!session_ || !(round || back)) return false;
  if (HasKeyboard(*code_)) {
    tree_->SetFocus();
    return true;
  }
  if (!round) return false;
  if (HasKeyboard(*editor_host_)) {
    if (!code_->TakeKeyboard()) tree_->SetFocus();
    return true;
  }
  std::int16_t code = forms::kKeyF6, shift = forms::kAlt;
  session_->add_in().NodeKeyDown(session_->studio().project(), tree_->SelectedKey(), "", code,
                                 shift);
  return true;
}

void MainWindow::OnClose(wxCloseEvent& event) {
  parts_.state.node = tree_->SelectedKey();
  if (!event.CanVeto()) code_->LeaveUnsaved();
  if (!CloseProject() && event.CanVeto()) return event.Veto();
  KeepPlace();
  parts_.state.Save();
  timer_.Stop();
  Destroy();
}

void MainWindow::OnTimer() {
  arranged_ = placed_;
  if (arranged_ && settled_.IsEmpty() && !IsMaximized()) settled_ = GetRect();
  if (!session_ || project_->unit().IsOpen()) return;
  code_->Refresh();
  project_->items().Refresh();
  LookForForeignChanges();
  TellReplacedCharacters();
  if (editor::frmtabgrid* editor = session_->add_in().EditorWindow()) editor->TellUnreadable();
}

// What the tree shows may be out of date then. Everything that the user does works on what the
// database holds, so reading it anew can wait until they want it.
void MainWindow::LookForForeignChanges() {
  if (notice_->IsShown() || !project_->foreign_changes().Look()) return;
  project_->foreign_changes().Accept();
  notice_->Tell(wx::ToWx(parts_.texts.Text(TextNumber::kTextFileChanged,
                                           {{"<File>", parts_.files.FileName(project_->path())}})));
}

// Characters that an operation could not write in a comment.
void MainWindow::TellReplacedCharacters() {
  std::string places;
  for (const auto& replaced : project_->vb()->TakeReplacedCharacters()) {
    places +=
        (places.empty() ? "" : "\n") +
        parts_.texts.Text(TextNumber::kTextReplacedAt, {{"<File>", replaced.file},
                                                        {"<Line>", std::to_string(replaced.line)},
                                                        {"<Text>", replaced.characters}});
  }
  if (places.empty()) return;
  parts_.toolkit.Show({Text(TextNumber::kTextReplacedCharacters),
                       places + "\n" + Text(TextNumber::kTextNameCodePage), "",
                       platform::MessageButtons::kOk, platform::MessageResult::kOk,
                       platform::MessageIcon::kWarning});
}

// The project's file and what the editor's window shows of it. At the root the window keeps the
// caption that it had.
void MainWindow::ShowTitle() {
  const editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  const bool root = tree_->SelectedKey() == editor::kRootKey;
  const std::string shown = editor && !root ? editor->Caption() : Text(TextNumber::kTextProduct);
  SetTitle(wx::ToWx(editor ? parts_.files.FileName(project_->path()) + " – " + shown : shown));
}

void MainWindow::SelectNode(const studio::StudioNode& node) {
  const std::string key = node.key, text = node.text;
  RememberStep("node " + std::string(editor::KeyKind(key)));
  session_->studio().SetSelectedKey(key);
  session_->add_in().NodeClick(session_->studio().project(), key, text);
  ShowTitle();
  ShowCodeOfNode(key);
}

// The procedure of a formula is shown beside its arguments, without taking the keyboard.
void MainWindow::ShowCodeOfNode(const std::string& key) {
  try {
    FindCodeOfNode(key);
  } catch (const platform::Error& error) {  // a module whose file is gone, for one
    if (!code_->Modified()) code_->ShowProblem(error);
  }
}

void MainWindow::FindCodeOfNode(const std::string& key) {
  editor::frmtabgrid* editor = session_->add_in().EditorWindow();
  const std::int32_t id = editor::KeyNumber(key);
  if (!editor || !editor::IsFormulaKey(key) || id <= 0) return;
  const auto formula = editor->operations().FindFormula(id);
  const auto point = formula ? formula->prog_id.find('.') : std::string::npos;
  if (point == std::string::npos) return;
  const auto project = project_->vb()->FindProject(formula->prog_id.substr(0, point));
  const auto component =
      project ? project->FindComponent(formula->prog_id.substr(point + 1)) : nullptr;
  if (!component || !component->Module()) return;
  component->Module()->RequireSource();
  if (!code_->ShowModule(component, project_->unit()) || !code_->Readable()) return;
  const auto member = component->Module()->FindMember(formula->name);
  if (member && member->type == platform::MemberType::kMethod) {
    code_->ScrollTo(component->Module()->ProcStartLine(formula->name, platform::ProcKind::kProc));
  }
}

void MainWindow::SaveCode() {
  if (!code_->Modified()) return ShowStatus(Text(TextNumber::kTextNothingToSave));
  code_->Save();
}

void MainWindow::OnPane(const vbfiles::PaneEvent& event) {
  using Kind = vbfiles::PaneEvent::Kind;
  if (event.kind == Kind::kActivated) {
    const auto component = FindComponentOf(event.component.FileName());
    if (component) code_->ShowModule(component, project_->unit());
    return;
  }
  platform::CodePane& pane = event.component.Module()->Pane();
  code_->Refresh();
  if (event.kind == Kind::kScrolled) code_->ScrollTo(pane.TopLine());
  if (event.kind == Kind::kSelected) code_->SelectLines(pane.GetSelection());
}

void MainWindow::TellLastCrash() {
  const std::string log = NewestCrashLog(parts_.files, parts_.state.folder());
  if (log.empty() || log == parts_.state.told_crash_log) return;
  parts_.state.told_crash_log = log;
  parts_.state.Save();
  parts_.toolkit.Show({Text(TextNumber::kTextCrashedBefore),
                       parts_.texts.Text(TextNumber::kTextFaultDetail, {{"<File>", log}}), "",
                       platform::MessageButtons::kOk, platform::MessageResult::kOk,
                       platform::MessageIcon::kWarning});
}

void MainWindow::ShowStatus(const std::string& text) { SetStatusText(wx::ToWx(text)); }

void MainWindow::ShowFailure(const std::string& message, const std::string& detail) {
  parts_.toolkit.Show({message, detail, "", platform::MessageButtons::kOk,
                       platform::MessageResult::kOk, platform::MessageIcon::kError});
}

std::optional<std::string> MainWindow::ChooseItem(std::string_view current) {
  project::ItemFile& items = project_->items();
  items.Refresh();
  const auto skipped = project::SkippedItems(items.Catalogue(), items.path(), parts_.texts);
  if (!skipped.empty()) ShowStatus(skipped.front());
  studio::ItemChooser chooser(parts_.toolkit, parts_.texts, items.Catalogue(), items.path());
  chooser.on_help = [&] { parts_.help.ShowTopic(parts_.toolkit.Handle(chooser), kItemsTopic); };
  return chooser.Choose(current, nullptr);
}

void MainWindow::ShowReport(const std::string& html) {
  const std::string folder =
      parts_.state.folder().empty() ? parts_.files.Folder(project_->path()) : parts_.state.folder();
  const std::string path = parts_.files.Join(folder, "report.html");
  try {
    parts_.files.CreateDirectories(folder);
    const auto own = project::FilesOfProject(project_->path(), project_->vb().get());
    if (project::LookAtReportPlace(parts_.files, path, own) != project::ReportPlace::kFree) {
      files::Raise(files::ErrorKind::kExists, path, files::message::kCannotBeWritten,
                   files::message::kExistsAlready);
    }
    files::ReplaceFile(parts_.files, path, html);
    wxLaunchDefaultBrowser(wxFileSystem::FileNameToURL(wxFileName(wx::ToWx(path))));
    ShowStatus(parts_.texts.Text(TextNumber::kTextReportSaved, {{"<File>", path}}));
  } catch (const std::exception& error) {
    ShowFailure(Text(TextNumber::kTextReportTitle), parts_.texts.Sentence(error));
  }
}

void MainWindow::ShowAbout() { ShowAboutBox(this, parts_.texts); }

}  // namespace desktop
