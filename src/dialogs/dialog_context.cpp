// SPDX-License-Identifier: MIT
#include "dialogs/dialog_context.h"

namespace dialogs {

void DialogContext::ShowWarnings(const std::vector<codegen::Warning>& warnings) const {
  if (!studio || warnings.empty()) return;
  std::vector<std::string> lines;
  lines.reserve(warnings.size());
  for (const codegen::Warning& warning : warnings) lines.push_back(warning.message);
  studio->ShowWarnings(lines);
}

}  // namespace dialogs
