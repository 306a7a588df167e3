// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/dialog_form.h"
#include "forms/fields.h"

namespace editor {

class frmtabgrid;

// The options dialog: the editor's font and three switches.
class FConfigEditor : public dialogs::DialogForm {
 public:
  explicit FConfigEditor(const dialogs::DialogContext& dialog_context);

  forms::Label lblEditorFont{this, "lblEditorFont"};
  forms::TextBox txtEditorFont{this, "txtEditorFont"};
  forms::Button cmdEditorFont{this, "cmdEditorFont"};
  forms::CheckBox chkDelQuestion{this, "chkDelQuestion"};
  forms::CheckBox chkShowStatusBar{this, "chkShowStatusBar"};
  forms::CheckBox chkSaveOnExit{this, "chkSaveOnExit"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};
};

void LoadOptions(const frmtabgrid& window, FConfigEditor& dialog);
// False when the settings file cannot be written; the switches have taken effect all the same.
bool StoreOptions(frmtabgrid& window, const FConfigEditor& dialog);

// What fails in a step is told and ends the run.
struct OptionsSteps {
  void (*load)(const frmtabgrid&, FConfigEditor&) = LoadOptions;
  bool (*store)(frmtabgrid&, const FConfigEditor&) = StoreOptions;
};

// Shows the options of the window; whether they were confirmed and stored.
bool OpenOptions(frmtabgrid& window, const OptionsSteps& steps = {});

// The window and its tables have that font from now on, also the next time. False when the settings
// file cannot be written.
bool UseFont(frmtabgrid& window, const forms::Font& font);

// Copies name, size, character set, italic, strikethrough, underline and weight.
void CopyFont(const forms::Control& source, forms::Control& target);

}  // namespace editor
