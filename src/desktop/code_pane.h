// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/unit_of_work.h"
#include "platform/vbide.h"
#include "texts/text_table.h"
#include "workbench/code_document.h"

class wxStyledTextCtrl;
class wxStaticText;

namespace desktop {

// The code of one module, with Visual Basic's colours: editable, saved by Ctrl+S and when the
// keyboard leaves it, kept up with what the editor's operations change.
class CodePane : public wxPanel {
 public:
  CodePane(wxWindow* parent, const texts::TextTable& texts);

  // Shows a module; saves the one before. Both stay alive until CloseModule.
  void ShowModule(std::shared_ptr<platform::VBComponent> component, platform::UnitOfWork& unit);
  // Shows nothing. What is not saved is lost; call Save first.
  void CloseModule();
  platform::VBComponent* Component() const { return component_.get(); }

  // Line and columns from 1.
  void ScrollTo(std::int32_t line);
  void SelectLines(const platform::CodeSelection& selection);

  bool Modified() const;
  // False when it could not be saved; the user was told.
  bool Save();
  // Gives the changes up; the text goes to the clipboard.
  void Discard();
  // Shows why there is no code to show.
  void ShowProblem(const std::string& text);
  // False when there is no code that could take it.
  bool TakeKeyboard();
  // Takes over what the module holds now, unless there are unsaved changes.
  void Refresh();

  // One line for the window's status line.
  std::function<void(const std::string&)> on_status;
  // A failure that the user must see: message and detail line.
  std::function<void(const std::string& message, const std::string& detail)> on_failure;
  // A conflict; true loads the file's state.
  std::function<bool(const std::string& module)> on_conflict;

 private:
  void SetUpEditor();
  void ApplyColours();
  void SetText(const std::string& text);
  void FitScrollWidth();
  void SetTitle(const std::string& text);
  void LoadAgain();
  void LoadInPlace();
  void ResolveConflict();

  const texts::TextTable& texts_;
  wxStaticText* title_;
  wxStyledTextCtrl* editor_;
  std::shared_ptr<platform::VBComponent> component_;
  std::unique_ptr<workbench::CodeDocument> document_;
  bool loading_ = false;
  bool asking_ = false;  // a question about a conflict is open
};

}  // namespace desktop
