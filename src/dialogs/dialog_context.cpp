// SPDX-License-Identifier: MIT
#include "dialogs/dialog_context.h"

namespace dialogs {

void DialogContext::ShowWarnings(const std::vector<messages::Message>& warnings) const {
  if (!studio || warnings.empty()) return;
  std::vector<platform::Notice> lines;
  lines.reserve(warnings.size());
  for (const messages::Message& warning : warnings) {
    const std::string line = warning.Text("<Line>");
    lines.push_back({texts.Sentence(warning), warning.Text("<Path>"),
                     platform::Variant(platform::Val(line)).ToLong()});
  }
  studio->ShowWarnings(lines);
}

}  // namespace dialogs
