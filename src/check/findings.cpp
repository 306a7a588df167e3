// SPDX-License-Identifier: MIT
#include "check/findings.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace check {

void Findings::Add(Finding finding) {
  if (!Wants(*finding.rule)) return;
  if (const auto file = lines_.find(finding.where.file); file != lines_.end()) {
    const auto line = file->second.find(finding.where.line);
    if (line != file->second.end() && line->second.contains(finding.rule)) return;
  }
  findings_.push_back(std::move(finding));
}

std::vector<Finding> Findings::Take() {
  std::ranges::stable_sort(findings_, {}, [](const Finding& finding) {
    const Where& where = finding.where;
    return std::tuple(finding.rule->severity, where.table.empty(), std::string_view(where.file),
                      where.line);
  });
  std::vector<Finding> taken(std::make_move_iterator(findings_.begin()),
                             std::make_move_iterator(findings_.end()));
  findings_.clear();
  return taken;
}

}  // namespace check
