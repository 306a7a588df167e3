// SPDX-License-Identifier: MIT
#include "dialogs/formula_dialogs.h"

#include <optional>

#include "dialogs/outcome.h"
#include "dialogs/row_merge.h"
#include "messages/text_number.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kInitialisationFailed{340};
constexpr messages::TextNumber kStorageFailed{341};

void WarnInitialisation(const DialogContext& context) {
  context.messages.Warn(context.Text(kInitialisationFailed));
}

}  // namespace

bool PrepareFormulaDialog(FFunction& dialog, const DialogContext& context) {
  const BusyPointer busy(context.toolkit);
  dialog.cmbType.Clear();
  for (std::int32_t type = 0; type < store::kCallTypes; ++type) {
    dialog.cmbType.AddItem(context.Text(store::kFirstCallTypeText + type), type);
  }
  dialog.cmbType.SetListIndex(0);
  try {
    dialog.SetClasses(context.operations.Classes());
    dialog.txtName.SetText(context.operations.ProposeFormulaName());
    return true;
  } catch (const platform::Error&) {
    return false;
  }
}

bool LoadFormulaIntoDialog(FFunction& dialog, const DialogContext& context,
                           const store::FormulaRecord& record) {
  if (!PrepareFormulaDialog(dialog, context)) return false;
  dialog.Load(record);
  return true;
}

store::FormulaValues SaveFormulaFromDialog(const FFunction& dialog,
                                           const store::FormulaValues& before) {
  store::FormulaValues values;
  values.name = dialog.txtName.Text();
  values.prog_id = dialog.cmbProgID.Text();
  const std::int32_t type = dialog.cmbType.ListIndex();
  values.type = type < 0 ? before.type : dialog.cmbType.ItemData(type);
  values.scan_time = store::ParseScanTime(dialog.txtScanTime.Text()).value_or(before.scan_time);
  values.enabled = dialog.chkEnabled.Checked();
  values.comment = dialog.txtComment.Text();
  return values;
}

AddedFormula AddFormula(const DialogContext& context) {
  FFunction dialog(context);
  if (!PrepareFormulaDialog(dialog, context)) {
    WarnInitialisation(context);
    return {};
  }
  if (dialog.cmbProgID.ListCount() == 1) dialog.cmbProgID.SetListIndex(0);
  while (dialog.Run()) {
    const store::FormulaValues values = SaveFormulaFromDialog(dialog, {});
    const store::OperationResult result =
        RunOperation(context, [&] { return context.operations.AddFormula(values); });
    if (result.success()) return {true, values.name, result.id()};
    WarnFailure(context, result);
  }
  return {};
}

bool EditFormula(const DialogContext& context, std::int32_t formula_id) try {
  FFunction dialog(context);
  std::optional<store::FormulaRecord> record = context.operations.FindFormula(formula_id);
  if (!record) return false;
  if (!LoadFormulaIntoDialog(dialog, context, *record)) {
    WarnInitialisation(context);
    return false;
  }
  while (dialog.Run()) {
    store::FormulaValues values = SaveFormulaFromDialog(dialog, *record);
    const bool joined = JoinWithStored(
        context, *record, values, [&] { return context.operations.FindFormula(formula_id); },
        [&](const store::FormulaRecord& stored) { dialog.Load(stored); });
    if (!joined) continue;
    store::EditFormulaOptions options;
    options.with_uses = dialog.WithUses();
    options.with_code = dialog.Moves() && dialog.chkWithCode.Checked();
    if (dialog.Moves()) context.choices->move_with_code = options.with_code;
    const store::OperationResult result = RunOperation(
        context, [&] { return context.operations.EditFormula(formula_id, values, options); });
    if (result.success()) return true;
    WarnFailure(context, result, kStorageFailed);
  }
  return false;
} catch (const platform::Error& error) {
  context.messages.Warn(context.Text(kInitialisationFailed), error);
  return false;
}

}  // namespace dialogs
