// SPDX-License-Identifier: MIT
#include "dialogs/fscan_time.h"

#include <algorithm>
#include <string>

#include "dialogs/many_texts.h"

namespace dialogs {

FScanTime::FScanTime(const DialogContext& context, std::span<const store::FormulaRecord> formulas,
                     std::size_t chosen)
    : DialogForm("FScanTime", context, kFormulaHelpTopic) {
  const std::string count = std::to_string(formulas.size());
  SetCaption(formulas.size() == 1
                 ? context.texts.Text(kTextScanTimeOfOne, {{"<Name>", formulas.front().name}})
                 : context.texts.Text(kTextScanTimeOfMany, {{"<Count>", count}}));
  lblScanTime.SetTag("C4793");
  txtScanTime.SetLayout({.min_chars = 12});
  for (forms::Label* hint : {&lblProblem, &lblOthers}) {
    hint->SetHint(true);
    hint->SetVisible(false);
  }
  const std::int32_t first = formulas.front().scan_time;
  const bool all_same =
      std::ranges::all_of(formulas, [&](const auto& record) { return record.scan_time == first; });
  if (all_same) txtScanTime.SetText(std::to_string(first));
  if (formulas.size() != chosen) {
    ShowHint(lblOthers,
             context.texts.Text(kTextOnlyAsynchronous,
                                {{"<Count>", count}, {"<Total>", std::to_string(chosen)}}));
  }
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  txtScanTime.on_change = [this] { OnScanTime(); };
}

std::int32_t FScanTime::ScanTime() const {
  return store::ParseScanTime(txtScanTime.Text()).value_or(0);
}

std::string FScanTime::Problem() const {
  return context().texts.Sentence(context().operations.CheckScanTime(txtScanTime.Text()).message);
}

void FScanTime::OnScanTime() {
  const std::string problem = txtScanTime.Text().empty() ? std::string() : Problem();
  ShowHint(lblProblem, problem);
  txtScanTime.SetInvalid(!problem.empty());
}

void FScanTime::Accept() {
  const std::string problem = Problem();
  if (problem.empty()) {
    Confirm();
  } else {
    Refuse(txtScanTime, problem, {});
  }
}

}  // namespace dialogs
