// SPDX-License-Identifier: MIT
#include "exchange/import_planner.h"

#include <algorithm>
#include <utility>

#include "codegen/identifier.h"
#include "store/rules.h"

namespace exchange {

namespace {

constexpr std::size_t kLongList = 1000;
constexpr std::size_t kRowsPerStep = 256;  // of the progress

}  // namespace

ImportPlanner::ImportPlanner(const Contents& contents, store::Operations& operations,
                             const ImportOptions& options)
    : contents_(contents),
      operations_(operations),
      options_(options),
      existing_names_([this](std::uint32_t number) -> std::string_view {
        return (*existing_)[number].vb_alias;
      }),
      rows_by_alias_([this](std::uint32_t number) {
        const std::string_view given = number < contents_.aliases.size()
                                           ? contents_.aliases[number].alias
                                           : std::string_view();
        return given.empty() ? plan_.aliases_.NameOf(number) : given;
      }) {}

ImportPlan ImportPlanner::Plan() {
  plan_.problems_ = contents_.problems;
  plan_.aliases_ = PlannedAliases(contents_.aliases);
  if (contents_.aliases.size() >= kLongList) ReadAliases();
  for (const AliasRow& row : contents_.aliases) {
    PlanAlias(row);
    Advance();
  }
  if (!contents_.formulas.empty()) PlanFormulas();
  plan_.PutInOrder();
  return std::move(plan_);
}

void ImportPlanner::Advance() {
  if (++done_ % kRowsPerStep != 0 || !options_.progress) return;
  options_.progress(done_, contents_.aliases.size() + contents_.formulas.size());
}

// Names that are given come before names that are proposed.
std::string_view ImportPlanner::Propose(std::string_view item) {
  if (!proposals_) {
    proposals_.emplace(operations_);
    for (const AliasRow& row : contents_.aliases) {
      if (!row.alias.empty()) proposals_->Take(row.alias);
    }
  }
  return plan_.Keep(proposals_->Propose(item));
}

void ImportPlanner::ReadAliases() {
  existing_.emplace();
  operations_.ForEachAlias([&](const store::AliasRecord& alias) {
    existing_->push_back(alias);
    existing_names_.Add(static_cast<std::uint32_t>(existing_->size() - 1));
  });
}

std::optional<store::AliasRecord> ImportPlanner::FindAlias(std::string_view name) {
  if (!existing_) return operations_.FindAliasByName(name);
  const auto number = existing_names_.Find(name);
  return number ? std::optional((*existing_)[*number]) : std::nullopt;
}

void ImportPlanner::PlanFormulas() {
  classes_ = operations_.Classes().classes;
  store::OperationOptions options;
  options.with_rows_only = options_.with_rows_only;
  operations_.WithChecks(options, [&] {
    for (const FormulaRow& row : contents_.formulas) {
      PlanFormula(row);
      Advance();
    }
  });
}

void ImportPlanner::PlanAlias(const AliasRow& row) {
  PlannedAlias planned;
  planned.item = row.item;
  planned.alias = row.alias;
  planned.place = row.place;
  if (store::IsBlank(row.item)) {
    Refuse(planned, {{kTextNoItem}});
  } else if (codegen::CharacterCount(row.item) > kMaxText) {
    Refuse(planned, {{kTextTooLong}, {{"<Member>", "ItemID"}, {"<Most>", kMaxText}}});
  } else if (row.alias.empty()) {
    PlanUnnamed(planned);
  } else {
    PlanNamed(planned);
  }
  const std::string_view name = row.alias.empty() ? planned.alias : row.alias;
  const bool is_new = !name.empty() && !rows_by_alias_.Find(name);
  plan_.aliases_.Add(planned);
  if (is_new) rows_by_alias_.Add(static_cast<std::uint32_t>(plan_.aliases_.size() - 1));
}

void ImportPlanner::PlanUnnamed(PlannedAlias& planned) {
  const std::string name = codegen::CleanIdentifier(planned.item);
  if (const auto existing = FindAlias(name)) {
    if (existing->item_id == planned.item) {
      planned.id = existing->id;
      planned.alias = plan_.Keep(existing->vb_alias);
      planned.action = RowAction::kUnchanged;
      return;
    }
  } else if (const auto row = rows_by_alias_.Find(name);
             row && plan_.aliases_[*row].item == planned.item) {
    return Refuse(planned, {{kTextRepeats}, {{"<Line>", plan_.aliases_.PlaceOf(*row).line}}});
  }
  planned.alias = Propose(planned.item);
  CheckNew(planned);
}

void ImportPlanner::PlanNamed(PlannedAlias& planned) {
  if (IsRepeated(planned)) return;
  if (const auto existing = FindAlias(planned.alias)) {
    PlanExisting(planned, *existing);
  } else {
    CheckNew(planned);
  }
}

bool ImportPlanner::IsRepeated(PlannedAlias& planned) {
  const auto row = rows_by_alias_.Find(planned.alias);
  if (!row) return false;
  const PlannedAlias other = plan_.aliases_[*row];
  Refuse(planned, {{other.item == planned.item ? kTextRepeats : kTextContradicts},
                   {{"<Line>", other.place.line}, {"<Item>", other.item}}});
  return true;
}

void ImportPlanner::PlanExisting(PlannedAlias& planned, const store::AliasRecord& existing) {
  planned.id = existing.id;
  planned.action = RowAction::kUnchanged;
  if (existing.item_id == planned.item && existing.vb_alias == planned.alias) return;
  switch (options_.existing) {
    case ExistingPolicy::kError:
      return Refuse(planned, {{kTextAliasDiffers},
                              {{"<Name>", existing.vb_alias}, {"<Item>", existing.item_id}}});
    case ExistingPolicy::kSkip:
      planned.reason = {{kTextSkipped}, {{"<Item>", existing.item_id}}};
      return;
    case ExistingPolicy::kUpdate:
      planned.action = RowAction::kChanged;
      if (store::IsOneLine(planned.item)) return;
      return Check(planned,
                   operations_.CheckAlias({std::string(planned.item), std::string(planned.alias)},
                                          existing.id));
    case ExistingPolicy::kRename:
      planned.id = 0;
      planned.reason = {{kTextRenamed}, {{"<Name>", planned.alias}}};
      planned.alias = Propose(planned.alias);
      return CheckNew(planned);
  }
}

// No alias has the name: only the name itself can be wrong.
void ImportPlanner::CheckNew(PlannedAlias& planned) {
  planned.action = RowAction::kNew;
  if (!store::JudgeAlias(planned.alias) && store::IsOneLine(planned.item)) return;
  Check(planned, operations_.CheckAlias({std::string(planned.item), std::string(planned.alias)}));
}

ImportPlan PlanImport(const Contents& contents, store::Operations& operations,
                      const ImportOptions& options) {
  return ImportPlanner(contents, operations, options).Plan();
}

}  // namespace exchange
