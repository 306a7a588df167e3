// SPDX-License-Identifier: MIT
#include "studio/catalogue_notes.h"

#include "codegen/data_type.h"
#include "platform/error.h"

namespace studio {

dialogs::ItemNote CatalogueNotes::NoteOf(std::string_view item) try {
  const project::ItemCatalogue& catalogue = items_.Catalogue();
  if (catalogue.size() == 0) return {};
  const auto found = catalogue.Find(item);
  if (!found) return {"", "", true};
  const project::ItemCatalogue::Item known = catalogue.At(*found);
  return {std::string(codegen::GetDataType(known.type)), std::string(known.comment), false};
} catch (const platform::Error&) {
  return {};
}

}  // namespace studio
