// SPDX-License-Identifier: MIT
#include "desktop/main_window.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/log.h>
#include <wx/utils.h>

#include "desktop/about.h"
#include "desktop/code_conflict.h"
#include "desktop/code_editor.h"
#include "desktop/crash_log.h"
#include "desktop/flow_texts.h"
#include "desktop/frame_texts.h"
#include "desktop/key_list.h"
#include "desktop/pane_texts.h"
#include "desktop/search_texts.h"
#include "desktop/workbench_options.h"
#include "dialogs/list_texts.h"
#include "dialogs/title_texts.h"
#include "editor/fconfig_editor.h"
#include "editor/node_key.h"
#include "editor/tools.h"
#include "files/replace_file.h"
#include "platform/error.h"
#include "project/report_file.h"
#include "project/skipped_items.h"
#include "studio/item_chooser.h"
#include "studio/undo_texts.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/menu_view.h"
#include "wx/native.h"
#include "wx/pictures.h"
#include "wx/table_font.h"

namespace desktop {

namespace {

constexpr int kTimerMs = 700;            // how often files changed by others are looked for
constexpr std::size_t kEditorMenus = 3;  // the editor's menus stand behind the first three
constexpr std::int32_t kFirstTopic = 90001;
constexpr std::int32_t kCodeTopic = 90040;
constexpr std::int32_t kItemsTopic = 90032;

bool HasKeyboard(const wxWindow& window) {
  wxWindow* focus = wxWindow::FindFocus();
  return focus && (focus == &window || window.IsDescendant(focus));
}

// The keys of the workbench's other tables stand for those that the add-in knows.
forms::KeyEvent AsAddInKnows(forms::KeyEvent event) {
  if (event.shift != 0) return event;
  if (event.key_code == forms::kKeyF2) event.key_code = forms::kKeyF9;
  if (event.key_code == forms::kKeyDelete) event.shift = forms::kControl;
  return event;
}

}  // namespace

MainWindow::MainWindow(const Parts& parts)
    : MainWindow(parts, WindowPlace::OnScreen(parts.state.window)) {}

MainWindow::MainWindow(const Parts& parts, const wxRect& place)
    : wxFrame(nullptr, wxID_ANY, wx::ToWx(parts.texts.Text(studio::kTextProduct)),
              place.GetPosition(), place.GetSize()),
      parts_(parts),
      menu_(*this, parts.texts, MenuCommands()),
      panes_(*this, parts.texts, parts.state.window),
      place_(*this, parts.state.window, place),
      backups_(BackupDependencies()) {
  SetMinSize(LeastSize());
  SetIcons(wx::ProgramIcons());
  ConnectPanes();
  ShowFonts();
  AddTools();
  ConnectTree();
  ShowRecent();
  Bind();
  if (parts.state.window.maximised) Maximize();
  parts_.toolkit.SetMainWindow(this);
  parts_.toolkit.SetEditorHost(&panes_.editor_host());
}

MainWindow::~MainWindow() {
  parts_.toolkit.SetEditorHost(nullptr);
  parts_.toolkit.SetMainWindow(nullptr);
}

MainMenu::Commands MainWindow::MenuCommands() {
  MainMenu::Commands commands;
  commands.create = [this] { AskNew(); };
  commands.open = [this] { AskOpen(); };
  commands.save_code = [this] { SaveCode(); };
  commands.import_list = [this] { Exchange(&ListExchange::Import); };
  commands.export_project = [this] { Exchange(&ListExchange::Export); };
  commands.quit = [this] { Close(); };
  commands.go_to_name = [this] {
    if (names_) names_->Open();
  };
  commands.find_in_all_code = [this] {
    if (search_) search_->OpenFind();
  };
  commands.show_uses = [this] { ShowUses(); };
  commands.go_to_definition = [this] {
    if (search_) search_->GoToDefinition();
  };
  commands.contents = [this] { parts_.help.ShowTopic(0, kFirstTopic); };
  commands.keyboard = [this] { ShowKeys(); };
  commands.about = [this] { ShowAboutBox(this, parts_.texts); };
  commands.open_recent = [this](std::size_t place) {
    const std::string path = parts_.state.recent.Paths()[place];  // the list changes by opening it
    OpenProject(path);
  };
  commands.restore_backup = [this](std::size_t place) { backups_.Restore(place); };
  return commands;
}

BackupKeeper::Dependencies MainWindow::BackupDependencies() {
  return {parts_,
          messages_,
          [this](const std::vector<std::string>& names) { menu_.ShowBackups(names); },
          [this](const std::function<void()>& task) { CallAfter(task); },
          [this] { return CloseProject(); },
          [this](const std::string& path) { return OpenProject(path); }};
}

void MainWindow::ConnectPanes() {
  panes_.welcome().on_open = [this] { AskOpen(); };
  panes_.welcome().on_new = [this] { AskNew(); };
  panes_.welcome().on_recent = [this](const std::string& path) { OpenProject(path); };
  panes_.messages().Serve(log_);
  view_menu_.on_options = [this] { AskOptions(); };
  status_.on_open = [this] { panes_.messages().ShowNewest(); };
  code_.on_status = [this](const std::string& text) { messages_.Status(text); };
  code_.on_failure = [this](const std::string& message, const std::string& detail) {
    messages_.Fail(message, detail);
  };
  code_.on_place = [this] { panes_.ShowCode(true); };
  code_.on_conflict = [this](const CodePane::Versions& versions) {
    return CodeConflict(*this, parts_, messages_).Ask(versions, wx::FromWx(ProjectFolder()));
  };
  code_.on_unsaved = [this](const std::string& module) { return AskAboutCode(module); };
  code_.GetParent()->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    if (!place_.Arranged()) CallAfter([this] { panes_.RestoreCodeSize(); });
  });
}

