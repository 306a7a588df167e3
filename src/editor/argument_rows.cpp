// SPDX-License-Identifier: MIT
#include "editor/argument_rows.h"

namespace editor {

void ArgumentRows::Read(store::Operations& operations, std::int32_t formula_id) {
  All().clear();
  if (formula_id == 0) return;
  for (const store::ArgumentRecord& argument : operations.ArgumentsOf(formula_id)) {
    All().push_back({argument.id, {argument.vb_alias, argument.in, argument.out}});
  }
}

}  // namespace editor
