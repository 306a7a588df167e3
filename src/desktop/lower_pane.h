// SPDX-License-Identifier: MIT
#pragma once

#include <wx/panel.h>

#include <functional>
#include <string>

#include "messages/text_number.h"
#include "texts/text_table.h"

class wxBoxSizer;
class wxButton;
class wxStaticText;

namespace desktop {

// A pane below tree, table and code, which its user opens and closes: a title with buttons, below
// it whatever it shows. Escape closes it. Hidden until it is opened.
class LowerPane : public wxPanel {
 public:
  // The texts outlive the pane.
  LowerPane(wxWindow* parent, const texts::TextTable& texts);

  void Open();
  virtual void Close();

  std::function<void()> on_close;    // it had the keyboard
  std::function<void()> on_visible;  // after it was opened or closed

 protected:
  // The name of a button is its text. Buttons stand left of "Close" in the order they come.
  wxButton* AddButton(messages::TextNumber text, std::function<void()> action);
  void SetContent(wxWindow& content, int height);
  // Stands between the title and the content.
  void SetFields(wxWindow& fields, int border);
  void SetTitle(const std::string& title);
  // True when the key was one of the pane's.
  virtual bool HandleKey(const wxKeyEvent& event);
  const texts::TextTable& texts() const { return texts_; }

 private:
  const texts::TextTable& texts_;
  wxStaticText* title_;
  wxBoxSizer* head_;
};

}  // namespace desktop