void MainWindow::AskOptions() {
  const auto answer = WorkbenchOptions(this, parts_.texts, parts_.settings, parts_.state).Ask();
  if (!answer) return;
  editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  // The program's font is in sight where a project had chosen another one.
  if (answer->table_font && editor && editor->GetFont() != forms::Font())
    editor::UseFont(*editor, forms::Font());
  if (answer->table_font || answer->code_font) ShowFonts();
  if (answer->next_start) messages_.Status(Text(kTextChangedAtNextStart));
}

void MainWindow::ShowFonts() {
  wx::SetTableFont(wx::KeptFont(parts_.state.table_font));
  code_.editor().ShowFont(wx::KeptFont(parts_.state.code_font));
}

void MainWindow::AddTools() {
  tools_.Add(editor::kOptionBand, "mnuOptionSep1",
             {{"check", Text(kTextMenuCheck), "", [this] { check_->Check(); }},
              {"history", Text(kTextMenuHistory), "", [this] { history_->Open(); }},
              {"flow", Text(kTextMenuFlow), "", [this] { flow_->Open(); }}});
  const auto show_uses = [this](CodeSearch::Subject subject) {
    return [this, subject] { search_->ShowUses(subject); };
  };
  tools_.Add(
      editor::kFunctionBand, "mnuShowEditorSep",
      {{"usesOfNode", Text(kTextMenuUses), "Shift+F12", show_uses(CodeSearch::Subject::kNode)},
       {"nameOfNode", Text(kTextCopyNodeName), "", [this] { CopyNodeName(); }}});
  tools_.Add(editor::kShowEditorBand, editor::kShowEditorTool,
             {{"newFormula", Text(kTextNodeNewFormula), "", [this] { MakeFormula(); }},
              {"newAlias", Text(kTextNodeNewAlias), "",
               [this] { session_->add_in().EditorWindow()->RunTool("mnuAliasNew"); }}});
  for (const char* band : {editor::kParameterBand, editor::kAliasBand}) {
    tools_.Add(
        band, "",
        {{"usesOfRow", Text(kTextMenuUses), "Shift+F12", show_uses(CodeSearch::Subject::kRow)},
         {std::string("several") + band, Text(dialogs::kTextMenuSeveral), "Shift+F8",
          [this] { AddSeveral(); }}});
  }
}

