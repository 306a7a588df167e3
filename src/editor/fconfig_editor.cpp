// SPDX-License-Identifier: MIT
#include "editor/fconfig_editor.h"

#include <string>

#include "editor/frmtabgrid.h"
#include "messages/text_number.h"

namespace editor {

namespace {

// German in every language, on purpose.
constexpr const char* kInitialisationFailed = "Initialisierung Konfigurationsdialog fehlgegangen";
constexpr const char* kStorageFailed = "Zurückschreiben von Konfigurationsdialog fehlgegangen";
constexpr messages::TextNumber kSettingsNotWritten{1627};
constexpr const char* kFontOwners[] = {"Me", "tdbP", "tdbA"};

bool IsTrue(const platform::Variant& value) {
  const bool* on = value.Get<bool>();
  return on && *on;
}

// What the options change is kept at once, the rest of the layout when the window closes: a
// switched-off "save on exit" could never be kept otherwise.
bool WriteSetting(settings::CInit& inits, const std::string& key) {
  return inits.WriteToIni(key, inits.ReadAValueFromCInits(key));
}

bool WriteFonts(settings::CInit& inits) {
  bool written = true;
  for (const char* owner : kFontOwners) {
    for (const char* member :
         {"Name", "Size", "Underline", "Strikethrough", "Italic", "Charset", "Weight"}) {
      written &= WriteSetting(inits, std::string(owner) + ".Font." + member);
    }
  }
  return written;
}

}  // namespace

FConfigEditor::FConfigEditor(const dialogs::DialogContext& dialog_context)
    : DialogForm("FConfigEditor", dialog_context, dialogs::kOptionsHelpTopic) {
  SetTag("C163");
  lblEditorFont.SetTag("C701");
  chkDelQuestion.SetTag("C702");
  chkShowStatusBar.SetTag("C703");
  chkSaveOnExit.SetTag("C704");
  txtEditorFont.SetLocked(true);
  txtEditorFont.SetLayout({.min_chars = 24});
  cmdEditorFont.SetCaption("...");
  cmdEditorFont.SetLayout({.same_row = true});
  cmdEditorFont.on_click = [this] {
    const auto font = context().toolkit.ChooseFont(txtEditorFont.GetFont());
    if (!font) return;
    txtEditorFont.SetFont(*font);
    txtEditorFont.SetText(font->name);
  };
  WireButtons(cmdOk, cmdCancel, cmdHelp);
}

void CopyFont(const forms::Control& source, forms::Control& target) {
  target.SetFont(source.GetFont());
}

void LoadOptions(const frmtabgrid& window, FConfigEditor& dialog) {
  CopyFont(window, dialog.txtEditorFont);
  dialog.txtEditorFont.SetText(dialog.txtEditorFont.GetFont().name);
  if (IsTrue(window.inits.ReadAValueFromCInits("SaveOnExit")))
    dialog.chkSaveOnExit.SetChecked(true);
  if (IsTrue(window.inits.ReadAValueFromCInits("RequestOnDelete"))) {
    dialog.chkDelQuestion.SetChecked(true);
  }
  if (window.sb.Visible()) dialog.chkShowStatusBar.SetChecked(true);
  // The workbench counts in a row of its own.
  dialog.chkShowStatusBar.SetVisible(!window.context().services.in_workbench);
}

bool UseFont(frmtabgrid& window, const forms::Font& font) {
  window.SetFont(font);
  CopyFont(window, window.tdbP);
  CopyFont(window, window.tdbA);
  for (const char* owner : kFontOwners) window.inits.GetInitFromControl(window, owner);
  return WriteFonts(window.inits);
}

bool StoreOptions(frmtabgrid& window, const FConfigEditor& dialog) {
  bool written = UseFont(window, dialog.txtEditorFont.GetFont());
  window.inits.WriteAValueToCInits("SaveOnExit", dialog.chkSaveOnExit.Checked());
  window.inits.WriteAValueToCInits("RequestOnDelete", dialog.chkDelQuestion.Checked());
  if (dialog.chkShowStatusBar.Visible()) {
    window.sb.SetVisible(dialog.chkShowStatusBar.Checked());
    window.inits.GetInitFromControl(window, "sb");
  }
  window.inits.GetInitFromControl(window, "Me");
  window.ApplyChangedSettings();
  for (const char* key : {"SaveOnExit", "RequestOnDelete", "sb.Visible"})
    written &= WriteSetting(window.inits, key);
  return written;
}

bool OpenOptions(frmtabgrid& window, const OptionsSteps& steps) {
  FConfigEditor dialog(window.dialog_context());
  const char* failure = kInitialisationFailed;
  try {
    steps.load(window, dialog);
    if (!dialog.Run()) return false;
    failure = kStorageFailed;
    if (steps.store(window, dialog)) return true;
    window.messages().Warn(
        failure, window.context().texts.Text(kSettingsNotWritten,
                                             {{"<File>", window.context().SettingsFile()}}));
  } catch (const std::exception& error) {
    window.messages().Warn(failure, error);
  }
  return false;
}

}  // namespace editor
