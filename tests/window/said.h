// SPDX-License-Identifier: MIT
#pragma once

#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/textctrl.h>

#include <string>
#include <vector>

namespace window_tests {

// What the dialogs said that were opened, and what stood in the fields of the last one.
class Said : public wxModalDialogHook {
 public:
  Said() { Register(); }
  ~Said() override { Unregister(); }
  std::vector<std::string> texts, captions;
  std::vector<wxWindow*> parents;
  std::vector<std::string> fields;

 private:
  struct Caption : wxMessageDialog {
    using wxMessageDialog::m_caption;
  };

  int Enter(wxDialog* dialog) override {
    parents.push_back(dialog->GetParent());
    const auto* box = dynamic_cast<wxMessageDialog*>(dialog);
    texts.push_back(box ? (box->GetMessage() + "\n" + box->GetExtendedMessage()).utf8_string()
                        : "");
    captions.push_back(box ? (box->*&Caption::m_caption).utf8_string() : "");
    return wxID_NONE;
  }
  void Exit(wxDialog* dialog) override {
    fields.clear();
    AddFields(*dialog);
  }
  void AddFields(const wxWindow& window) {
    for (wxWindow* child : window.GetChildren()) {
      if (auto* field = dynamic_cast<wxTextEntry*>(child); field && child->IsShown())
        fields.push_back(field->GetValue().utf8_string());
      else
        AddFields(*child);
    }
  }
};

}  // namespace window_tests
