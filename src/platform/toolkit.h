// SPDX-License-Identifier: MIT
// What the system asks of a user-interface toolkit: showing forms (models without a toolkit, see
// forms/) and the few modal questions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/studio.h"

namespace forms {
class Form;
class Band;
struct Font;
}  // namespace forms

namespace platform {

enum class MessageButtons { kOk = 0, kOkCancel = 1, kYesNoCancel = 3, kYesNo = 4 };
enum class MessageResult { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };
enum class MessageIcon { kNone, kInformation, kQuestion, kWarning, kError };
enum class Pointer { kDefault = 0, kHourglass = 11 };

struct MessageBox {
  std::string prompt;
  std::string detail;  // an additional line in smaller type, may be empty
  std::string title;   // empty: the application's title
  MessageButtons buttons = MessageButtons::kOk;
  MessageResult default_button = MessageResult::kOk;
  MessageIcon icon = MessageIcon::kNone;
  std::string yes = {}, no = {};  // labels of these buttons, empty: "Yes" and "No"
};

// How far a long task is, with a way to stop it. It ends with the object.
class Progress {
 public:
  virtual ~Progress() = default;
  // Says that `done` of `total` steps are done; false when the user wants it to stop.
  virtual bool Show(std::size_t done, std::size_t total) = 0;
};

// The toolkit never owns a form; a form outlives its showing.
class Toolkit {
 public:
  virtual ~Toolkit() = default;
  // Builds the native window of a form without showing it; unload destroys it.
  virtual void Load(forms::Form& form) = 0;
  virtual void Unload(forms::Form& form) = 0;
  // Shows and returns when the form is hidden. The studio's window is disabled meanwhile.
  virtual void ShowModal(forms::Form& form, forms::Form* owner) = 0;
  virtual void ShowModeless(forms::Form& form) = 0;
  virtual WindowHandle Handle(forms::Form& form) = 0;
  virtual MessageResult Show(const MessageBox& box) = 0;
  // The font the user chose; nothing when cancelled.
  virtual std::optional<forms::Font> ChooseFont(const forms::Font& current) = 0;
  // Pops the band up at the mouse; returns after the menu closed. A click is reported through
  // the band's menu control.
  virtual void PopupMenu(forms::Band& band) = 0;
  // Each hourglass is ended by one default pointer.
  virtual void SetPointer(Pointer pointer) = 0;
  // Progress of a task that begins now; it is shown once the user has waited for a second.
  virtual std::unique_ptr<Progress> StartProgress(std::string_view task) = 0;
  virtual void Beep() = 0;
  // The text of the clipboard; "" when there is none.
  virtual void SetClipboardText(std::string_view text) = 0;
  virtual std::string ClipboardText() = 0;
  // The same with a text of our own beside it, which other programs do not see; "" when whoever
  // filled the clipboard last gave it none.
  virtual void SetClipboard(std::string_view text, std::string_view own) = 0;
  virtual std::string OwnClipboardText() = 0;
  // Runs the task from the message loop, behind the events that are queued now.
  virtual void CallLater(std::function<void()> task) = 0;
  // Sends a keystroke such as "{F1}" to the active form.
  virtual void SendKeys(std::string_view keys) = 0;
};

}  // namespace platform
