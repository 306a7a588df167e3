// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "dialogs/dialog_form.h"
#include "store/formula_records.h"

namespace dialogs {

// One scan time for several formulas.
class FScanTime : public DialogForm {
 public:
  // `formulas`: the asynchronous ones of `chosen` that are selected, at least one.
  FScanTime(const DialogContext& context, std::span<const store::FormulaRecord> formulas,
            std::size_t chosen);

  // In milliseconds, once the dialog was confirmed.
  std::int32_t ScanTime() const;

  forms::Label lblScanTime{this, "lblScanTime"};
  forms::TextBox txtScanTime{this, "txtScanTime"};
  forms::Label lblProblem{this, "lblProblem"};
  forms::Label lblOthers{this, "lblOthers"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 protected:
  void Accept() override;

 private:
  // What keeps the text from being a scan time.
  std::string Problem() const;
  void OnScanTime();
};

}  // namespace dialogs
