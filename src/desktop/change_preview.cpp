// SPDX-License-Identifier: MIT
#include "desktop/change_preview.h"

#include "desktop/text_dialog.h"
#include "messages/text_number.h"

namespace desktop {

namespace {
constexpr messages::TextNumber kCancelText{11};
}  // namespace

bool ConfirmChange(wxWindow* parent, const texts::TextTable& texts, const Preview& change) {
  TextDialog dialog(parent, texts, change.title, change.heading, change.text);
  wxButton* replace = dialog.AddButton(wxID_OK, change.action);
  dialog.AddButton(wxID_CANCEL, texts.Text(kCancelText));
  return dialog.Ask(replace) == wxID_OK;
}

}  // namespace desktop
