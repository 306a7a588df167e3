// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/row_source.h"
#include "store/formula_records.h"
#include "texts/text_table.h"

namespace desktop {

// What the overview shows of a formula.
struct OverviewFormula {
  store::FormulaRecord record;
  std::int32_t arguments = 0;
};

// The formulas of a project as rows of a table, as far as class and call type are asked for. They
// are held: any of their columns can order or filter them without another look at the database.
class OverviewRows : public forms::RowSource {
 public:
  enum Column : std::size_t { kName, kClass, kCallType, kScanTime, kEnabled, kArguments, kComment };

  // The texts outlive the rows.
  explicit OverviewRows(const texts::TextTable& texts);

  void Show(std::vector<OverviewFormula> formulas);
  // Rows of other classes and call types are left out; nothing asked for leaves out none.
  void Choose(const std::optional<std::string>& prog_id, std::optional<std::int32_t> type);

  // Of all formulas, also those that are left out.
  std::size_t Total() const { return formulas_.size(); }
  // The classes of all formulas, each once, in the order of their names.
  std::vector<std::string> Classes() const;
  // Null when there is none.
  const OverviewFormula* Find(std::int32_t id) const;

  std::size_t RowCount() override { return shown_.size(); }
  std::vector<forms::Row> Rows(std::size_t first, std::size_t count) override;
  std::optional<std::size_t> IndexOf(std::int64_t id) override;

 private:
  void Select();
  forms::Row RowOf(const OverviewFormula& formula) const;

  std::vector<std::string> call_types_;
  std::vector<OverviewFormula> formulas_;
  std::unordered_map<std::int64_t, std::size_t> by_id_;  // places in formulas_
  std::vector<std::size_t> shown_;                       // places in formulas_, ascending
  std::optional<std::string> prog_id_;
  std::optional<std::int32_t> type_;
};

}  // namespace desktop
