// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "exchange/import_plan.h"

namespace exchange {

// The steps of an import.
class ImportRun {
 public:
  ImportRun(ImportPlan& plan, store::Operations& operations, const store::OperationOptions& options)
      : plan_(plan), operations_(operations), options_(options) {}

  // To be called where several operations are one.
  store::OperationResult Run();

 private:
  // Raise what a step answers unless it is done.
  void AddAliases();
  void ChangeAliases();
  void BringFormula(PlannedFormula& formula);
  void BringArguments(const PlannedFormula& formula);
  void EditFormula(const PlannedFormula& formula);
  void Advance(std::size_t rows);

  ImportPlan& plan_;
  store::Operations& operations_;
  const store::OperationOptions& options_;
  std::size_t done_ = 0;
};

}  // namespace exchange
