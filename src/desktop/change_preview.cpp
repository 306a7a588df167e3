// SPDX-License-Identifier: MIT
#include "desktop/change_preview.h"

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "desktop/change_view.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kWidth = 760, kHeight = 460;  // pixels at 100 %
constexpr int kGap = 8;
constexpr int kCancelText = 11;

}  // namespace

bool ConfirmChange(wxWindow* parent, const texts::TextTable& texts, const Preview& change) {
  wxDialog dialog(parent, wxID_ANY, wx::ToWx(change.title), wxDefaultPosition, wxDefaultSize,
                  wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  const int gap = dialog.FromDIP(kGap);
  auto* preview = new ChangeView(&dialog, change.heading, texts);
  preview->ShowText(change.text);
  auto* replace = new wxButton(&dialog, wxID_OK, wx::ToWx(change.action));
  auto* cancel = new wxButton(&dialog, wxID_CANCEL, wx::ToWx(texts.Text(kCancelText)));
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(replace, wxSizerFlags().Border(wxRIGHT, gap));
  buttons->Add(cancel);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(new wxStaticText(&dialog, wxID_ANY, wx::ToLabel(change.heading)),
           wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(preview, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  all->Add(buttons, wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(all);
  dialog.SetSize(dialog.FromDIP(wxSize(kWidth, kHeight)));
  dialog.CentreOnParent();
  replace->SetDefault();
  replace->SetFocus();
  return dialog.ShowModal() == wxID_OK;
}

}  // namespace desktop
