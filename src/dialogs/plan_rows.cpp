// SPDX-License-Identifier: MIT
#include "dialogs/plan_rows.h"

#include <algorithm>
#include <string>

#include "dialogs/list_texts.h"

namespace dialogs {

PlanRows::PlanRows(const exchange::ImportPlan& plan, const texts::TextTable& texts,
                   std::optional<exchange::RowAction> action)
    : plan_(plan), texts_(texts) {
  for (std::size_t i = 0; i < plan.LineCount(); ++i) {
    if (!action || plan.ActionAt(i) == *action) lines_.push_back(static_cast<std::uint32_t>(i));
  }
}

std::vector<forms::Row> PlanRows::Rows(std::size_t first, std::size_t count) {
  std::vector<forms::Row> rows;
  for (std::size_t i = first; i < std::min(lines_.size(), first + count); ++i) {
    const exchange::ImportPlan::Line line = plan_.LineAt(lines_[i]);
    const std::string number = line.place.line == 0 ? "" : std::to_string(line.place.line);
    rows.push_back({std::int64_t{lines_[i]} + 1,
                    {texts_.Text(kTextNew + static_cast<std::int32_t>(line.action)), number,
                     line.name, line.detail, texts_.Sentence(line.reason)}});
  }
  return rows;
}

}  // namespace dialogs