void MainWindow::ConnectTree() {
  tree_.on_select_node = [this](const studio::StudioNode& node) { SelectNode(node); };
  tree_.on_change = [this](const studio::StudioNode& node) {
    if (node.key != tree_.SelectedKey()) return;
    lookup_->ShowNode(node.key);  // its class may be another
    ShowUpperPane(node.key);
  };
  tree_.on_expand_node = [this](const studio::StudioNode& node) {
    session_->add_in().NodeExpand(session_->studio().project(), node.key, node.text);
  };
  tree_.on_activate_node = [this](const studio::StudioNode&) { TakeUpperPane(); };
  tree_.on_key = [this](const studio::StudioNode& node, forms::KeyEvent& event) {
    event.handled = RunViewKeyOfTree(event);
    if (event.handled) return;
    const forms::KeyEvent known = AsAddInKnows(event);
    std::int16_t code = known.key_code, shift = known.shift;
    const std::string key = node.key, text = node.text;  // the node may go
    session_->add_in().NodeKeyDown(session_->studio().project(), key, text, code, shift);
    event.handled = code == 0 || known.key_code == forms::kKeyF1 || RunTreeKey(key, known);
  };
  tree_.on_menu = [this](const studio::StudioNode& node) {
    const std::string key = node.key, text = node.text;
    session_->add_in().NodeMouseUp(session_->studio().project(), key, text, forms::kRightButton, 0,
                                   0, 0);
  };
}

void MainWindow::ConnectStudio() {
  studio::Studio::Window& window = session_->studio().window;
  window.handle = [this] { return wx::HandleOf(this); };
  window.select_node = [this](std::string_view key) { tree_.SelectKey(std::string(key)); };
  window.activate_tree = [this] { TakeTree(); };
  window.keys_below = [this](std::string_view key) { return tree_.KeysBelow(std::string(key)); };
  window.show_error = [this](std::string_view text) { messages_.Fail(std::string(text), ""); };
  window.choose_item = [this](std::string_view current) { return ChooseItem(current); };
  window.show_code_window = [this] { code_.Refresh(); };
  window.show_warnings = [this](const std::vector<platform::Notice>& warnings) {
    ShowWarnings(warnings);
  };
  window.editor_handed_over = [this] {
    editor::frmtabgrid* editor = session_->add_in().EditorWindow();
    if (!editor) return;
    tools_.Equip(*editor);
    editor->abr.FindTool("mnuOptionActualize")->SetShortcut("F5");
    if (wx::MenuBarView* menus = parts_.toolkit.MenusOf(*editor))
      menus->AppendTo(*GetMenuBar(), *this, kEditorMenus);
    parts_.toolkit.ShowModeless(*editor);
    ShowTitle();
    title_ = editor->Observe([this](forms::Property property) {
      if (property == forms::Property::kCaption) ShowTitle();
    });
    ShowUpperPane(tree_.SelectedKey());
    project_->foreign_changes().Accept();
    panes_.notices().Dismiss(NoticeBar::Kind::kForeignChange);
  };
}

// What is about a place of the code stays in sight until the user is done with it.
void MainWindow::ShowWarnings(const std::vector<platform::Notice>& warnings) {
  std::string text;
  std::vector<platform::Notice> places;
  for (const platform::Notice& warning : warnings) {
    text += (text.empty() ? "" : "  ·  ") + warning.text;
    if (!warning.file.empty()) places.push_back(warning);
  }
  if (!text.empty()) messages_.Status(text);
  if (!places.empty() && search_) search_->ShowNotices(places);
}

// The keys of the tree that change nothing. True when it is one of them.
bool MainWindow::RunViewKeyOfTree(const forms::KeyEvent& event) {
  const bool there = event.key_code == forms::kKeyF6 && event.shift == forms::kAlt;
  const bool control = event.shift == forms::kControl;
  if (control && event.key_code == 'F') {
    panes_.tree_pane().TakeFilter();
  } else if ((there && panes_.overview().IsShown()) || (control && event.key_code == 'O')) {
    TakeUpperPane();
  } else {
    return false;
  }
  return true;
}

