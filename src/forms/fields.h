// SPDX-License-Identifier: MIT
// The plain controls of a dialog. Setting a value by program raises the same event as the user's
// input does, once and only when the value differs.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "forms/control.h"
#include "forms/keys.h"

namespace forms {

// A text. Its mnemonic moves to the next control of the container that can take the keyboard.
class Label : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  // An explanation below or beside a field: smaller, grey, wrapped.
  bool Hint() const { return hint_; }
  void SetHint(bool hint) { hint_ = hint; }

 private:
  bool hint_ = false;
};

class Frame : public Container {
 public:
  using Container::Container;
};

class TextBox : public Control {
 public:
  using Control::Control;

  const std::string& Text() const { return text_; }
  void SetText(std::string_view text);

  // Greatest number of characters that the user can type; 0 for no limit.
  std::int32_t MaxLength() const { return max_length_; }
  void SetMaxLength(std::int32_t characters) { max_length_ = characters; }
  bool MultiLine() const { return multi_line_; }
  void SetMultiLine(bool multi_line) { multi_line_ = multi_line; }
  bool Locked() const { return locked_; }  // shown, not edited
  void SetLocked(bool locked) { locked_ = locked; }
  // Grey text shown while the box is empty.
  const std::string& Placeholder() const { return placeholder_; }
  void SetPlaceholder(std::string_view text) { placeholder_ = text; }

  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;

  std::function<void()> on_change;
  std::function<void(KeyEvent&)> on_key_down;
  std::function<void()> on_got_focus;
  std::function<void()> on_lost_focus;

 private:
  std::string text_;
  std::int32_t max_length_ = 0;
  bool multi_line_ = false;
  bool locked_ = false;
  std::string placeholder_;
};

class CheckBox : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  bool Checked() const { return checked_; }
  void SetChecked(bool checked);

  // Value is 1 or 0.
  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;

  std::function<void()> on_click;

 private:
  bool checked_ = false;
};

class Button : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  // Enter anywhere on the form clicks the default button, Esc the cancel button.
  bool Default() const { return default_; }
  void SetDefault(bool is_default) { default_ = is_default; }
  bool Cancel() const { return cancel_; }
  void SetCancel(bool is_cancel) { cancel_ = is_cancel; }
  // Name of a picture shown instead of the caption, which then names the button to screen readers.
  const std::string& Picture() const { return picture_; }
  void SetPicture(std::string_view name) {
    Assign(picture_, std::string(name), Property::kPicture);
  }

  // What a click or the keyboard does; nothing while the button or its form is disabled.
  void Click();

  std::function<void()> on_click;

 private:
  bool default_ = false;
  bool cancel_ = false;
  std::string picture_;
};

// The bar between two panes. The form that owns it reacts to the mouse.
class Splitter : public Control {
 public:
  using Control::Control;

  std::function<void(const MouseEvent&)> on_mouse_down;
  std::function<void(const MouseEvent&)> on_mouse_move;
  std::function<void(const MouseEvent&)> on_mouse_up;
};

}  // namespace forms
