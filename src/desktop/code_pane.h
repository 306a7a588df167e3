// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>
#include <wx/timer.h>

#include <exception>
#include <functional>
#include <memory>
#include <string>

#include "codegen/code_places.h"
#include "platform/unit_of_work.h"
#include "platform/vbide.h"
#include "studio/code_document.h"
#include "studio/unsaved_code.h"
#include "texts/text_table.h"

class wxStaticText;

namespace desktop {

class CodeEditor;
class FindBar;

// The code of one module, editable. It is written when the user says so. What operations and other
// programs do to the module meanwhile is taken over, also beside unsaved changes.
class CodePane : public wxPanel {
 public:
  CodePane(wxWindow* parent, const texts::TextTable& texts);

  // Shows a module in place of another one, unless the user wants to keep the unsaved changes of
  // that one in sight. Both arguments stay alive until CloseModule. True when it is shown.
  bool ShowModule(std::shared_ptr<platform::VBComponent> component, platform::UnitOfWork& unit);
  // Shows nothing. What is not saved is lost; see MayLeave.
  void CloseModule();
  platform::VBComponent* Component() const { return component_.get(); }
  CodeEditor& editor() const { return *editor_; }
  // Whether a module is shown that can be read.
  bool Readable() const { return document_ && problem_.empty(); }
  // Where copies of unsaved code are kept; null keeps none. They outlive the module.
  void KeepCopiesIn(studio::UnsavedCopies* copies) { copies_ = copies; }
  // Shows code that was left unsaved in place of what the shown module holds, unsaved as it is.
  // False when there is no copy of it.
  bool BringBack(const studio::UnsavedCode& code);
  // Nobody can be asked any more: unsaved code stays in its copy.
  void LeaveUnsaved();

  // Line and columns from 1.
  void ScrollTo(std::int32_t line);
  // Shows a procedure from its first line on, with the caret behind its declaration.
  void ShowProcedure(std::int32_t line, std::int32_t declaration);
  void SelectLines(const platform::CodeSelection& selection);
  // Selects a place of the module as it is saved; its line is found again where unsaved changes
  // moved it.
  void SelectPlace(const codegen::CodePlace& place);
  struct Caret {
    std::int32_t line = 0;  // 0: the line is not saved yet
    std::int32_t column = 0;
  };
  // Line and column in the module as it is saved.
  Caret CaretInModule() const;
  std::string SelectedText() const;

  bool Modified() const;
  // False when it could not be saved; the user was told.
  bool Save();
  // Asks whether unsaved changes are to be saved or given up; false when the user wants to stay.
  bool MayLeave();
  // Shows why there is no code to show, unless there are unsaved changes.
  void ShowReason(const std::string& reason);
  // False when there is no code that could take it.
  bool TakeKeyboard();
  // Takes over what the module holds now.
  void Refresh();

  enum class Answer { kSave, kDiscard, kStay };
  enum class Conflict { kTheirs, kMine, kUndecided };
  // Of a module that others changed at the same place as the user.
  struct Versions {
    std::string module;
    std::string theirs;  // in the file
    std::string mine;
  };

  // One line for the window's status line.
  std::function<void(const std::string&)> on_status;
  // A failure that the user must see: message and detail line.
  std::function<void(const std::string& message, const std::string& detail)> on_failure;
  // Which version is to stand in the file.
  std::function<Conflict(const Versions& versions)> on_conflict;
  // A place of the code is about to be shown.
  std::function<void()> on_place = [] {};
  // The user asks for the definition or the uses of the name at the caret.
  std::function<void()> on_definition;
  std::function<void()> on_uses;
  // The user goes on in what was found in all code; false when nothing was.
  std::function<bool(bool backward)> on_find_elsewhere = [](bool) { return false; };
  // What is to become of the unsaved changes of a module.
  std::function<Answer(const std::string& module)> on_unsaved;

 private:
  void SetUpFind();
  void Discard();
  void SetTitle(const std::string& text);
  void ShowName();
  void LoadModule();
  void TakeOver();
  // True when the user's text was written over the file's.
  bool ResolveConflict();
  bool KeepCopy();
  void DropCopy();

  const texts::TextTable& texts_;
  wxStaticText* title_;
  CodeEditor* editor_;
  FindBar* find_;
  std::shared_ptr<platform::VBComponent> component_;
  std::unique_ptr<studio::CodeDocument> document_;
  studio::UnsavedCopies* copies_ = nullptr;
  wxTimer copy_timer_;
  std::string problem_;         // why the module cannot be read now
  bool conflict_ = false;       // the module and the unsaved changes exclude each other
  bool asking_ = false;         // a question is open
  bool says_modified_ = false;  // the status line
};

}  // namespace desktop
