// SPDX-License-Identifier: MIT
#include "desktop/window_messages.h"

#include "wx/convert.h"

namespace desktop {

void WindowMessages::Status(const std::string& text) const {
  frame_.SetStatusText(wx::ToWx(text));
  log_.Add(text);
}

void WindowMessages::Warn(const std::string& message, const std::string& detail) const {
  log_.Add(message + (detail.empty() ? "" : "\n" + detail));
  parts_.toolkit.Show({message, detail, "", platform::MessageButtons::kOk,
                       platform::MessageResult::kOk, platform::MessageIcon::kWarning});
}

void WindowMessages::Fail(const std::string& message, const std::string& detail) const {
  log_.Add(message + (detail.empty() ? "" : "\n" + detail));
  parts_.toolkit.Show({message, detail, "", platform::MessageButtons::kOk,
                       platform::MessageResult::kOk, platform::MessageIcon::kError});
}

bool WindowMessages::Ask(const std::string& question, const std::string& detail,
                         platform::MessageIcon icon) const {
  return parts_.toolkit.Show({question, detail, "", platform::MessageButtons::kYesNo,
                              platform::MessageResult::kNo, icon}) == platform::MessageResult::kYes;
}

}  // namespace desktop
