// SPDX-License-Identifier: MIT
// Formula definitions through the dialog.
#pragma once

#include <cstdint>
#include <string>

#include "dialogs/dialog_context.h"
#include "dialogs/ffunction.h"
#include "store/formula_records.h"

namespace dialogs {

// Fills call types and classes, chooses the first call type and proposes a name. False when the
// database or the development environment fails.
bool PrepareFormulaDialog(FFunction& dialog, const DialogContext& context);

// Prepares the dialog and shows the record in it.
bool LoadFormulaIntoDialog(FFunction& dialog, const DialogContext& context,
                           const store::FormulaRecord& record);

// What the dialog holds. A call type that the list does not have stays that of `before`.
store::FormulaValues SaveFormulaFromDialog(const FFunction& dialog,
                                           const store::FormulaValues& before);

struct AddedFormula {
  bool added = false;
  std::string name;
  std::int32_t id = 0;
};

// Creates a formula. One that cannot be stored is shown again with what was entered.
AddedFormula AddFormula(const DialogContext& context);

// Edits the formula; whether it was changed. False too when there is none of that ID.
bool EditFormula(const DialogContext& context, std::int32_t formula_id);

}  // namespace dialogs
