// SPDX-License-Identifier: MIT
#include "desktop/about.h"

#include <wx/bmpbndl.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/stc/stc.h>
#include <wx/textctrl.h>
#include <wx/utils.h>
#include <wx/versioninfo.h>

#include "desktop/version.h"
#include "messages/text_number.h"
#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"
#include "wx/pictures.h"

namespace desktop {

namespace {

// Name and version of a library that the program runs with.
wxString Named(const wxVersionInfo& library) {
  return wxString::Format("%s %d.%d.%d", library.GetName(), library.GetMajor(), library.GetMinor(),
                          library.GetMicro());
}

// The parts of both programs with their versions, where they tell them, and their licences.
wxString Licences() {
  wxString text = wxString("OrvanaStudio formula editor ") + kVersion + ": MIT licence\n";
  text += Named(wxGetLibraryVersionInfo()) + ": wxWindows Library Licence 3.1\n";
  text += wx::NativeParts() + "\n";
  text += Named(wxStyledTextCtrl::GetLibraryVersionInfo()) +
          ", Lexilla: Historical Permission Notice and Disclaimer\n";
  text += "NanoSVG: zlib licence\n";
  text += "libstdc++: GNU GPL 3 with the runtime library exception\n";
  text += "JSON for Modern C++ (command line): MIT licence";
  return text;
}

}  // namespace

void ShowAboutBox(wxWindow* parent, const texts::TextTable& texts) {
  const auto text = [&](messages::TextNumber number) { return wx::ToLabel(texts.Text(number)); };
  wxDialog dialog(parent, wxID_ANY, wx::ToWx(texts.Text(studio::kTextAboutTitle)),
                  wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  const int gap = dialog.FromDIP(12);
  auto* name = new wxStaticText(&dialog, wxID_ANY, text(studio::kTextProduct));
  name->SetFont(name->GetFont().Bold().Scaled(1.3f));
  auto* lines = new wxBoxSizer(wxVERTICAL);
  lines->Add(name);
  lines->Add(new wxStaticText(
      &dialog, wxID_ANY,
      wx::ToLabel(texts.Text(studio::kTextAboutVersion, {{"<Version>", kVersion}}))));
  lines->Add(new wxStaticText(&dialog, wxID_ANY, text(studio::kTextAboutDescription)));
  auto* head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(new wxStaticBitmap(&dialog, wxID_ANY, wx::Picture("program", 64)),
            wxSizerFlags().Border(wxRIGHT, gap));
  head->Add(lines, wxSizerFlags(1).CentreVertical());

  auto* licences = new wxTextCtrl(&dialog, wxID_ANY, Licences(), wxDefaultPosition,
                                  dialog.FromDIP(wxSize(520, 200)), wxTE_MULTILINE | wxTE_READONLY);
  auto* label = new wxStaticText(&dialog, wxID_ANY, wx::ToWx(texts.Text(studio::kTextLicences)));
  wx::SetAccessibleName(*licences, label->GetLabelText());
  auto* close = new wxButton(&dialog, wxID_CANCEL, wx::ToWx(texts.Text(studio::kTextClose)));
  close->SetDefault();
  close->SetFocus();

  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(head, wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(label, wxSizerFlags().Border(wxLEFT | wxRIGHT, gap));
  all->Add(licences, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  all->Add(close, wxSizerFlags().Right().Border(wxALL, gap));
  dialog.SetSizerAndFit(all);
  dialog.CentreOnParent();
  dialog.ShowModal();
}

}  // namespace desktop