// The keys of commands on nodes for which the add-in has none: they go to the table of the node,
// or are answered. True when it is one of them.
bool MainWindow::RunTreeKey(const std::string& key, const forms::KeyEvent& event) {
  const bool make = event.key_code == forms::kKeyF8 && event.shift == 0;
  const bool edit = event.key_code == forms::kKeyF9 && event.shift == 0;
  const bool remove = event.key_code == forms::kKeyDelete && event.shift == forms::kControl;
  editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  if (!editor || !(make || edit || remove)) return false;
  const bool aliases = editor::KeyKind(key) == editor::kAliasKind;
  if (make && (aliases || editor::IsFormulaKey(key))) {
    editor->RunTool(aliases ? "mnuAliasNew" : "mnuParameterNew");
  } else if (make ? key == editor::kRootKey : !editor::IsFormulaKey(key)) {
    messages_.Status(Text(studio::kTextNotOnFolder));
  }
  return true;
}

void MainWindow::Bind() {
  // Tree, editor and dialogs answer F1 themselves.
  wxFrame::Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_F1) {
      parts_.help.ShowTopic(0, HasKeyboard(code_) ? kCodeTopic : kFirstTopic);
    } else if (event.GetKeyCode() == WXK_F5 && !event.HasAnyModifiers()) {
      RefreshViews();
    } else if (event.GetKeyCode() == WXK_F8 && event.GetModifiers() == wxMOD_SHIFT) {
      AddSeveral();
    } else if (!menu_.RunShortcut(event) && !undo_menu_.RunKey(event) && !RunViewKey(event) &&
               !MoveKeyboard(event) && !CloseLowerPane(event)) {
      event.Skip();
    }
  });
  wxFrame::Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (event.GetActive()) CallAfter([this] { OnShown(); });
  });
  wxFrame::Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    undo_offer_.Look();
  });
  wxFrame::Bind(wxEVT_CLOSE_WINDOW, &MainWindow::OnClose, this);
  wxFrame::Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
  timer_.Start(kTimerMs);
}

// What had the keyboard may be out of sight then.
bool MainWindow::RunViewKey(const wxKeyEvent& event) {
  if (!view_menu_.RunKey(event)) return false;
  const wxWindow* focus = wxWindow::FindFocus();
  if (session_ && (!focus || !focus->IsShownOnScreen())) GoToNode(tree_.SelectedKey());
  return true;
}

void MainWindow::TakeTree() {
  panes_.ShowTree(true);
  tree_.SetFocus();
}

// F6 goes round: tree, table, code. In the code Escape and Alt+F6 go back to the tree, too.
bool MainWindow::MoveKeyboard(const wxKeyEvent& event) {
  const bool round = event.GetKeyCode() == WXK_F6 && !event.HasAnyModifiers();
  const bool back = event.GetKeyCode() == WXK_ESCAPE ||
                    (event.GetKeyCode() == WXK_F6 && event.GetModifiers() == wxMOD_ALT);
  if (!session_ || !(round || back)) return false;
  const bool in_overview = HasKeyboard(panes_.overview());
  if (HasKeyboard(code_) || (in_overview && event.GetKeyCode() == WXK_F6 && !round)) {
    TakeTree();
    return true;
  }
  if (!round) return false;
  if (in_overview || HasKeyboard(panes_.editor_host())) {
    if (!code_.TakeKeyboard()) TakeTree();
    return true;
  }
  if (panes_.overview().IsShown()) {
    panes_.overview().TakeKeyboard();
    return true;
  }
  std::int16_t code = forms::kKeyF6, shift = forms::kAlt;
  session_->add_in().NodeKeyDown(session_->studio().project(), tree_.SelectedKey(), "", code,
                                 shift);
  return true;
}

// Escape in tree and table; text that is typed has a use for it of its own.
bool MainWindow::CloseLowerPane(const wxKeyEvent& event) {
  if (event.GetKeyCode() != WXK_ESCAPE || event.HasAnyModifiers()) return false;
  return !wx::TextHasKeyboard(*this) && panes_.CloseLower();
}

void MainWindow::OnClose(wxCloseEvent& event) {
  parts_.state.node = tree_.SelectedKey();
  if (!event.CanVeto()) code_.LeaveUnsaved();
  if (!CloseProject() && event.CanVeto()) return event.Veto();
  panes_.Keep();
  place_.Keep();
  parts_.state.Save();
  timer_.Stop();
  Destroy();
}

