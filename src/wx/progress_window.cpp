// SPDX-License-Identifier: MIT
#include "wx/progress_window.h"

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "messages/text_number.h"
#include "wx/convert.h"

namespace wx {

namespace {

constexpr messages::TextNumber kCancel{11};
constexpr messages::TextNumber kDoneOfTotal{1493};
constexpr long kUpdateMs = 50;
constexpr int kSteps = 1000;  // of the gauge
constexpr int kWidth = 360;
constexpr int kMargin = 12;

}  // namespace

ProgressWindow::ProgressWindow(const texts::TextTable& texts, wxWindow* owner, std::string task,
                               long delay_ms)
    : texts_(texts), owner_(owner), task_(std::move(task)), delay_ms_(delay_ms) {}

ProgressWindow::~ProgressWindow() {
  others_.reset();
  if (!dialog_) return;
  dialog_->Hide();
  dialog_->Destroy();
  if (focus_) focus_->SetFocus();
}

void ProgressWindow::Open() {
  dialog_ = new wxDialog(owner_, wxID_ANY, ToWx(task_), wxDefaultPosition, wxDefaultSize,
                         wxDEFAULT_DIALOG_STYLE & ~wxCLOSE_BOX);
  text_ = new wxStaticText(dialog_, wxID_ANY, wxString());
  gauge_ = new wxGauge(dialog_, wxID_ANY, kSteps);
  gauge_->SetMinSize(dialog_->FromDIP(wxSize(kWidth, -1)));
  auto* cancel = new wxButton(dialog_, wxID_CANCEL, ToWx(texts_.Text(kCancel)));
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  const int margin = dialog_->FromDIP(kMargin);
  sizer->Add(text_, wxSizerFlags().Expand().Border(wxALL, margin));
  sizer->Add(gauge_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, margin));
  sizer->Add(cancel, wxSizerFlags().Right().Border(wxALL, margin));
  dialog_->SetSizerAndFit(sizer);
  dialog_->CentreOnParent();
  cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { stopped_ = true; });
  dialog_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { stopped_ = true; });
  focus_ = wxWindow::FindFocus();  // is lost by the disabling
  dialog_->Show();
  others_ = std::make_unique<wxWindowDisabler>(dialog_);
  cancel->SetFocus();
}

void ProgressWindow::Update(std::size_t done, std::size_t total) {
  text_->SetLabel(ToLabel(texts_.Text(
      kDoneOfTotal, {{"<Done>", std::to_string(done)}, {"<Total>", std::to_string(total)}})));
  gauge_->SetValue(total == 0 ? 0 : static_cast<int>(done * kSteps / total));
}

bool ProgressWindow::Show(std::size_t done, std::size_t total) {
  const long now = since_start_.Time();
  if (stopped_ || now < delay_ms_ || (dialog_ && now - shown_at_ < kUpdateMs)) return !stopped_;
  shown_at_ = now;
  if (!dialog_) Open();
  Update(done, total);
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive()) {
    loop->YieldFor(wxEVT_CATEGORY_UI | wxEVT_CATEGORY_USER_INPUT);
  }
  return !stopped_;
}

}  // namespace wx
