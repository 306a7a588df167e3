// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "dialogs/dialog_context.h"
#include "forms/fields.h"
#include "forms/form.h"
#include "messages/text_number.h"

namespace dialogs {

// Help topics of the dialogs: those of the tree nodes whose objects they edit.
inline constexpr std::int32_t kEditorHelpTopic = 90002;
inline constexpr std::int32_t kOptionsHelpTopic = 90004;
inline constexpr std::int32_t kFormulaHelpTopic = 90024;
inline constexpr std::int32_t kArgumentHelpTopic = 90025;
inline constexpr std::int32_t kAliasHelpTopic = 90030;
inline constexpr std::int32_t kChooseAliasHelpTopic = 90031;
inline constexpr std::int32_t kListsHelpTopic = 90071;

// What the modal dialogs share: OK, Cancel and Help, captions in the current language, and the
// answer. A dialog lives for one operation; it may be shown again with what the user entered.
class DialogForm : public forms::Form {
 public:
  DialogForm(std::string_view name, const DialogContext& context, std::int32_t help_topic);

  // Shows the dialog until it is closed. Whether it was confirmed.
  bool Run();
  // Everything but OK is Cancel, the close box too.
  bool Cancelled() const { return cancelled_; }

 protected:
  // In the workbench the title says what the dialog does; in the studio it is the form's own.
  void SayWhat(messages::TextNumber title, std::string_view name = {});
  // Called by the constructor of each dialog, which declares its buttons last: the order of
  // declaration is the tab order.
  void WireButtons(forms::Button& ok, forms::Button& cancel, forms::Button& help);
  // What OK does; the default confirms.
  virtual void Accept() { Confirm(); }
  void Confirm();
  // Says why a field cannot be stored as it is, marks it and gives it the keyboard.
  void Refuse(forms::Control& field, std::string_view prompt, std::string_view detail);
  // An explanation below a field; "" for none.
  static void ShowHint(forms::Label& hint, std::string_view text);

  const DialogContext& context() const { return context_; }
  std::string Text(messages::TextNumber number) const { return context_.Text(number); }

 private:
  void Dismiss();

  const DialogContext& context_;
  bool cancelled_ = true;
};

}  // namespace dialogs
