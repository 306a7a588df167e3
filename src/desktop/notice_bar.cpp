// SPDX-License-Identifier: MIT
#include "desktop/notice_bar.h"

#include <wx/button.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace desktop {

NoticeBar::NoticeBar(wxWindow* parent, const wxString& action, const wxString& later)
    : wxPanel(parent), text_(new wxStaticText(this, wxID_ANY, wxString())) {
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK));
  text_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOTEXT));
  auto* act = new wxButton(this, wxID_ANY, action);
  auto* put_off = new wxButton(this, wxID_ANY, later);
  act->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    Dismiss();
    if (on_action) on_action();
  });
  put_off->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Dismiss(); });
  const int margin = FromDIP(6);
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(text_, wxSizerFlags(1).CentreVertical().Border(wxLEFT | wxRIGHT, 2 * margin));
  sizer->Add(act, wxSizerFlags().Border(wxTOP | wxBOTTOM | wxRIGHT, margin));
  sizer->Add(put_off, wxSizerFlags().Border(wxTOP | wxBOTTOM | wxRIGHT, margin));
  SetSizer(sizer);
  Hide();
}

void NoticeBar::Tell(const wxString& text) {
  focus_ = FindFocus();
  text_->SetLabel(text);
  Show();
  GetParent()->Layout();
}

void NoticeBar::Dismiss() {
  if (!IsShown()) return;
  if (IsDescendant(FindFocus()) && focus_) focus_->SetFocus();
  Hide();
  GetParent()->Layout();
}

}  // namespace desktop
