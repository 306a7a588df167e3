// SPDX-License-Identifier: MIT
// The formula code generator: writes and edits the Visual Basic source of formulas.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "codegen/code_context.h"
#include "codegen/report.h"
#include "platform/ado.h"

namespace codegen {

class CodeSync;

// A formula that uses an alias.
struct AliasUse {
  std::string name;
  std::string prog_id;
  friend bool operator==(const AliasUse&, const AliasUse&) = default;
};

// Raised to learn the function name of the formula that is being edited; the answer is filled in.
using NeedFunctionName = std::function<void(std::string& function_name)>;

// Who calls ShowFunction.
class CodeWindowCaller {
 public:
  virtual ~CodeWindowCaller() = default;
  // Brings the code window forward, before the code is shown in it.
  virtual void BringCodeWindowForward() = 0;
};

// The operations never raise. A step that fails is left out, and so is one whose project, class or
// procedure is missing; warnings say so and stay until they are taken. Operations of the store use
// CodeSync instead.
//
// A class is named by its ProgID: project name, ".", class name. Names match without regard to
// case. Nothing that an engineer wrote is ever removed: text is commented out, moved or kept.
class CVBFormulaCode {
 public:
  // `items` and `components` may be null: every item is a Variant then, and no component list is
  // kept. All referenced objects must outlive the generator.
  CVBFormulaCode(const texts::TextTable& texts, platform::OVItems* items,
                 platform::ComponentList* components)
      : context_{texts, items, components} {}
  CVBFormulaCode(const CVBFormulaCode&) = delete;
  CVBFormulaCode& operator=(const CVBFormulaCode&) = delete;

  // Without a connection headers list no arguments; without a development environment no
  // operation has an effect. The last argument is left out by every caller.
  void Initialize(std::shared_ptr<platform::Connection> ado_cnn,
                  std::shared_ptr<platform::VBE> vb_instance, std::string_view ovs_project_name,
                  const platform::Variant& reserved = platform::Missing{});

  // Shows the procedure in its code pane, its declaration selected. False when there is none.
  bool ShowFunction(CodeWindowCaller& caller, std::string_view prog_id,
                    std::string_view function_name);
  // Adds an empty sub, or `given_code` as it stands, at the end of the class, unless the sub
  // exists; then rebuilds its header and registers the class with the host.
  void AddFunction(std::string_view prog_id, std::string_view function_name,
                   std::string_view given_code);
  // Rewrites the declaration line; adds an empty sub when the old one is missing.
  void RenameFunction(std::string_view prog_id, std::string_view old_function_name,
                      std::string_view new_function_name);
  // Removes the procedure from its declaration to its end.
  void DeleteFunction(std::string_view prog_id, std::string_view function_name);
  // Comments the procedure out; its header stays.
  void DeactivateFunction(std::string_view prog_id, std::string_view function_name);

  // Declares the alias in the class unless it is declared, and rebuilds the header of the formula
  // that NeedFunctionName names. An item that the item browser does not know is a Variant.
  void AddParameter(std::string_view prog_id, std::string_view parameter_alias,
                    std::string_view item_name);
  // The formula and the aliases that a changed or deleted argument concerns.
  struct ParameterIds {
    std::int32_t formula_id = 0;
    std::string function_name;
    std::int32_t alias_id = 0;      // RenameParameter: the new alias
    std::int32_t old_alias_id = 0;  // RenameParameter only
  };
  // Exchanges the declaration of the old alias for that of the new one; the old one stays while
  // another formula of the class uses it.
  void RenameParameter(std::string_view prog_id, std::string_view old_parameter_name,
                       std::string_view new_parameter_name, const ParameterIds& ids);
  // Removes the alias's declaration unless another formula of the class uses it. Called before
  // the argument's row is deleted.
  void DeleteParameter(std::string_view prog_id, std::string_view parameter_name,
                       const ParameterIds& ids);

  // Makes `item_name` an identifier in place (see CleanIdentifier) and returns it, followed by
  // the first number that makes it unique when another alias than `actual_id` has it.
  std::string VBConformItemName(std::string& item_name, std::int32_t actual_id);

  void RebuildFunctionCommentHeader(std::string_view function_name, std::string_view prog_id);
  // The formulas whose arguments use the alias.
  std::vector<AliasUse> AliasInUse(std::int32_t alias_id);
  // The lines above the declaration that belong to the sub, joined by CR LF.
  std::string GetFunctionCommentHeader(std::string_view function_name, std::string_view prog_id);
  void ReplaceFunctionCommentHeader(std::string_view function_name, std::string_view prog_id,
                                    std::string_view header_string);
  // Declarations and headers follow the alias's new name and item, in every class that uses it.
  // When the item changed too, the old one tells the old declarations from an engineer's own.
  void RenameAlias(std::int32_t actual_id, std::string_view old_alias, std::string_view new_alias,
                   std::string_view old_item = {});

  void SetNeedFunctionName(NeedFunctionName answer) { need_function_name_ = std::move(answer); }
  std::vector<messages::Message> TakeWarnings() { return std::exchange(warnings_, {}); }

  // The procedure from declaration to end, joined by CR LF; with its header region above it when
  // asked. Empty when there is none. Raises platform::Error when the class cannot be read.
  std::string FunctionText(std::string_view prog_id, std::string_view function_name,
                           bool with_header) const {
    return SubText(Locate(context_, prog_id), function_name, with_header);
  }
  // For CodeSync.
  const CodeContext& context() const { return context_; }

 private:
  // Runs the step. One that fails is left out, with a warning.
  template <class Step>
  void Try(Step&& step);
  // Runs the steps one after the other as an operation of its own.
  template <class... Steps>
  void Run(Steps&&... steps);
  // The item of the alias; empty when there is none.
  std::string ItemOf(std::int32_t alias_id) const;
  void LoseArgument(CodeSync& sync, std::string_view prog_id, std::string_view alias,
                    const ParameterIds& ids) const;

  CodeContext context_;
  NeedFunctionName need_function_name_;
  std::vector<messages::Message> warnings_;
};

}  // namespace codegen
