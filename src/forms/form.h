// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "forms/control.h"
#include "messages/text_number.h"

namespace forms {

enum class WindowState { kNormal = 0, kMinimized = 1, kMaximized = 2 };
enum class CloseReason { kUser = 0, kCode = 1 };

// How a toolkit places the controls of a form.
enum class FormLayout {
  kFlow,   // by rows, following the layout hints; what dialogs use
  kFixed,  // by the bounds of the controls, which the form keeps up in on_resize
};

// A window. Life cycle: Load (once, before anything is shown), shown and hidden, Unload. Whoever
// shows forms calls Load, Close and Unload; a form hides itself.
class Form : public Container {
 public:
  explicit Form(std::string_view name, FormLayout layout = FormLayout::kFlow)
      : Container(nullptr, name), form_layout_(layout) {
    Control::SetVisible(false);
  }

  FormLayout GetFormLayout() const { return form_layout_; }

  WindowState GetWindowState() const { return window_state_; }
  void SetWindowState(WindowState state) { Assign(window_state_, state, Property::kWindowState); }

  // Least size in twips; 0 leaves it to the toolkit.
  const Bounds& MinimumSize() const { return minimum_size_; }
  void SetMinimumSize(double width, double height) { minimum_size_ = {0, 0, width, height}; }

  // The window may be resized by the user (dialogs that hold lists).
  bool Resizable() const { return resizable_; }
  void SetResizable(bool resizable) { resizable_ = resizable; }

  // Help topic of the form, shown by F1.
  std::int32_t HelpContextId() const { return help_context_id_; }
  void SetHelpContextId(std::int32_t topic) { help_context_id_ = topic; }

  bool Loaded() const { return loaded_; }
  // Raises on_load unless the form is loaded already.
  void Load();
  // Asks on_query_unload; unless refused the form is unloaded. Returns whether it was.
  bool Close(CloseReason reason);
  // Hides the form and raises on_unload without asking.
  void Unload();
  void Hide() { SetVisible(false); }

  // Tells the form that its client area (in twips) has a new size.
  void Resize(double width, double height);
  double ClientWidth() const { return client_width_; }
  double ClientHeight() const { return client_height_; }

  // `Me` is the form itself; WindowState is a number.
  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;
  PropertyObject* SubObject(std::string_view name,
                            const std::optional<platform::Variant>& argument) override;

  std::function<void()> on_load;
  // Setting `cancel` keeps the form open. A form without a handler closes.
  std::function<void(bool& cancel, CloseReason reason)> on_query_unload;
  std::function<void()> on_unload;
  std::function<void()> on_activate;
  std::function<void()> on_deactivate;
  std::function<void()> on_resize;
  std::function<void()> on_help;  // F1

 private:
  FormLayout form_layout_;
  WindowState window_state_ = WindowState::kNormal;
  Bounds minimum_size_;
  bool resizable_ = false;
  std::int32_t help_context_id_ = 0;
  bool loaded_ = false;
  double client_width_ = 0;
  double client_height_ = 0;
};

// Looks up a text by its number.
using TextLookup = std::function<std::string(messages::TextNumber)>;

// Replaces the caption of the form and of every control on it whose tag is "C" and a number by
// the text of that number. The menu tools' captions are MenuControl::LocaliseTools.
void LocaliseCaptions(Form& form, const TextLookup& text);

}  // namespace forms
