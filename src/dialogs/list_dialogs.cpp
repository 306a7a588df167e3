// SPDX-License-Identifier: MIT
#include "dialogs/list_dialogs.h"

#include <algorithm>

#include "dialogs/fduplicate.h"
#include "dialogs/fimport.h"
#include "dialogs/list_texts.h"
#include "dialogs/outcome.h"
#include "exchange/exchange_texts.h"

namespace dialogs {

namespace {

// The user does not want to wait for the plan.
struct Stopped {};

std::optional<exchange::ImportPlan> PlanList(const DialogContext& context,
                                             const exchange::Contents& contents,
                                             exchange::ImportOptions options) {
  const MessageBoxes::Guard guard(context.messages);
  const BusyPointer busy(context.toolkit);
  const auto progress = context.toolkit.StartProgress(context.Text(kTextPlanning));
  options.progress = [&](std::size_t done, std::size_t total) {
    if (!progress->Show(done, total)) throw Stopped();
  };
  try {
    return exchange::PlanImport(contents, context.operations, options);
  } catch (const Stopped&) {
    return std::nullopt;
  }
}

// What the list leaves open.
void Offer(FImport& dialog, const DialogContext& context, const exchange::Contents& contents) {
  const std::vector<store::ClassEntry> classes = context.operations.Classes().classes;
  const bool some_without_class = std::ranges::any_of(
      contents.formulas, [](const auto& formula) { return formula.prog_id.empty(); });
  if (some_without_class && classes.size() > 1) dialog.OfferClasses(classes);
  dialog.OfferAliases(std::ranges::any_of(
      contents.formulas, [](const auto& formula) { return !formula.arguments.empty(); }));
  dialog.ShowIgnored(contents.ignored);
}

// What came in, and what is to be said of it.
void ShowCounts(const DialogContext& context, const exchange::ImportPlan& plan,
                const std::vector<messages::Message>& warnings) {
  if (!context.studio) return;
  const exchange::ImportPlan::Counts counts = plan.Count();
  std::vector<platform::Notice> lines{
      {context.texts.Text(kTextImported, {{"<New>", std::to_string(counts.added)},
                                          {"<Changed>", std::to_string(counts.changed)},
                                          {"<Unchanged>", std::to_string(counts.unchanged)},
                                          {"<Refused>", std::to_string(counts.refused)}})}};
  for (const messages::Message& warning : warnings) {
    lines.push_back({context.texts.Sentence(warning)});
  }
  context.studio->ShowWarnings(lines);
}

}  // namespace

ListChange ImportList(const DialogContext& context, const ListToImport& list) {
  FImport dialog(context, list.name, [&](const exchange::ImportOptions& options) {
    return PlanList(context, list.contents, options);
  });
  Offer(dialog, context, list.contents);
  dialog.chkCreate.SetChecked(list.create_aliases);
  while (dialog.Ask()) {
    const auto refused = dialog.plan().Refused();
    if (!refused.empty() && list.keep_refused && !list.keep_refused(refused)) continue;
    store::OperationResult result =
        RunListOperation(context, kTextImporting, [&](const store::OperationOptions& options) {
          return exchange::Import(dialog.plan(), context.operations, list.title, options);
        });
    if (result.success()) {
      ShowCounts(context, dialog.plan(), result.warnings);
      return dialog.plan().ChangesFormulas() ? ListChange::kFormulas : ListChange::kRows;
    }
    WarnFailure(context, result);
  }
  return ListChange::kNothing;
}

ListChange DuplicateFormula(const DialogContext& context, const exchange::CopySource& source) {
  FDuplicate dialog(context, source);
  while (dialog.Run()) {
    store::OperationResult result =
        RunListOperation(context, kTextDuplicating, [&](const store::OperationOptions& options) {
          return exchange::Import(dialog.copies().plan, context.operations,
                                  {{exchange::kTextCopyTitle}, {{"<Name>", source.formula.name}}},
                                  options);
        });
    if (result.success()) return ListChange::kFormulas;
    WarnFailure(context, result);
    dialog.Plan();
  }
  return ListChange::kNothing;
}

}  // namespace dialogs
