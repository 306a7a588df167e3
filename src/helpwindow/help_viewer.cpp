// SPDX-License-Identifier: MIT
#include "helpwindow/help_viewer.h"

#include "wx/application.h"
#include "wx/native.h"

namespace helpwindow {

HelpViewer::HelpViewer(const texts::TextTable& texts) : texts_(texts), book_(texts.GetLanguage()) {}

void HelpViewer::SetHelpFile(std::string_view) {}

void HelpViewer::ShowTopic(platform::WindowHandle, std::int32_t topic) {
  if (!frame_) frame_ = new HelpFrame(wxTheApp->GetTopWindow(), book_, texts_);
  frame_->ShowPage(topic);
  if (frame_->IsIconized()) frame_->Iconize(false);
  if (!frame_->IsShown()) wx::LayOutBeforeShow(*frame_);
  frame_->Show();
  frame_->Raise();
}

}  // namespace helpwindow
