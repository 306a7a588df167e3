// SPDX-License-Identifier: MIT
#include "forms/form.h"

#include <charconv>

#include "messages/text_number.h"
#include "platform/text.h"

namespace forms {

namespace {

using platform::EqualsIgnoringCase;
using platform::Variant;

std::optional<messages::TextNumber> TextNumberOfTag(std::string_view tag) {
  if (tag.size() < 2 || tag[0] != 'C') return std::nullopt;
  std::int32_t number = 0;
  auto end = tag.data() + tag.size();
  auto result = std::from_chars(tag.data() + 1, end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return messages::TextNumber{number};
}

void LocaliseCaption(Control& control, const TextLookup& text) {
  auto* captioned = dynamic_cast<CaptionedControl*>(&control);
  auto number = TextNumberOfTag(control.Tag());
  if (captioned && number) captioned->SetCaption(text(*number));
}

void LocaliseWithContents(Control& control, const TextLookup& text) {
  LocaliseCaption(control, text);
  if (auto* container = dynamic_cast<Container*>(&control)) {
    for (Control* inner : container->Controls()) LocaliseWithContents(*inner, text);
  }
}

}  // namespace

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  if (on_load) on_load();
}

bool Form::Close(CloseReason reason) {
  bool cancel = false;
  if (on_query_unload) on_query_unload(cancel, reason);
  if (!cancel) Unload();
  return !cancel;
}

void Form::Unload() {
  Hide();
  if (!loaded_) return;
  loaded_ = false;
  if (on_unload) on_unload();
}

void Form::Resize(double width, double height) {
  client_width_ = width;
  client_height_ = height;
  if (on_resize) on_resize();
}

std::optional<Variant> Form::GetProperty(std::string_view name) const {
  if (EqualsIgnoringCase(name, "WindowState"))
    return Variant(static_cast<std::int32_t>(window_state_));
  return Container::GetProperty(name);
}

bool Form::SetProperty(std::string_view name, const Variant& value) {
  if (!EqualsIgnoringCase(name, "WindowState")) return Container::SetProperty(name, value);
  std::int32_t state = value.ToLong();
  if (state < 0 || state > 2) return false;
  SetWindowState(static_cast<WindowState>(state));
  return true;
}

PropertyObject* Form::SubObject(std::string_view name, const std::optional<Variant>& argument) {
  if (EqualsIgnoringCase(name, "Me") && !argument) return this;
  return Container::SubObject(name, argument);
}

void LocaliseCaptions(Form& form, const TextLookup& text) { LocaliseWithContents(form, text); }

}  // namespace forms
