// SPDX-License-Identifier: MIT
#include "desktop/code_pane.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <cstdlib>

#include "desktop/code_editor.h"
#include "desktop/find_bar.h"
#include "files/error.h"
#include "platform/error.h"
#include "project/line_diff.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kCopyMs = 1000;  // how much typing a program that is killed may take with it

// The line nearest to a number, from 1, that has this text; 0 when none has.
std::int32_t FindLine(const project::Lines& lines, std::int32_t number, std::string_view text) {
  std::int32_t nearest = 0;
  for (std::int32_t line = 1; line <= std::ssize(lines); ++line) {
    const bool nearer = nearest == 0 || std::abs(line - number) < std::abs(nearest - number);
    if (nearer && lines[static_cast<std::size_t>(line) - 1] == text) nearest = line;
  }
  return nearest;
}

}  // namespace

CodePane::CodePane(wxWindow* parent, const texts::TextTable& texts)
    : wxPanel(parent),
      texts_(texts),
      title_(new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      editor_(new CodeEditor(this, texts)),
      find_(new FindBar(this, *editor_, texts)) {
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(title_, wxSizerFlags().Expand().Border(wxALL, FromDIP(6)));
  sizer->Add(find_, wxSizerFlags().Expand());
  sizer->Add(editor_, wxSizerFlags(1).Expand());
  SetUpFind();
  SetSizer(sizer);
  SetTitle(texts.Text(studio::kTextNoModule));
  wx::SetAccessibleName(*editor_, wx::ToWx(texts.Text(studio::kTextCodeName)));
  editor_->Enable(false);
  editor_->Bind(wxEVT_STC_SAVEPOINTLEFT, [this](wxStyledTextEvent&) {
    ShowName();
    if (!on_status || editor_->Changing()) return;
    on_status(texts_.Text(studio::kTextModified));
    says_modified_ = true;
  });
  editor_->Bind(wxEVT_STC_SAVEPOINTREACHED, [this](wxStyledTextEvent&) {
    ShowName();
    if (on_status && std::exchange(says_modified_, false)) on_status("");
  });
  editor_->Bind(wxEVT_STC_CHANGE, [this](wxStyledTextEvent& event) {
    event.Skip();
    if (copies_ && document_ && !copy_timer_.IsRunning()) copy_timer_.StartOnce(kCopyMs);
  });
  copy_timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { KeepCopy(); });
  editor_->on_definition = [this] { on_definition(); };
  editor_->on_uses = [this] { on_uses(); };
}

// --- Finding ---

void CodePane::SetUpFind() {
  find_->MoveBeforeInTabOrder(editor_);
  find_->on_status = [this](const std::string& text) {
    if (on_status) on_status(text);
  };
  find_->on_visible = [this] { Layout(); };
  find_->on_close = [this] { TakeKeyboard(); };
  find_->on_find_elsewhere = [this](bool backward) { return on_find_elsewhere(backward); };
  editor_->on_status = find_->on_status;
  editor_->on_find = [this](bool with_replacement) { find_->Open(with_replacement); };
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const bool closes = event.GetKeyCode() == WXK_ESCAPE && editor_->CloseHelp();
    event.Skip(!closes && !find_->HandleKey(event));
  });
}

// --- The module ---

bool CodePane::ShowModule(std::shared_ptr<platform::VBComponent> component,
                          platform::UnitOfWork& unit) {
  if (component_ && component_->FileName() == component->FileName()) {
    Refresh();
    return true;
  }
  platform::CodeModule* module = component->Module();
  if (asking_ || !module || !MayLeave()) return false;
  component_ = std::move(component);
  document_ = std::make_unique<studio::CodeDocument>(unit, *module);
  LoadModule();
  return true;
}

void CodePane::LoadModule() {
  try {
    const std::string& text = document_->Load();
    problem_.clear();
    editor_->ShowLineNumbers(true);
    editor_->ShowText(text);
    editor_->Enable(true);
    conflict_ = false;
    ShowName();
  } catch (const std::exception& error) {
    problem_ = texts_.Sentence(error);
    editor_->ShowText("");
    editor_->Enable(false);
    SetTitle(problem_);
  }
  Layout();
}

void CodePane::CloseModule() {
  document_.reset();
  component_.reset();
  problem_.clear();
  DropCopy();
  editor_->ShowLineNumbers(false);
  editor_->ShowText("");
  editor_->Enable(false);
  SetTitle(texts_.Text(studio::kTextNoModule));
}

void CodePane::ShowReason(const std::string& reason) {
  if (Modified()) return;
  CloseModule();
  SetTitle(reason);
}

bool CodePane::TakeKeyboard() {
  if (!IsShown()) return false;
  if (!editor_->IsEnabled()) return false;
  editor_->SetFocus();
  editor_->EnsureCaretVisible();
  return true;
}

// What has no room can be read in the tooltip.
void CodePane::SetTitle(const std::string& text) {
  title_->SetLabel(wx::ToLabel(text));
  title_->SetToolTip(wx::ToWx(text));
}

void CodePane::ShowName() {
  if (!component_ || !problem_.empty()) return;
  SetTitle((Modified() ? "* " : "") + component_->Name() + "  –  " + component_->FileName());
}

void CodePane::ScrollTo(std::int32_t line) { editor_->ScrollTo(line); }

void CodePane::ShowProcedure(std::int32_t line, std::int32_t declaration) {
  editor_->ShowProcedure(line, declaration);
}

