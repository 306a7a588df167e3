// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>
#include <wx/weakref.h>

#include <functional>
#include <map>
#include <string>

namespace desktop {

// Lines of text below the panes, each about a state of the project, with an action that the user
// may take or put off. Hidden while there is none.
class NoticeBar : public wxPanel {
 public:
  enum class Kind { kReadOnly, kNoCode, kForeignChange, kOutOfStep };
  struct Notice {
    std::string text;
    std::string action;               // the label of its button
    std::function<void()> on_action;  // the line goes before it
  };

  NoticeBar(wxWindow* parent, const wxString& later);

  // Takes the place of one of the same kind.
  void Tell(Kind kind, const Notice& notice);
  void Dismiss(Kind kind);
  // The project goes: an action that was chosen for it is not carried out any more.
  void DismissAll();
  bool Tells(Kind kind) const { return lines_.contains(kind); }

  // After the bar became higher or lower.
  std::function<void()> on_height;

 private:
  void Remove(Kind kind);
  void Arrange();

  const wxString later_;
  std::map<Kind, wxPanel*> lines_;
  int project_ = 0;            // that the lines are about: one more each time all of them go
  wxWeakRef<wxWindow> focus_;  // that had the keyboard before
};

}  // namespace desktop
