// SPDX-License-Identifier: MIT
#include "desktop/welcome.h"

#include <wx/button.h>
#include <wx/filename.h>
#include <wx/hyperlink.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "messages/text_number.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kScrollStep = 10;
constexpr int kMargin = 12;

}  // namespace

Welcome::Welcome(wxWindow* parent, const texts::TextTable& texts)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL),
      texts_(texts),
      buttons_(new wxBoxSizer(wxHORIZONTAL)),
      recent_(new wxBoxSizer(wxVERTICAL)) {
  SetScrollRate(0, FromDIP(kScrollStep));
  AddButton(studio::kTextMenuOpen, on_open);
  AddButton(studio::kTextMenuNew, on_new);
  auto* text = new wxStaticText(this, wxID_ANY, wx::ToLabel(texts.Text(studio::kTextWelcome)));
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->AddStretchSpacer();
  sizer->Add(text, wxSizerFlags().CentreHorizontal().Border(wxALL, FromDIP(kMargin)));
  sizer->Add(buttons_, wxSizerFlags().CentreHorizontal());
  sizer->Add(recent_, wxSizerFlags().CentreHorizontal().Border(wxALL, FromDIP(2 * kMargin)));
  sizer->AddStretchSpacer();
  SetSizer(sizer);
}

void Welcome::AddButton(messages::TextNumber text, std::function<void()>& action) {
  auto* button = new wxButton(this, wxID_ANY, wx::ToWx(texts_.Text(text)));
  button->Bind(wxEVT_BUTTON, [&action](wxCommandEvent&) { action(); });
  buttons_->Add(button, wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(kMargin / 2)));
}

void Welcome::ShowRecent(const std::vector<std::string>& paths) {
  recent_->Clear(true);
  auto* heading =
      new wxStaticText(this, wxID_ANY,
                       wx::ToLabel(texts_.Text(paths.empty() ? studio::kTextNoProjectYet
                                                             : studio::kTextRecentProjects)));
  if (!paths.empty()) heading->SetFont(heading->GetFont().Bold());
  recent_->Add(heading, wxSizerFlags().Border(wxBOTTOM, FromDIP(kMargin / 2)));
  for (const std::string& path : paths) AddLink(path);
  FitInside();
  Layout();
}

// The file, and where it is.
void Welcome::AddLink(const std::string& path) {
  const wxFileName file(wx::ToWx(path));
  auto* link = new wxHyperlinkCtrl(this, wxID_ANY, wx::ToLabel(wx::FromWx(file.GetFullName())),
                                   wx::ToWx(path), wxDefaultPosition, wxDefaultSize,
                                   wxHL_ALIGN_LEFT | wxBORDER_NONE);
  link->Bind(wxEVT_HYPERLINK, [this, path](wxHyperlinkEvent&) {
    CallAfter([this, path] { on_recent(path); });  // the links may be made anew
  });
  auto* folder = new wxStaticText(this, wxID_ANY, wx::ToLabel(wx::FromWx(file.GetPath())));
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(link, wxSizerFlags().CentreVertical());
  line->Add(folder, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(kMargin / 2)));
  recent_->Add(line);
}

}  // namespace desktop
