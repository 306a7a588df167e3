// SPDX-License-Identifier: MIT
#include "desktop/status_row.h"

#include <wx/statusbr.h>

#include "desktop/frame_texts.h"
#include "messages/text_number.h"
#include "platform/error.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr auto kLongEnough = std::chrono::seconds(20);
constexpr int kCounts = 1;  // field
constexpr int kGap = 60;    // pixels at 100 %: the grip, and what separates the fields

// The text of one; the next is of several.
std::string Counted(const texts::TextTable& texts, messages::TextNumber text_of_one,
                    std::int32_t count) {
  return texts.Text(text_of_one + (count == 1 ? 0 : 1), {{"<Count>", std::to_string(count)}});
}

}  // namespace

StatusRow::StatusRow(wxFrame& frame, const texts::TextTable& texts) : frame_(frame), texts_(texts) {
  wxStatusBar& bar = *frame.CreateStatusBar(2);
  bar.Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent&) { on_open(); });
  ShowText(wxString());
}

void StatusRow::Look(store::Operations* operations, const std::optional<files::FileStamp>& stamp) {
  LetGo();
  if (!operations) {
    if (counted_) ShowText(wxString());
    counted_.reset();
    return;
  }
  if (counted_ && counted_ == stamp) return;
  try {
    ShowCounts(operations->Count());
    counted_ = stamp;
  } catch (const platform::Error&) {  // whose tables they are says why
  }
}

void StatusRow::LetGo() {
  const wxString said = frame_.GetStatusBar()->GetStatusText();
  const auto now = std::chrono::steady_clock::now();
  if (said != said_) {
    said_ = said;
    since_ = now;
  } else if (!said.empty() && now - since_ > kLongEnough) {
    frame_.SetStatusText(wxString());
    said_.clear();
  }
}

void StatusRow::ShowCounts(const store::Statistics& counts) {
  ShowText(wx::ToWx(Counted(texts_, kTextOneFormulaCounted, counts.formulas) + "  ·  " +
                    Counted(texts_, kTextOneArgumentCounted, counts.arguments) + "  ·  " +
                    Counted(texts_, kTextOneAliasCounted, counts.aliases)));
}

void StatusRow::ShowText(const wxString& text) {
  wxStatusBar& bar = *frame_.GetStatusBar();
  const int width = text.empty() ? 0 : bar.GetTextExtent(text).GetWidth() + frame_.FromDIP(kGap);
  const int widths[] = {-1, width};
  bar.SetStatusWidths(2, widths);
  bar.SetStatusText(text, kCounts);
}

}  // namespace desktop
