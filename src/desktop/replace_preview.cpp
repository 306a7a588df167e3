// SPDX-License-Identifier: MIT
#include "desktop/replace_preview.h"

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "desktop/search_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kWidth = 760, kHeight = 460;  // pixels at 100 %
constexpr int kGap = 8;
constexpr int kCancelText = 11;

}  // namespace

bool ConfirmReplacing(wxWindow* parent, const texts::TextTable& texts, const std::string& heading,
                      const std::string& lines) {
  wxDialog dialog(parent, wxID_ANY, wx::ToWx(texts.Text(kTextReplaceTitle)), wxDefaultPosition,
                  wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  const int gap = dialog.FromDIP(kGap);
  auto* preview = new wxTextCtrl(&dialog, wxID_ANY, wx::ToWx(lines), wxDefaultPosition,
                                 wxDefaultSize, wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  wxFont font = preview->GetFont();
  font.SetFamily(wxFONTFAMILY_TELETYPE);
  preview->SetFont(font);
  wx::SetAccessibleName(*preview, wx::ToWx(heading));
  auto* replace = new wxButton(&dialog, wxID_OK, wx::ToWx(texts.Text(kTextReplaceNow)));
  auto* cancel = new wxButton(&dialog, wxID_CANCEL, wx::ToWx(texts.Text(kCancelText)));
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(replace, wxSizerFlags().Border(wxRIGHT, gap));
  buttons->Add(cancel);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(new wxStaticText(&dialog, wxID_ANY, wx::ToLabel(heading)),
           wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(preview, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  all->Add(buttons, wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(all);
  dialog.SetSize(dialog.FromDIP(wxSize(kWidth, kHeight)));
  dialog.CentreOnParent();
  replace->SetDefault();
  replace->SetFocus();
  preview->ShowPosition(0);
  return dialog.ShowModal() == wxID_OK;
}

}  // namespace desktop
