// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/lower_pane.h"
#include "desktop/message_log.h"
#include "desktop/place_table.h"

class wxTextCtrl;

namespace desktop {

// What the window said, the newest first, and the whole text of the selected message.
class MessagePane : public LowerPane {
 public:
  MessagePane(wxWindow* parent, const texts::TextTable& texts);

  // The log outlives the pane.
  void Serve(MessageLog& log);
  // Opens it with the newest message selected.
  void ShowNewest();

 private:
  void Fill();
  void ShowSelected();

  const MessageLog* log_ = nullptr;
  PlaceTable* table_;
  wxTextCtrl* text_;
};

}  // namespace desktop
