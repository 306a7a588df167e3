// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/item_notes.h"
#include "project/item_file.h"

namespace studio {

// What the project's item catalogue says.
class CatalogueNotes final : public dialogs::ItemNotes {
 public:
  // The file outlives the notes.
  explicit CatalogueNotes(project::ItemFile& items) : items_(items) {}

  // A catalogue that cannot be read says nothing.
  dialogs::ItemNote NoteOf(std::string_view item) override;

 private:
  project::ItemFile& items_;
};

}  // namespace studio