void CodePane::SelectLines(const platform::CodeSelection& selection) {
  on_place();
  editor_->SelectLines(selection);
}

void CodePane::SelectPlace(const codegen::CodePlace& place) {
  on_place();
  const std::string text = editor_->Text();
  const std::int32_t line = FindLine(project::EditorLines(text), place.line, place.text);
  if (line != 0) return editor_->SelectPlace(line, place.column, place.length);
  editor_->SelectPlace(place.line, 1, 0);
}

CodePane::Caret CodePane::CaretInModule() const {
  const CodeEditor::Place caret = editor_->Caret();
  const std::string text = editor_->GetLineText(caret.line - 1).utf8_string();
  return {FindLine(project::EditorLines(document_->text()), caret.line, text), caret.column};
}

std::string CodePane::SelectedText() const { return wx::FromWx(editor_->GetSelectedText()); }

// --- Saving ---

bool CodePane::Modified() const { return document_ && editor_->GetModify(); }

bool CodePane::Save() {
  if (!Modified()) return true;
  const std::string name = component_->Name();
  std::string cause;
  try {
    Refresh();
    document_->Save(editor_->Text());
    editor_->ChangeText(document_->text());
    editor_->SetSavePoint();
    DropCopy();
    if (on_status) on_status(texts_.Text(studio::kTextSaved, {{"<Name>", name}}));
    return true;
  } catch (const platform::Error& error) {
    cause = texts_.Sentence(error);
    if (error.kind() == platform::ErrorKind::kConflict && conflict_) {
      return ResolveConflict();
    }
  } catch (const std::exception& error) {
    cause = texts_.Sentence(error);
  }
  if (on_failure) on_failure(texts_.Text(studio::kTextCannotSave, {{"<Name>", name}}), cause);
  return false;
}

bool CodePane::MayLeave() {
  if (!Modified()) return true;
  if (asking_ || !on_unsaved) return false;
  asking_ = true;
  const Answer answer = on_unsaved(component_->Name());
  asking_ = false;
  if (answer == Answer::kSave && (Save() || !Modified())) return true;
  if (answer == Answer::kDiscard) {
    wx::ToClipboard(editor_->Text());
    CloseModule();
    return true;
  }
  CallAfter([this] { TakeKeyboard(); });  // behind the event that wanted to leave
  return false;
}

bool CodePane::ResolveConflict() {
  asking_ = true;
  const Conflict answer =
      on_conflict ? on_conflict({component_->Name(), document_->Current(), editor_->Text()})
                  : Conflict::kUndecided;
  asking_ = false;
  if (answer == Conflict::kTheirs) Discard();
  if (answer != Conflict::kMine) return false;
  conflict_ = false;
  wx::ToClipboard(document_->Load());
  return Save();
}

// The text goes to the clipboard.
void CodePane::Discard() {
  wx::ToClipboard(editor_->Text());
  conflict_ = false;
  try {
    editor_->ChangeText(document_->Load());
    editor_->SetSavePoint();
  } catch (const std::exception&) {
    LoadModule();
  }
  DropCopy();
  if (on_status) on_status("");
}

// --- What others do to the module ---

void CodePane::Refresh() {
  if (!document_ || asking_) return;
  try {
    if (!problem_.empty() && !Modified()) {
      document_->ChangedMeanwhile();  // raises as long as nothing is better
      LoadModule();
    } else if (document_->ChangedMeanwhile()) {
      TakeOver();
    } else if (!problem_.empty()) {
      problem_.clear();
      ShowName();
    }
  } catch (const std::exception& error) {  // its file is gone, or cannot be read for a while
    const std::string problem = texts_.Sentence(error);
    if (problem == problem_) return;
    if (!Modified()) return LoadModule();
    problem_ = problem;
    SetTitle(texts_.Text(studio::kTextModuleUnreadable, {{"<Name>", component_->Name()}}));
  }
}

void CodePane::TakeOver() {
  problem_.clear();
  const auto merged = document_->Merge(editor_->Text());
  conflict_ = !merged;
  if (conflict_) return;
  editor_->TakeOver(document_->text(), *merged);
  if (*merged == document_->text()) {
    editor_->SetSavePoint();
    DropCopy();
  } else {
    KeepCopy();
    if (on_status) on_status(texts_.Text(studio::kTextMerged, {{"<Name>", component_->Name()}}));
  }
  ShowName();
}

// --- Copies of unsaved code ---

bool CodePane::KeepCopy() {
  if (!Modified()) DropCopy();
  if (!Modified() || !copies_) return false;
  try {
    copies_->Keep({component_->FileName(), document_->text(), editor_->Text()});
    return true;
  } catch (const std::exception& error) {
    if (on_status) {
      on_status(texts_.Text(studio::kTextNoUnsavedCopy, {{"<Text>", texts_.Sentence(error)}}));
    }
    return false;
  }
}

void CodePane::DropCopy() {
  copy_timer_.Stop();
  try {
    if (copies_) copies_->Drop();
  } catch (const std::exception&) {  // it is offered once more, and refused then
  }
}

bool CodePane::BringBack(const studio::UnsavedCode& code) {
  document_->Resume(code.base);
  editor_->ChangeText(code.text);
  Refresh();
  return !Modified() || KeepCopy();
}

void CodePane::LeaveUnsaved() {
  KeepCopy();
  copies_ = nullptr;
  editor_->SetSavePoint();
}

}  // namespace desktop
