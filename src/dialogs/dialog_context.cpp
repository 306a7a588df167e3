// SPDX-License-Identifier: MIT
#include "dialogs/dialog_context.h"

namespace dialogs {

void DialogContext::ShowWarnings(const std::vector<messages::Message>& warnings) const {
  if (!studio || warnings.empty()) return;
  std::vector<std::string> lines;
  lines.reserve(warnings.size());
  for (const messages::Message& warning : warnings) lines.push_back(texts.Sentence(warning));
  studio->ShowWarnings(lines);
}

}  // namespace dialogs
