// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

#include <memory>
#include <vector>

#include "messages/text_number.h"
#include "platform/toolkit.h"
#include "wx/form_window.h"

namespace wx {

// Shows forms with wxWidgets. Window handles are those of WindowOfHandle.
class Toolkit : public platform::Toolkit {
 public:
  // The editor window's, as the studio shows it.
  static constexpr messages::TextNumber kEditorTitle{180};

  // `title`: what message boxes are called that have no title of their own, as the windows that
  // they come from are.
  explicit Toolkit(const texts::TextTable& texts, messages::TextNumber title = kEditorTitle);
  ~Toolkit() override;

  // The studio's window: owner of the windows that have no other.
  void SetMainWindow(wxWindow* window) { main_ = window; }
  // The form fills the host window instead of having a window of its own; before it is loaded.
  void Embed(forms::Form& form, wxWindow* host);
  // Menus of a loaded form; null when it has none or is not loaded.
  MenuBarView* MenusOf(forms::Form& form);
  // Window of a loaded form; null when it is not loaded.
  wxWindow* WindowOf(forms::Form& form);

  void Load(forms::Form& form) override;
  void Unload(forms::Form& form) override;
  void ShowModal(forms::Form& form, forms::Form* owner) override;
  void ShowModeless(forms::Form& form) override;
  platform::WindowHandle Handle(forms::Form& form) override;
  platform::MessageResult Show(const platform::MessageBox& box) override;
  std::optional<forms::Font> ChooseFont(const forms::Font& current) override;
  void PopupMenu(forms::Band& band) override;
  void SetPointer(platform::Pointer pointer) override;
  std::unique_ptr<platform::Progress> StartProgress(std::string_view task) override;
  void Beep() override;
  void SetClipboardText(std::string_view text) override;
  std::string ClipboardText() override;
  void SetClipboard(std::string_view text, std::string_view own) override;
  std::string OwnClipboardText() override;
  void CallLater(std::function<void()> task) override;
  void SendKeys(std::string_view keys) override;

 protected:
  // The window that a form's window belongs to, which has the keyboard again afterwards: that of
  // `owner` when it is in sight, otherwise the active one.
  virtual wxWindow* OwnerOf(forms::Form* owner);

 private:
  FormWindow* Find(const forms::Form& form) const;
  FormWindow& Open(forms::Form& form, forms::Form* owner);
  // The window that has the user's attention now.
  wxWindow* ActiveWindow() const;

  const texts::TextTable& texts_;
  const messages::TextNumber title_;
  wxWindow* main_ = nullptr;
  struct Host {
    forms::Form* form;
    wxWindow* window;
  };
  std::vector<Host> hosts_;
  std::vector<std::unique_ptr<FormWindow>> windows_;
};

// A window as a handle and back; null for a handle that is no window that lives.
platform::WindowHandle HandleOf(wxWindow* window);
wxWindow* WindowOfHandle(platform::WindowHandle handle);

}  // namespace wx
