// SPDX-License-Identifier: MIT
#include "desktop/place_list.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

#include "studio/window_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

using studio::TextNumber;

constexpr std::size_t kMaxRows = 6;  // in sight
constexpr int kRowSpace = 8;         // pixels at 100 % around a row's text

}  // namespace

PlaceList::PlaceList(wxWindow* parent, const texts::TextTable& texts)
    : wxPanel(parent),
      texts_(texts),
      title_(new wxStaticText(this, wxID_ANY, wxString())),
      list_(new wxListBox(this, wxID_ANY)) {
  auto* close = new wxButton(this, wxID_ANY, wx::ToWx(texts.Text(TextNumber::kTextClose)));
  close->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ShowPlaces({}); });
  wx::SetAccessibleName(*list_, wx::ToWx(texts.Text(TextNumber::kTextPlaces)));
  list_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { Choose(false); });
  list_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { Choose(true); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE) return ShowPlaces({});
    if (event.GetKeyCode() == WXK_RETURN && list_->HasFocus()) return Choose(true);
    event.Skip();
  });
  const int margin = FromDIP(6);
  auto* head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(title_, wxSizerFlags(1).CentreVertical().Border(wxLEFT, margin));
  head->Add(close, wxSizerFlags().Border(wxALL, margin / 2));
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(head, wxSizerFlags().Expand());
  all->Add(list_, wxSizerFlags(1).Expand());
  SetSizer(all);
  Hide();
}

void PlaceList::ShowPlaces(std::vector<platform::Notice> places) {
  if (places.empty() && !IsShown()) return;
  places_ = std::move(places);
  const std::size_t rows = std::min(places_.size(), kMaxRows);
  wxArrayString lines;
  for (const platform::Notice& place : places_) lines.Add(wx::ToWx(place.text));
  list_->Set(lines);
  list_->SetMinSize(
      wxSize(-1, static_cast<int>(rows) * (GetCharHeight() + FromDIP(kRowSpace)) + FromDIP(6)));
  title_->SetLabel(wx::ToLabel(
      texts_.Text(TextNumber::kTextPlacesFound, {{"<Count>", std::to_string(places_.size())}})));
  Show(!places_.empty());
  if (on_height) on_height();
}

void PlaceList::Choose(bool enter) {
  const int place = list_->GetSelection();
  if (place == wxNOT_FOUND || !on_place) return;
  on_place(platform::Notice(places_[static_cast<std::size_t>(place)]), enter);
}

}  // namespace desktop
