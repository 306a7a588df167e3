// SPDX-License-Identifier: MIT
#include "desktop/workbench_options.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/fontpicker.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "desktop/code_editor.h"
#include "desktop/frame_texts.h"
#include "messages/text_number.h"
#include "project/history_setting.h"
#include "project/language.h"
#include "wx/convert.h"
#include "wx/native.h"
#include "wx/table_font.h"

namespace desktop {

namespace {

constexpr int kGap = 8;  // pixels at 100 %
constexpr messages::TextNumber kOk{10};
constexpr messages::TextNumber kCancel{11};
constexpr texts::Language kLanguages[] = {texts::Language::kGerman, texts::Language::kEnglish};

wxFont StandardTableFont() { return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT); }

// The font as it is kept, or the standard one.
wxFont FontOf(const std::string& kept, const wxFont& standard) {
  const wxFont font = wx::KeptFont(kept);
  return font.IsOk() ? font : standard;
}

// Keeps what was picked; the standard font as none. True when it is another one than before.
bool KeepFont(const wxFontPickerCtrl& picker, const wxFont& standard, std::string& kept) {
  const wxFont& font = picker.GetSelectedFont();
  if (font == FontOf(kept, standard)) return false;
  kept = font == standard ? "" : wx::FromWx(font.GetNativeFontInfoDesc());
  return true;
}

}  // namespace

WorkbenchOptions::WorkbenchOptions(wxWindow* parent, const texts::TextTable& texts,
                                   project::FileSettingsService& settings, DesktopState& state)
    : wxDialog(parent, wxID_ANY, wx::ToWx(texts.Text(kTextOptions))),
      texts_(texts),
      settings_(settings),
      state_(state) {
  const int gap = FromDIP(kGap);
  auto* grid = new wxFlexGridSizer(2, wxSize(gap, gap));
  grid->AddGrowableCol(1);
  wxArrayString languages, looks, unsaved;
  languages.Add("Deutsch");
  languages.Add("English");
  const std::string kept =
      settings.ReadIni(settings.registry_file(), texts::kLanguageKey, texts::kLanguageValue, "");
  const bool german = kept.empty() ? texts.GetLanguage() == texts::Language::kGerman
                                   : kept == project::LcidOf(texts::Language::kGerman);
  for (int i = 0; i < 3; ++i) looks.Add(Text(kTextLookOfSystem + i));
  for (int i = 0; i < 2; ++i) unsaved.Add(Text(kTextAskUnsaved + i));
  language_before_ = german ? 0 : 1;
  language_ = AddChoice(*grid, kTextLanguage, languages, language_before_);
  look_ = AddChoice(*grid, kTextLook, looks, state.look);
  if (!wx::HasLooks()) {
    look_->SetSelection(static_cast<int>(wx::Look::kLight));
    look_->Disable();
    look_->SetToolTip(Text(kTextOnlyLight));
  }
  table_font_ = AddFont(*grid, kTextTableFont, FontOf(state.table_font, StandardTableFont()));
  code_font_ = AddFont(*grid, kTextCodeFont, FontOf(state.code_font, CodeEditor::StandardFont()));
  auto* standard = new wxButton(this, wxID_ANY, Text(kTextStandardFonts));
  standard->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    table_font_->SetSelectedFont(StandardTableFont());
    code_font_->SetSelectedFont(CodeEditor::StandardFont());
  });
  grid->AddSpacer(0);
  grid->Add(standard, wxSizerFlags().Right());
  unsaved_ = AddChoice(*grid, kTextUnsavedCode, unsaved, state.save_when_leaving ? 1 : 0);
  auto* all = new wxBoxSizer(wxVERTICAL);
  SetSizer(all);
  all->Add(grid, wxSizerFlags().Expand().Border(wxALL, 2 * gap));
  history_ = AddCheck(kTextKeepHistory, project::KeepsHistory(settings));
  backups_ = AddCheck(kTextKeepBackups, state.with_backups);
  all->Add(new wxStaticText(this, wxID_ANY, Text(kTextAtNextStart)),
           wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, 2 * gap));
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  auto* ok = new wxButton(this, wxID_OK, Text(kOk));
  buttons->AddStretchSpacer();
  buttons->Add(ok, wxSizerFlags().Border(wxRIGHT, gap));
  buttons->Add(new wxButton(this, wxID_CANCEL, Text(kCancel)));
  all->Add(buttons, wxSizerFlags().Expand().Border(wxALL, 2 * gap));
  ok->SetDefault();
  SetSizerAndFit(all);
  CentreOnParent();
}

wxString WorkbenchOptions::Text(messages::TextNumber number) const {
  return wx::ToWx(texts_.Text(number));
}

wxChoice* WorkbenchOptions::AddChoice(wxSizer& grid, messages::TextNumber label,
                                      const wxArrayString& entries, int chosen) {
  wxStaticText* name = wx::NewLabel(this);
  name->SetLabel(Text(label));
  auto* choice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, entries);
  choice->SetSelection(chosen);
  wx::SetAccessibleName(*choice, wxControl::RemoveMnemonics(Text(label)));
  grid.Add(name, wxSizerFlags().CentreVertical());
  grid.Add(choice, wxSizerFlags().Expand());
  return choice;
}

wxFontPickerCtrl* WorkbenchOptions::AddFont(wxSizer& grid, messages::TextNumber label,
                                            const wxFont& font) {
  wxStaticText* name = wx::NewLabel(this);
  name->SetLabel(Text(label));
  auto* picker = new wxFontPickerCtrl(this, wxID_ANY, font);
  wx::SetAccessibleName(*picker->GetPickerCtrl(), wxControl::RemoveMnemonics(Text(label)));
  grid.Add(name, wxSizerFlags().CentreVertical());
  grid.Add(picker, wxSizerFlags().Expand());
  return picker;
}

wxCheckBox* WorkbenchOptions::AddCheck(messages::TextNumber label, bool checked) {
  auto* check = new wxCheckBox(this, wxID_ANY, Text(label));
  check->SetValue(checked);
  GetSizer()->Add(check, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, 2 * FromDIP(kGap)));
  return check;
}

std::optional<WorkbenchOptions::Answer> WorkbenchOptions::Ask() {
  if (ShowModal() != wxID_OK) return std::nullopt;
  return Store();
}

WorkbenchOptions::Answer WorkbenchOptions::Store() {
  bool later = false;
  const auto keep = [&](bool changed, std::string_view value, std::string_view now) {
    if (changed) later |= settings_.WriteRegistry(texts::kLanguageKey, value, now);
  };
  const int language = language_->GetSelection();
  keep(language != language_before_, texts::kLanguageValue, project::LcidOf(kLanguages[language]));
  keep(history_->GetValue() != project::KeepsHistory(settings_), project::kHistoryValue,
       history_->GetValue() ? "1" : "0");
  state_.save_when_leaving = unsaved_->GetSelection() == 1;
  if (wx::HasLooks()) {
    later |= look_->GetSelection() != state_.look;
    state_.look = look_->GetSelection();
  }
  later |= backups_->GetValue() != state_.with_backups;
  state_.with_backups = backups_->GetValue();
  const bool other_tables = KeepFont(*table_font_, StandardTableFont(), state_.table_font);
  const bool other_code = KeepFont(*code_font_, CodeEditor::StandardFont(), state_.code_font);
  state_.Save();
  return {later, other_tables, other_code};
}

}  // namespace desktop
