// SPDX-License-Identifier: MIT
#include "desktop/lower_pane.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "messages/text_number.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kGap = 6;  // pixels at 100 %

}  // namespace

LowerPane::LowerPane(wxWindow* parent, const texts::TextTable& texts)
    : wxPanel(parent),
      texts_(texts),
      title_(new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      head_(new wxBoxSizer(wxHORIZONTAL)) {
  auto* all = new wxBoxSizer(wxVERTICAL);
  head_->Add(title_, wxSizerFlags(1).CentreVertical().Border(wxLEFT, FromDIP(kGap)));
  all->Add(head_, wxSizerFlags().Expand());
  SetSizer(all);
  AddButton(studio::kTextClose, [this] { Close(); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (!HandleKey(event)) event.Skip();
  });
  Hide();
}

wxButton* LowerPane::AddButton(messages::TextNumber text, std::function<void()> action) {
  auto* button = new wxButton(this, wxID_ANY, wx::ToWx(texts_.Text(text)));
  button->Bind(wxEVT_BUTTON, [action = std::move(action)](wxCommandEvent&) { action(); });
  const std::size_t buttons = head_->GetItemCount() - 1;
  head_->Insert(buttons == 0 ? 1 : buttons, button,
                wxSizerFlags().Border(wxALL, FromDIP(kGap) / 2));
  return button;
}

void LowerPane::SetContent(wxWindow& content, int height) {
  content.SetMinSize(wxSize(-1, FromDIP(height)));
  GetSizer()->Add(&content, wxSizerFlags(1).Expand());
}

void LowerPane::SetFields(wxWindow& fields, int border) {
  GetSizer()->Add(&fields, wxSizerFlags().Expand().Border(wxALL, FromDIP(border)));
}

void LowerPane::SetTitle(const std::string& title) { title_->SetLabel(wx::ToLabel(title)); }

bool LowerPane::HandleKey(const wxKeyEvent& event) {
  if (event.GetKeyCode() != WXK_ESCAPE) return false;
  Close();
  return true;
}

void LowerPane::Open() {
  Show();
  Layout();
  if (on_visible) on_visible();
}

void LowerPane::Close() {
  if (!IsShown()) return;
  const bool had_keyboard = IsDescendant(FindFocus());
  Hide();
  if (on_visible) on_visible();
  if (had_keyboard && on_close) on_close();
}

}  // namespace desktop
