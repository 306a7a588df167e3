// SPDX-License-Identifier: MIT
#include "dialogs/argument_dialogs.h"

#include <array>

#include "dialogs/falias.h"
#include "dialogs/fchoose_alias.h"
#include "dialogs/fparameter.h"
#include "dialogs/outcome.h"

namespace dialogs {

namespace {

constexpr std::int32_t kInitialisationFailed = 550;
constexpr std::int32_t kStorageFailed = 551;

bool IsOnVariableChange(const Surroundings& surroundings, std::int32_t formula_id) {
  const auto formula = surroundings.operations.FindFormula(formula_id);
  return formula && formula->type == store::kOnVariableChange;
}

}  // namespace

std::int32_t AddArgument(const Surroundings& surroundings, std::int32_t formula_id) try {
  FParameter dialog(surroundings);
  dialog.SetOnVariableChange(IsOnVariableChange(surroundings, formula_id));
  while (dialog.Run()) {
    const std::array values = {dialog.Values()};
    const store::OperationResult result = Carry(
        surroundings, [&] { return surroundings.operations.AddArguments(formula_id, values); });
    if (result.success()) return result.id();
    WarnFailure(surroundings, result);
  }
  return 0;
} catch (const platform::Error& error) {
  surroundings.messages.Warn(surroundings.Text(kInitialisationFailed), error);
  return 0;
}

bool EditArgument(const Surroundings& surroundings, std::int32_t argument_id) try {
  const auto record = surroundings.operations.FindArgument(argument_id);
  if (!record) return false;
  FParameter dialog(surroundings);
  if (!dialog.Load(*record)) {
    surroundings.messages.Warn(surroundings.Text(kInitialisationFailed));
    return false;
  }
  dialog.SetOnVariableChange(IsOnVariableChange(surroundings, record->parent_id));
  while (dialog.Run()) {
    const store::ArgumentValues values = dialog.Values();
    const store::OperationResult result = Carry(
        surroundings, [&] { return surroundings.operations.EditArgument(argument_id, values); });
    if (result.success()) return true;
    WarnFailure(surroundings, result, kStorageFailed);
  }
  return false;
} catch (const platform::Error& error) {
  surroundings.messages.Warn(surroundings.Text(kInitialisationFailed), error);
  return false;
}

std::int32_t AddAlias(const Surroundings& surroundings) {
  FAlias dialog(surroundings, 0);
  while (dialog.Run()) {
    const std::array values = {dialog.Values()};
    const store::OperationResult result =
        Carry(surroundings, [&] { return surroundings.operations.AddAliases(values); });
    if (result.success()) return result.id();
    WarnFailure(surroundings, result);
  }
  return 0;
}

bool EditAlias(const Surroundings& surroundings, std::int32_t alias_id) try {
  if (alias_id == 0) return false;
  const auto record = surroundings.operations.FindAlias(alias_id);
  if (!record) return false;
  FAlias dialog(surroundings, alias_id);
  dialog.Load(*record);
  while (dialog.Run()) {
    const store::AliasValues values = dialog.Values();
    const store::OperationResult result =
        Carry(surroundings, [&] { return surroundings.operations.EditAlias(alias_id, values); });
    if (result.success()) return true;
    WarnFailure(surroundings, result);
  }
  return false;
} catch (const platform::Error& error) {
  surroundings.messages.Warn(error);
  return false;
}

std::optional<std::int32_t> ChooseAlias(const Surroundings& surroundings, std::int32_t current) {
  FChooseAlias dialog(surroundings);
  return dialog.Choose(current);
}

}  // namespace dialogs
