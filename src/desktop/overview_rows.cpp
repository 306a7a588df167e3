// SPDX-License-Identifier: MIT
#include "desktop/overview_rows.h"

#include <algorithm>
#include <set>
#include <utility>

#include "store/rules.h"

namespace desktop {

OverviewRows::OverviewRows(const texts::TextTable& texts) {
  for (std::int32_t type = 0; type < store::kCallTypes; ++type)
    call_types_.push_back(texts.Text(store::kFirstCallTypeText + type));
}

void OverviewRows::Show(std::vector<OverviewFormula> formulas) {
  formulas_ = std::move(formulas);
  by_id_.clear();
  by_id_.reserve(formulas_.size());
  for (std::size_t i = 0; i < formulas_.size(); ++i) by_id_[formulas_[i].record.id] = i;
  Select();
}

void OverviewRows::Choose(const std::optional<std::string>& prog_id,
                          std::optional<std::int32_t> type) {
  prog_id_ = prog_id;
  type_ = type;
  Select();
}

void OverviewRows::Select() {
  shown_.clear();
  for (std::size_t i = 0; i < formulas_.size(); ++i) {
    const store::FormulaRecord& record = formulas_[i].record;
    if (prog_id_ && record.prog_id != *prog_id_) continue;
    if (type_ && record.type != *type_) continue;
    shown_.push_back(i);
  }
}

std::vector<std::string> OverviewRows::Classes() const {
  std::set<std::string> classes;
  for (const OverviewFormula& formula : formulas_) classes.insert(formula.record.prog_id);
  return {classes.begin(), classes.end()};
}

const OverviewFormula* OverviewRows::Find(std::int32_t id) const {
  const auto found = by_id_.find(id);
  return found == by_id_.end() ? nullptr : &formulas_[found->second];
}

std::vector<forms::Row> OverviewRows::Rows(std::size_t first, std::size_t count) {
  std::vector<forms::Row> rows;
  const std::size_t end = std::min(shown_.size(), first + std::min(count, shown_.size()));
  for (std::size_t i = first; i < end; ++i) rows.push_back(RowOf(formulas_[shown_[i]]));
  return rows;
}

forms::Row OverviewRows::RowOf(const OverviewFormula& formula) const {
  const store::FormulaRecord& record = formula.record;
  const bool known = store::IsCallType(record.type);
  forms::Row row{record.id, {}};
  row.cells.resize(kComment + 1);
  row.cells[kName] = record.name;
  row.cells[kClass] = record.prog_id;
  row.cells[kCallType] =
      known ? call_types_[static_cast<std::size_t>(record.type)] : std::to_string(record.type);
  // The other call types have no use for one.
  if (record.type == store::kAsynchronous) row.cells[kScanTime] = record.scan_time;
  row.cells[kEnabled] = record.enabled;
  row.cells[kArguments] = formula.arguments;
  row.cells[kComment] = record.comment;
  return row;
}

std::optional<std::size_t> OverviewRows::IndexOf(std::int64_t id) {
  const auto found = by_id_.find(id);
  if (found == by_id_.end()) return std::nullopt;
  const auto place = std::lower_bound(shown_.begin(), shown_.end(), found->second);
  if (place == shown_.end() || *place != found->second) return std::nullopt;
  return static_cast<std::size_t>(place - shown_.begin());
}

}  // namespace desktop
