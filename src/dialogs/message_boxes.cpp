// SPDX-License-Identifier: MIT
#include "dialogs/message_boxes.h"

#include "texts/text_table.h"

namespace dialogs {

MessageBoxes::Guard::Guard(MessageBoxes& boxes) : toolkit_(boxes.toolkit_), depth_(boxes.depth_) {
  ++*depth_;
}

MessageBoxes::Guard::~Guard() {
  toolkit_.CallLater([depth = depth_] { --*depth; });
}

MessageBoxes::MessageBoxes(platform::Toolkit& toolkit, const texts::TextTable& texts)
    : toolkit_(toolkit), texts_(texts) {}

platform::MessageResult MessageBoxes::Show(const platform::MessageBox& box) {
  const Guard guard(*this);
  return toolkit_.Show(box);
}

void MessageBoxes::Warn(std::string_view prompt, std::string_view detail) {
  platform::MessageBox box;
  box.prompt = prompt;
  box.detail = detail;
  box.icon = platform::MessageIcon::kWarning;
  Show(box);
}

void MessageBoxes::Warn(const std::exception& failure) { Warn(texts_.Sentence(failure)); }

void MessageBoxes::Warn(std::string_view prompt, const std::exception& failure) {
  Warn(prompt, texts_.Sentence(failure));
}

bool MessageBoxes::Ask(std::string_view prompt, std::string_view detail) {
  platform::MessageBox box;
  box.prompt = prompt;
  box.detail = detail;
  box.icon = platform::MessageIcon::kQuestion;
  box.buttons = platform::MessageButtons::kYesNo;
  box.default_button = platform::MessageResult::kNo;
  return Show(box) == platform::MessageResult::kYes;
}

void MessageBoxes::ShowHostError(platform::AddIn& studio, std::string_view text) {
  const Guard guard(*this);
  studio.ShowError(text);
}

}  // namespace dialogs