void MainWindow::OnShown() {
  if (const auto task = std::exchange(when_shown_, nullptr)) task();
}

void MainWindow::OnTimer() {
  OnShown();
  place_.Settle();
  LookAtStatus();
  if (!session_ || project_->unit().IsOpen()) return;
  code_.Refresh();
  watch_->Look();
  undo_menu_.Update();
  history_->Look();
  flow_->Look();
}

void MainWindow::LookAtStatus() {
  editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  if (!editor) return status_.Look(nullptr, std::nullopt);
  if (!project_->unit().IsOpen())
    status_.Look(&editor->operations(), parts_.files.Stamp(project_->path()));
}

// What is selected, the project's file, the program.
void MainWindow::ShowTitle() {
  std::string title = Text(studio::kTextProduct);
  if (session_ && session_->add_in().EditorWindow()) {
    title = parts_.files.FileName(project_->path()) + " – " + title;
    const std::string shown = NameOfNode(tree_.SelectedKey());
    if (!shown.empty()) title = shown + " – " + title;
  }
  SetTitle(wx::ToWx(title));
}

std::string MainWindow::NameOfNode(const std::string& key) const {
  if (editor::KeyKind(key) == editor::kAliasKind) return Text(dialogs::kTextAliasesTitle);
  if (key == editor::kFormulasKey) return Text(dialogs::kTextFormulasTitle);
  const studio::StudioNode* node = editor::IsFormulaKey(key) ? tree_.Tree()->Find(key) : nullptr;
  return node ? parts_.texts.Text(dialogs::kTextFormulaTitle, {{"<Name>", node->text}}) : "";
}

void MainWindow::SelectNode(const studio::StudioNode& node) {
  const std::string key = node.key, text = node.text;
  RememberStep("node " + std::string(editor::KeyKind(key)));
  session_->studio().SetSelectedKey(key);
  session_->add_in().NodeClick(session_->studio().project(), key, text);
  ShowUpperPane(key);
  if (key == editor::kFormulasKey) {
    const bool of_classes = tree_.Look().grouping == TreeLook::Grouping::kClass;
    panes_.overview().ShowGroup(tree_.SelectedGroup(), of_classes);
  }
  ShowTitle();
  lookup_->ShowNode(key);
}

void MainWindow::ShowUpperPane(const std::string& key) {
  if (!session_->add_in().EditorWindow()) return;
  const bool all = key == editor::kFormulasKey;
  if (all && formulas_) formulas_->Show();
  panes_.ShowStrip(formulas_ && formulas_->ShowStrip(key));
  panes_.ShowUpper(all ? WindowPanes::Upper::kOverview : WindowPanes::Upper::kEditor);
}

void MainWindow::GoToNode(const std::string& key) {
  tree_.SelectKey(key);
  TakeUpperPane();
}

void MainWindow::TakeUpperPane() {
  if (panes_.overview().IsShown()) {
    panes_.overview().TakeKeyboard();
  } else {
    session_->add_in().ActivateEditor();
  }
}

void MainWindow::RefreshViews() {
  editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  if (!editor) return messages_.Status(Text(studio::kTextNoProjectOpen));
  editor->RunTool("mnuOptionActualize");
}

void MainWindow::MakeFormula() {
  std::int16_t code = forms::kKeyF8, shift = 0;
  session_->add_in().NodeKeyDown(session_->studio().project(), editor::kFormulasKey, "", code,
                                 shift);
}

void MainWindow::AddSeveral() {
  editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  if (!editor) return messages_.Status(Text(studio::kTextNoProjectOpen));
  several_.Add(tree_.SelectedKey(), *editor, *project_);
}

void MainWindow::ShowKeys() {
  const editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  ShowKeyList(this, KeysOf(*GetMenuBar(), editor ? &editor->abr : nullptr, parts_.texts),
              parts_.texts);
}

void MainWindow::CopyNodeName() {
  const std::string key = tree_.SelectedKey();
  if (!editor::IsFormulaKey(key)) return messages_.Status(Text(kTextOnlyFormula));
  wx::ToClipboard(tree_.Tree()->Find(key)->text);
}

