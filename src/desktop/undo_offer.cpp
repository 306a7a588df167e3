// SPDX-License-Identifier: MIT
#include "desktop/undo_offer.h"

#include <wx/dcclient.h>
#include <wx/statusbr.h>

#include "desktop/crash_log.h"
#include "desktop/link_colour.h"
#include "desktop/pane_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr int kGap = 12;  // pixels at 100 %

}  // namespace

UndoOffer::UndoOffer(wxFrame& frame, const texts::TextTable& texts, const WindowMessages& messages)
    : frame_(frame), texts_(texts), messages_(messages) {}

void UndoOffer::Serve(project::Project* opened, ProjectUndo* undo) {
  project_ = opened;
  undo_ = undo;
  Hide();
}

// What an operation says of itself stands; of the others the history knows the title.
void UndoOffer::Look() {
  if (!project_ || project_->unit().IsOpen()) return;
  const wxString before = said_;
  said_ = frame_.GetStatusBar()->GetStatusText();
  const auto done = project_->history().TakeDone();
  if (!done) {
    if (said_ != before) Hide();
    return;
  }
  if (said_ == before || said_.empty()) {
    messages_.Status(texts_.Text(kTextDone, {{"<Title>", texts_.Sentence(done->title)}}));
    said_ = frame_.GetStatusBar()->GetStatusText();
  }
  number_ = done->number;
  Show();
}

void UndoOffer::Show() {
  wxStatusBar& bar = *frame_.GetStatusBar();
  if (!link_) {
    link_ = new wxGenericHyperlinkCtrl(&bar, wxID_ANY, wx::ToWx(texts_.Text(kTextUndoLink)),
                                       "undo:", wxDefaultPosition, wxDefaultSize,
                                       wxHL_ALIGN_LEFT | wxBORDER_NONE);
    link_->SetCanFocus(false);  // the keyboard stays where the user works
    const wxColour ink = LinkColour();
    link_->SetNormalColour(ink);
    link_->SetVisitedColour(ink);
    link_->SetHoverColour(ink);
    link_->Bind(wxEVT_HYPERLINK, [this](wxHyperlinkEvent&) {
      RememberStep("undo link");
      Hide();
      if (undo_) undo_->Undo(number_);
    });
  }
  wxRect field;
  bar.GetFieldRect(0, field);
  const wxSize size = link_->GetBestSize();
  const int gap = frame_.FromDIP(kGap);
  const int room = field.GetWidth() - size.GetWidth() - 2 * gap;
  if (bar.GetTextExtent(said_).GetWidth() > room) {  // the list of messages has all of it
    bar.SetStatusText(wxControl::Ellipsize(said_, wxClientDC(&bar), wxELLIPSIZE_END, room));
    said_ = bar.GetStatusText();
  }
  const int left = field.GetLeft() + bar.GetTextExtent(said_).GetWidth() + gap;
  const int top = field.GetTop() + (field.GetHeight() - size.GetHeight()) / 2;
  link_->SetSize(left, top, size.GetWidth(), size.GetHeight());
  link_->Show();
}

void UndoOffer::Hide() {
  if (link_) link_->Hide();
}

}  // namespace desktop
