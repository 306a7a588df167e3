// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "exchange/import_plan.h"
#include "forms/row_source.h"
#include "texts/text_table.h"

namespace dialogs {

// The lines of a plan as a list shows them: what happens, line, name, detail, reason. The ID of a
// row is the line's number in the plan, from 1.
class PlanRows : public forms::RowSource {
 public:
  // All lines, or those that come to the same. Both must outlive the rows.
  PlanRows(const exchange::ImportPlan& plan, const texts::TextTable& texts,
           std::optional<exchange::RowAction> action);

  std::size_t RowCount() override { return lines_.size(); }
  std::vector<forms::Row> Rows(std::size_t first, std::size_t count) override;

 private:
  const exchange::ImportPlan& plan_;
  const texts::TextTable& texts_;
  std::vector<std::uint32_t> lines_;
};

}  // namespace dialogs
