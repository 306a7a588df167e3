// SPDX-License-Identifier: MIT
#pragma once

#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <string>
#include <vector>

namespace window_tests {

// What the dialogs said that were opened.
class Said : public wxModalDialogHook {
 public:
  Said() { Register(); }
  ~Said() override { Unregister(); }
  std::vector<std::string> texts;

 private:
  int Enter(wxDialog* dialog) override {
    const auto* box = dynamic_cast<wxMessageDialog*>(dialog);
    texts.push_back(box ? (box->GetMessage() + "\n" + box->GetExtendedMessage()).utf8_string()
                        : "");
    return wxID_NONE;
  }
};

}  // namespace window_tests
