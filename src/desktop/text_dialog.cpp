// SPDX-License-Identifier: MIT
#include "desktop/text_dialog.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "desktop/change_view.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kWidth = 760, kHeight = 460;  // pixels at 100 %
constexpr int kGap = 8;

}  // namespace

TextDialog::TextDialog(wxWindow* parent, const texts::TextTable& texts, const std::string& title,
                       const std::string& heading, const std::string& lines)
    : wxDialog(parent, wxID_ANY, wx::ToWx(title), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      buttons_(new wxBoxSizer(wxHORIZONTAL)) {
  const int gap = FromDIP(kGap);
  const int width = FromDIP(kWidth);
  auto* label = new wxStaticText(this, wxID_ANY, wx::ToLabel(heading));
  label->Wrap(width - 2 * gap);
  auto* view = new ChangeView(this, heading, texts);
  view->ShowText(lines);
  buttons_->AddStretchSpacer();
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(label, wxSizerFlags().Expand().Border(wxALL, gap));
  all->Add(view, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  all->Add(buttons_, wxSizerFlags().Expand().Border(wxALL, gap));
  SetSizer(all);
  SetSize(width, FromDIP(kHeight));
  CentreOnParent();
}

wxButton* TextDialog::AddButton(int id, const std::string& label) {
  auto* button = new wxButton(this, id, wx::ToWx(label));
  button->Bind(wxEVT_BUTTON, [this, id](wxCommandEvent&) { EndModal(id); });
  buttons_->Add(button, wxSizerFlags().Border(wxLEFT, FromDIP(kGap)));
  return button;
}

int TextDialog::Ask(wxButton* proposed) {
  Layout();
  proposed->SetDefault();
  proposed->SetFocus();
  return ShowModal();
}

}  // namespace desktop
