// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "codegen/vb_formula_code.h"
#include "dialogs/alias_table.h"
#include "dialogs/dummy_var_ocx.h"
#include "dialogs/message_boxes.h"
#include "forms/form.h"
#include "messages/text_number.h"
#include "platform/help.h"
#include "platform/studio.h"
#include "platform/toolkit.h"
#include "store/operations.h"
#include "texts/text_table.h"

namespace dialogs {

// What the user chose the last time.
struct Choices {
  bool move_with_code = false;  // a formula that goes to another class takes its code along
};

// What the dialogs work with: all of it belongs to whoever opens them and outlives them.
struct DialogContext {
  platform::Toolkit& toolkit;
  const texts::TextTable& texts;
  MessageBoxes& messages;
  store::Operations& operations;
  std::shared_ptr<AliasTable> aliases;  // in the order of their names
  FDummyVarOCX& items;
  platform::AddIn* studio = nullptr;
  platform::Help* help = nullptr;
  forms::Form* owner = nullptr;
  bool offers_uses = false;   // a new name offers to change its uses in procedures
  bool in_workbench = false;  // titles say what the dialogs do, missing aliases can be made in them
  std::shared_ptr<Choices> choices = std::make_shared<Choices>();

  std::string Text(messages::TextNumber number) const { return texts.Text(number); }
  // Warnings of an operation go to the studio's status line.
  void ShowWarnings(const std::vector<messages::Message>& warnings) const;
};

// Shows the hourglass while it lives, whatever way its scope is left.
class BusyPointer {
 public:
  explicit BusyPointer(platform::Toolkit& toolkit) : toolkit_(toolkit) {
    toolkit_.SetPointer(platform::Pointer::kHourglass);
  }
  ~BusyPointer() { toolkit_.SetPointer(platform::Pointer::kDefault); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  platform::Toolkit& toolkit_;
};

}  // namespace dialogs
