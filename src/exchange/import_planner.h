// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "exchange/import_plan.h"
#include "exchange/name_table.h"
#include "platform/error.h"
#include "store/alias_proposals.h"

namespace exchange {

inline constexpr std::size_t kMaxText = 255;  // characters of a text field

template <class Planned>
void Refuse(Planned& planned, messages::Message&& reason) {
  planned.action = RowAction::kRefused;
  planned.reason = std::move(reason);
}

// Refuses what an operation would refuse. Raises platform::Error when it could not say.
template <class Planned>
void Check(Planned& planned, const store::OperationResult& answer) {
  if (answer.success()) return;
  messages::Message reason = messages::Joined(answer.message, answer.detail);
  if (answer.outcome == store::Outcome::kRefused) return Refuse(planned, std::move(reason));
  throw platform::Error(platform::ErrorKind::kIo, 0, reason);
}

// Makes a plan: import_planner.cpp aliases, formula_planner.cpp formulas and their arguments.
class ImportPlanner {
 public:
  // All of it must outlive the planner.
  ImportPlanner(const Contents& contents, store::Operations& operations,
                const ImportOptions& options);

  ImportPlan Plan();

 private:
  // Another row is planned.
  void Advance();

  // --- Aliases ---
  // Reads all aliases of the project when the list is long: look-ups would take longer.
  void ReadAliases();
  std::optional<store::AliasRecord> FindAlias(std::string_view name);
  void PlanAlias(const AliasRow& row);
  // A name that is free in the project and the list, kept by the plan.
  std::string_view Propose(std::string_view item);
  // What the row's name is to be when it has none.
  void PlanUnnamed(PlannedAlias& planned);
  void PlanNamed(PlannedAlias& planned);
  void PlanExisting(PlannedAlias& planned, const store::AliasRecord& existing);
  // Refuses what no alias can be.
  void CheckNew(PlannedAlias& planned);
  // Whether a line in front says the same or the contrary; then it is refused.
  bool IsRepeated(PlannedAlias& planned);

  // --- Formulas ---
  void PlanFormulas();
  void PlanFormula(const FormulaRow& row);
  void PlanNewFormula(PlannedFormula& planned, const FormulaRow& row);
  void PlanExistingFormula(PlannedFormula& planned, const FormulaRow& row,
                           const store::FormulaRecord& existing);
  void RenameFormula(PlannedFormula& planned, const FormulaRow& row);
  // Fills in the arguments as they come to the formula that is there, or to none.
  void PlanArguments(PlannedFormula& planned, const FormulaRow& row,
                     const std::vector<store::ArgumentRecord>& existing);
  PlannedArgument PlanArgument(const PlannedFormula& formula, const ArgumentRow& row,
                               const std::vector<store::ArgumentRecord>& existing,
                               bool is_part_of_formula);
  // The number of the argument's alias in the plan; nothing when there is none, with the reason.
  std::optional<std::uint32_t> AliasOf(const ArgumentRow& row, messages::Message& reason);
  std::optional<std::uint32_t> ExistingAlias(std::string_view name, std::string_view item);
  std::uint32_t CreateAlias(const ArgumentRow& row, messages::Message& reason);
  std::string ClassOf(const FormulaRow& row) const;
  std::optional<store::FormulaRecord> FindFormula(const store::FormulaValues& values);
  bool IsTaken(std::string_view prog_id, std::string_view name);

  const Contents& contents_;
  store::Operations& operations_;
  const ImportOptions& options_;
  std::optional<store::AliasProposals> proposals_;  // once one is asked for
  std::vector<store::ClassEntry> classes_;
  ImportPlan plan_;
  std::size_t done_ = 0;
  std::optional<std::vector<store::AliasRecord>> existing_;  // of a long list
  NameTable existing_names_;                                 // numbers of these
  NameTable rows_by_alias_;  // numbers in the plan, by the name that the list gives
  std::unordered_map<std::string, std::uint32_t> formulas_;  // by class and name in lower case
};

}  // namespace exchange
