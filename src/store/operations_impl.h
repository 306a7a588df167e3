// SPDX-License-Identifier: MIT
// The inside of Operations: operations.cpp looks things up, formula_operations.cpp,
// argument_operations.cpp and alias_operations.cpp change them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "store/operation_run.h"
#include "store/operations.h"

namespace store {

class Operations::Impl {
 public:
  explicit Impl(Parts parts) : run_(std::move(parts)) {}

  OperationResult AddFormula(const FormulaValues& values, const OperationOptions& options);
  OperationResult EditFormula(std::int32_t id, const FormulaValues& values,
                              const EditFormulaOptions& options);
  OperationResult DeleteFormulas(std::span<const std::int32_t> ids,
                                 const OperationOptions& options);
  OperationResult AddArguments(std::int32_t formula_id, std::span<const ArgumentValues> values,
                               const OperationOptions& options);
  OperationResult EditArgument(std::int32_t argument_id, const ArgumentValues& values,
                               const OperationOptions& options);
  OperationResult DeleteArguments(std::span<const std::int32_t> argument_ids,
                                  const OperationOptions& options);
  OperationResult AddAliases(std::span<const AliasValues> values, const OperationOptions& options);
  OperationResult EditAlias(std::int32_t id, const AliasValues& values,
                            const OperationOptions& options);
  OperationResult DeleteAliases(std::span<const std::int32_t> ids, const OperationOptions& options);

  std::string ProposeFormulaName();
  ClassList Classes();
  std::string ProposeAlias(std::string_view item, std::int32_t actual_id);
  OperationResult CheckFormulaName(std::string_view name);
  OperationResult CheckAlias(const AliasValues& values, std::int32_t actual_id);
  ProjectRows& rows() { return run_.rows(); }

 private:
  // Raise a refusal, or platform::Error when the database fails.
  FormulaRecord RequireFormula(std::int32_t id);
  AliasRecord RequireAlias(std::int32_t id);
  ArgumentRecord RequireArgument(std::int32_t id);
  void RequireFormulaName(std::string_view name);
  void RequireFormulaClass(std::string_view prog_id);
  void RequireFreeInClass(std::string_view prog_id, std::string_view name, std::int32_t but_id);
  void RequireNoInAndOut(std::int32_t formula_id);
  void RequireAliasText(const AliasValues& values, std::int32_t actual_id);
  // The class must not hold the name as anything else than an alias.
  void RequireDeclarable(std::string_view prog_id, std::string_view alias);
  void RequireNewArgument(const FormulaRecord& formula, const AliasRecord& alias);
  void RequireInOrOut(const FormulaRecord& formula, const ArgumentValues& values,
                      std::string_view alias);
  // Raises platform::Error when the class cannot be read.
  bool IsFormulaClass(std::string_view prog_id);

  // Warns of a name that is stored although Visual Basic may not take it.
  void WarnOfAlias(std::string_view name);
  void RenameInCode(const FormulaRecord& old, const FormulaValues& values);
  void MoveInCode(const FormulaRecord& formula, std::string_view old_class, bool with_code);
  void DeleteFormula(std::int32_t id);

  OperationRun run_;
};

}  // namespace store
