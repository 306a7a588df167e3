// SPDX-License-Identifier: MIT
#include "desktop/notice_bar.h"

#include <wx/button.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "wx/convert.h"

namespace desktop {

NoticeBar::NoticeBar(wxWindow* parent, const wxString& later) : wxPanel(parent), later_(later) {
  SetSizer(new wxBoxSizer(wxVERTICAL));
  Hide();
}

void NoticeBar::Tell(Kind kind, const Notice& notice) {
  Remove(kind);
  if (!IsShown()) focus_ = FindFocus();
  auto* line = new wxPanel(this);
  line->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK));
  auto* text = new wxStaticText(line, wxID_ANY, wx::ToLabel(notice.text), wxDefaultPosition,
                                wxDefaultSize, wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
  text->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOTEXT));
  text->SetToolTip(wx::ToWx(notice.text));
  auto* act = new wxButton(line, wxID_ANY, wx::ToWx(notice.action));
  auto* put_off = new wxButton(line, wxID_ANY, later_);
  // The line goes while its button handles the click.
  act->Bind(wxEVT_BUTTON, [this, kind, action = notice.on_action](wxCommandEvent&) {
    Dismiss(kind);
    CallAfter([this, action, project = project_] {
      if (project == project_) action();
    });
  });
  put_off->Bind(wxEVT_BUTTON, [this, kind](wxCommandEvent&) { Dismiss(kind); });
  const int margin = FromDIP(6);
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(text, wxSizerFlags(1).CentreVertical().Border(wxLEFT | wxRIGHT, 2 * margin));
  sizer->Add(act, wxSizerFlags().Border(wxTOP | wxBOTTOM | wxRIGHT, margin));
  sizer->Add(put_off, wxSizerFlags().Border(wxTOP | wxBOTTOM | wxRIGHT, margin));
  line->SetSizer(sizer);
  GetSizer()->Add(line, wxSizerFlags().Expand());
  lines_[kind] = line;
  Arrange();
}

void NoticeBar::Remove(Kind kind) {
  const auto found = lines_.find(kind);
  if (found == lines_.end()) return;
  wxPanel* line = found->second;
  lines_.erase(found);
  if (line->IsDescendant(FindFocus()) && focus_) focus_->SetFocus();
  line->Hide();
  GetSizer()->Detach(line);
  CallAfter([line] { line->Destroy(); });
}

void NoticeBar::Dismiss(Kind kind) {
  if (!Tells(kind)) return;
  Remove(kind);
  Arrange();
}

void NoticeBar::DismissAll() {
  ++project_;
  if (lines_.empty()) return;
  while (!lines_.empty()) Remove(lines_.begin()->first);
  Arrange();
}

void NoticeBar::Arrange() {
  Show(!lines_.empty());
  if (on_height) on_height();
}

}  // namespace desktop
