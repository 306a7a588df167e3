// SPDX-License-Identifier: MIT
#include "dialogs/argument_dialogs.h"

#include <array>
#include <utility>

#include "dialogs/falias.h"
#include "dialogs/farguments.h"
#include "dialogs/fchoose_alias.h"
#include "dialogs/fparameter.h"
#include "dialogs/list_texts.h"
#include "dialogs/many_texts.h"
#include "dialogs/outcome.h"
#include "dialogs/row_merge.h"
#include "messages/text_number.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kInitialisationFailed{550};
constexpr messages::TextNumber kStorageFailed{551};

bool IsOnVariableChange(const DialogContext& context, std::int32_t formula_id) {
  const auto formula = context.operations.FindFormula(formula_id);
  return formula && formula->type == store::kOnVariableChange;
}

store::OperationResult AddOne(const DialogContext& context, const store::AliasValues& values) {
  return RunOperation(context, [&] { return context.operations.AddAliases(std::array{values}); });
}

store::OperationResult AddSeries(const DialogContext& context, AliasSeries& series) {
  return RunListOperation(context, kTextAddingAliases,
                          [&](const auto& options) { return series.Add(options); });
}

}  // namespace

std::int32_t AddArgument(const DialogContext& context, std::int32_t formula_id) try {
  FParameter dialog(context);
  dialog.SetOnVariableChange(IsOnVariableChange(context, formula_id));
  while (dialog.Run()) {
    const std::vector<store::ArgumentValues> values = dialog.AllValues();
    const store::OperationResult result =
        RunOperation(context, [&] { return context.operations.AddArguments(formula_id, values); });
    if (result.success()) return result.id();
    WarnFailure(context, result);
  }
  return 0;
} catch (const platform::Error& error) {
  context.messages.Warn(context.Text(kInitialisationFailed), error);
  return 0;
}

std::size_t AddArguments(const DialogContext& context, std::int32_t formula_id,
                         ItemNotes* notes) try {
  const auto formula = context.operations.FindFormula(formula_id);
  if (!formula) return 0;
  SeveralAliases several{context.texts.Text(kTextAddArgumentsTo, {{"<Name>", formula->name}}),
                         notes};
  for (const store::ArgumentRecord& argument : context.operations.ArgumentsOf(formula_id))
    several.used.insert(argument.alias_id);
  FChooseAlias dialog(context, std::move(several));
  for (auto ids = dialog.ChooseSeveral(); !ids.empty(); ids = dialog.ChooseSeveral()) {
    std::vector<store::ArgumentValues> values;
    values.reserve(ids.size());
    for (const std::int32_t id : ids)
      values.push_back({id, dialog.chkIn.Checked(), dialog.chkOut.Checked()});
    const store::OperationResult result =
        RunOperation(context, [&] { return context.operations.AddArguments(formula_id, values); });
    if (result.success()) return values.size();
    WarnFailure(context, result);
  }
  return 0;
} catch (const platform::Error& error) {
  context.messages.Warn(context.Text(kInitialisationFailed), error);
  return 0;
}

bool EditArgument(const DialogContext& context, std::int32_t argument_id) try {
  auto record = context.operations.FindArgument(argument_id);
  if (!record) return false;
  FParameter dialog(context);
  if (!dialog.Load(*record, argument_id)) {
    context.messages.Warn(context.Text(kInitialisationFailed));
    return false;
  }
  dialog.SetOnVariableChange(IsOnVariableChange(context, record->parent_id));
  while (dialog.Run()) {
    store::ArgumentValues values = dialog.Values();
    const bool joined = JoinWithStored(
        context, *record, values, [&] { return context.operations.FindArgument(argument_id); },
        [&](const store::ArgumentRecord& stored) { dialog.Load(stored, argument_id); });
    if (!joined) continue;
    store::RenameOptions options;
    options.with_uses = dialog.WithUses();
    const store::OperationResult result = RunOperation(
        context, [&] { return context.operations.EditArgument(argument_id, values, options); });
    if (result.success()) return true;
    WarnFailure(context, result, kStorageFailed);
  }
  return false;
} catch (const platform::Error& error) {
  context.messages.Warn(context.Text(kInitialisationFailed), error);
  return false;
}

bool EditArguments(const DialogContext& context, const std::vector<std::int32_t>& ids) try {
  std::vector<store::ArgumentRecord> arguments;
  std::vector<std::string> names;
  for (const std::int32_t id : ids) {
    const auto argument = context.operations.FindArgument(id);
    if (!argument) continue;
    arguments.push_back(*argument);
    names.push_back(argument->vb_alias);
  }
  FArguments dialog(context, names);
  while (dialog.Run()) {
    const auto steps = [&] {
      store::OperationResult result;
      for (const store::ArgumentRecord& shown : arguments) {
        const auto argument = context.operations.FindArgument(shown.id).value_or(shown);
        result = context.operations.EditArgument(
            argument.id, store::ArgumentValues{argument.alias_id, dialog.In().value_or(argument.in),
                                               dialog.Out().value_or(argument.out)});
        if (!result.success()) break;
      }
      return result;
    };
    const store::OperationResult result = RunOperation(context, [&] {
      return context.operations.AsOne(
          {{kTextEditArguments}, {{"<Count>", std::to_string(arguments.size())}}}, steps);
    });
    if (result.success()) return true;
    WarnFailure(context, result, kStorageFailed);
  }
  return false;
} catch (const platform::Error& error) {
  context.messages.Warn(context.Text(kInitialisationFailed), error);
  return false;
}

std::int32_t AddAlias(const DialogContext& context) {
  FAlias dialog(context, 0);
  while (dialog.Run()) {
    const store::OperationResult result =
        dialog.Series() ? AddSeries(context, *dialog.Series()) : AddOne(context, dialog.Values());
    if (result.success()) return result.id();
    WarnFailure(context, result);
    dialog.FollowSeries();
  }
  return 0;
}

bool EditAlias(const DialogContext& context, std::int32_t alias_id) try {
  if (alias_id == 0) return false;
  auto record = context.operations.FindAlias(alias_id);
  if (!record) return false;
  FAlias dialog(context, alias_id);
  dialog.Load(*record);
  while (dialog.Run()) {
    store::AliasValues values = dialog.Values();
    const bool joined = JoinWithStored(
        context, *record, values, [&] { return context.operations.FindAlias(alias_id); },
        [&](const store::AliasRecord& stored) { dialog.Load(stored); });
    if (!joined) continue;
    store::RenameOptions options;
    options.with_uses = dialog.WithUses();
    const store::OperationResult result = RunOperation(
        context, [&] { return context.operations.EditAlias(alias_id, values, options); });
    if (result.success()) return true;
    WarnFailure(context, result);
  }
  return false;
} catch (const platform::Error& error) {
  context.messages.Warn(error);
  return false;
}

std::optional<std::int32_t> ChooseAlias(const DialogContext& context, std::int32_t current) {
  FChooseAlias dialog(context);
  return dialog.Choose(current);
}

}  // namespace dialogs
