// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace dialogs {

// What is known of an item beside its name.
struct ItemNote {
  std::string type;  // its Visual Basic name
  std::string comment;
  bool missing = false;  // there is a catalogue, and it lacks the item
};

// Where that is known: a workbench that has a catalogue of its own.
class ItemNotes {
 public:
  virtual ~ItemNotes() = default;
  virtual ItemNote NoteOf(std::string_view item) = 0;
};

}  // namespace dialogs
