// SPDX-License-Identifier: MIT
#include "dialogs/alias_series.h"

#include "dialogs/list_texts.h"
#include "dialogs/many_texts.h"
#include "exchange/series.h"
#include "exchange/series_columns.h"

namespace dialogs {

namespace {

constexpr std::size_t kShown = 3;

}  // namespace

std::string EndsOfSeries(std::size_t count, const std::function<std::string(std::size_t)>& name) {
  std::string names;
  for (std::size_t i = 0; i < count; ++i) {
    if (i == kShown && count > kShown + 1) {
      names += ", ...";
      i = count - 1;
    }
    names += (names.empty() ? "" : ", ") + name(i);
  }
  return names;
}

bool AliasSeries::IsSeries(const store::AliasValues& values) {
  try {
    return exchange::Series(values.item_id).size() > 1 ||
           exchange::Series(values.vb_alias).size() > 1;
  } catch (const messages::Error&) {
    return true;  // of too many
  }
}

AliasSeries::AliasSeries(const DialogContext& context, const store::AliasValues& values)
    : context_(context), name_(values.item_id) {
  try {
    Plan(values);
  } catch (const messages::Error& series) {
    refusal_ = series.message();
  }
}

void AliasSeries::Plan(const store::AliasValues& values) {
  if (!exchange::AppendAliases(contents_.Keep(values.item_id), contents_.Keep(values.vb_alias), {},
                               contents_)) {
    refusal_ = {{exchange::kTextSeriesLengths}};
    return;
  }
  plan_ = exchange::PlanImport(contents_, context_.operations, {});
  for (std::size_t i = 0; i < plan_.LineCount(); ++i) {
    if (plan_.ActionAt(i) != exchange::RowAction::kRefused) continue;
    refusal_ = plan_.LineAt(i).reason;
    return;
  }
  if (plan_.Count().added == 0) refusal_ = {{kTextNothingNew}};
}

std::string AliasSeries::Text() const {
  const exchange::PlannedAliases& aliases = plan_.aliases();
  const std::string names = EndsOfSeries(aliases.size(), [&](std::size_t i) {
    const exchange::PlannedAlias alias = aliases[i];
    return std::string(alias.alias) + " (" + std::string(alias.item) + ")";
  });
  return context_.texts.Text(kTextAliasesOfSeries,
                             {{"<Count>", std::to_string(aliases.size())}, {"<Names>", names}});
}

store::OperationResult AliasSeries::Add(const store::OperationOptions& options) {
  store::OperationResult result = exchange::Import(
      plan_, context_.operations, {{exchange::kTextSeriesTitle}, {{"<Name>", name_}}}, options);
  if (result.success()) result.ids = {plan_.aliases()[0].id};
  return result;
}

}  // namespace dialogs