void MainWindow::SaveCode() {
  if (!code_.Modified()) return messages_.Status(Text(studio::kTextNothingToSave));
  code_.Save();
}

void MainWindow::Exchange(void (ListExchange::*way)(editor::frmtabgrid&, project::Project&)) {
  editor::frmtabgrid* editor = session_ ? session_->add_in().EditorWindow() : nullptr;
  if (!editor) return messages_.Status(Text(studio::kTextNoProjectOpen));
  (lists_.*way)(*editor, *project_);
}

void MainWindow::ShowUses() {
  using Subject = CodeSearch::Subject;
  if (!search_) return;
  search_->ShowUses(HasKeyboard(code_)                  ? Subject::kName
                    : HasKeyboard(panes_.editor_host()) ? Subject::kRow
                                                        : Subject::kNode);
}

void MainWindow::ShowLastCrash() {
  const std::string log = NewestCrashLog(parts_.files, parts_.state.folder());
  if (log.empty() || log == parts_.state.told_crash_log) return;
  parts_.state.told_crash_log = log;
  parts_.state.Save();
  messages_.Warn(Text(studio::kTextCrashedBefore),
                 parts_.texts.Text(studio::kTextFaultDetail, {{"<File>", log}}));
}

std::optional<std::string> MainWindow::ChooseItem(std::string_view current) {
  project::ItemFile& items = project_->items();
  items.Refresh();
  const auto skipped = project::SkippedItems(items.Catalogue(), items.path(), parts_.texts);
  if (!skipped.empty()) messages_.Status(skipped.front());
  studio::ItemChooser chooser(parts_.toolkit, parts_.texts, items.Catalogue(), items.path());
  chooser.on_help = [&] { parts_.help.ShowTopic(parts_.toolkit.Handle(chooser), kItemsTopic); };
  return chooser.Choose(current, nullptr);
}

// False where no program shows pages; the toolkit would say so in its own words.
bool MainWindow::ShowInBrowser(const std::string& path) {
  const wxLogNull quiet;
  return wxLaunchDefaultBrowser(wxFileSystem::FileNameToURL(wxFileName(wx::ToWx(path))));
}

void MainWindow::OfferReport(const std::string& path, const std::string& html) {
  const auto answer = parts_.toolkit.Show(
      {Text(studio::kTextNoBrowser),
       parts_.texts.Text(studio::kTextReportSaved, {{"<File>", path}}), "",
       platform::MessageButtons::kYesNo, platform::MessageResult::kYes,
       platform::MessageIcon::kInformation, Text(studio::kTextSaveAs), Text(studio::kTextClose)});
  if (answer != platform::MessageResult::kYes) return;
  wxFileDialog dialog(this, wx::ToWx(Text(studio::kTextReportTitle)), ProjectFolder(),
                      wx::ToWx(project_->name() + ".html"),
                      wx::ToWx(Text(studio::kTextReportFileFilter)),
                      wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
  if (dialog.ShowModal() == wxID_OK) WriteReport(wx::FromWx(dialog.GetPath()), html);
}

// The place of a report or of nothing, never of a file of the project.
void MainWindow::WriteReport(const std::string& path, const std::string& html) {
  const auto own = project::FilesOfProject(*project_);
  if (project::LookAtReportPlace(parts_.files, path, own) != project::ReportPlace::kFree) {
    files::Raise(files::ErrorKind::kExists, path, files::message::kCannotBeWritten,
                 files::message::kExistsAlready);
  }
  files::ReplaceFile(parts_.files, path, html);
  messages_.Status(parts_.texts.Text(studio::kTextReportSaved, {{"<File>", path}}));
}

void MainWindow::ShowReport(const std::string& html) {
  const std::string folder =
      parts_.state.folder().empty() ? parts_.files.Folder(project_->path()) : parts_.state.folder();
  const std::string path = parts_.files.Join(folder, "report.html");
  try {
    parts_.files.CreateDirectories(folder);
    WriteReport(path, html);
    if (!ShowInBrowser(path)) OfferReport(path, html);
  } catch (const std::exception& error) {
    messages_.Fail(Text(studio::kTextReportTitle), parts_.texts.Sentence(error));
  }
}

}  // namespace desktop
