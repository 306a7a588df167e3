// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>
#include <wx/weakref.h>

#include <functional>

class wxStaticText;

namespace desktop {

// A line of text above the panes with an action that the user may take or put off. Hidden at first.
class NoticeBar : public wxPanel {
 public:
  NoticeBar(wxWindow* parent, const wxString& action, const wxString& later);

  void Tell(const wxString& text);
  void Dismiss();

  std::function<void()> on_action;  // the bar goes before it

 private:
  wxStaticText* text_;
  wxWeakRef<wxWindow> focus_;  // that had the keyboard before
};

}  // namespace desktop
