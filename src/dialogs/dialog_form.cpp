// SPDX-License-Identifier: MIT
#include "dialogs/dialog_form.h"

#include "messages/text_number.h"

namespace dialogs {

DialogForm::DialogForm(std::string_view name, const DialogContext& context, std::int32_t help_topic)
    : Form(name), context_(context) {
  SetHelpContextId(help_topic);
  on_load = [this] {
    forms::LocaliseCaptions(*this, [this](messages::TextNumber number) { return Text(number); });
  };
  on_query_unload = [this](bool& cancel, forms::CloseReason reason) {
    if (reason != forms::CloseReason::kUser) return;
    cancel = true;
    Dismiss();
  };
  on_help = [this] {
    if (context_.help) {
      context_.help->ShowTopic(context_.toolkit.Handle(*this), HelpContextId());
    }
  };
}

bool DialogForm::Run() {
  cancelled_ = true;
  context_.toolkit.ShowModal(*this, context_.owner);
  context_.toolkit.Unload(*this);
  return !cancelled_;
}

void DialogForm::SayWhat(messages::TextNumber title, std::string_view name) {
  if (!context_.in_workbench) return;
  SetTag("");
  SetCaption(context_.texts.Text(title, {{"<Name>", std::string(name)}}));
}

void DialogForm::WireButtons(forms::Button& ok, forms::Button& cancel, forms::Button& help) {
  ok.SetTag("C10");
  ok.SetDefault(true);
  ok.on_click = [this] { Accept(); };
  cancel.SetTag("C11");
  cancel.SetCancel(true);
  cancel.on_click = [this] { Dismiss(); };
  help.SetTag("C12");
  help.on_click = [this] { context_.toolkit.SendKeys("{F1}"); };
}

void DialogForm::Confirm() {
  cancelled_ = false;
  Hide();
}

void DialogForm::Refuse(forms::Control& field, std::string_view prompt, std::string_view detail) {
  field.SetInvalid(true);
  context_.messages.Warn(prompt, detail);
  field.SetFocus();
}

void DialogForm::ShowHint(forms::Label& hint, std::string_view text) {
  hint.SetCaption(text);
  hint.SetVisible(!text.empty());
}

void DialogForm::Dismiss() {
  cancelled_ = true;
  Hide();
}

}  // namespace dialogs
