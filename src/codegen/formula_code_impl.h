// SPDX-License-Identifier: MIT
// The inside of CVBFormulaCode. formula_code_impl.cpp looks at the code and keeps what waits,
// formula_code_subs.cpp changes subs and headers, formula_code_aliases.cpp declarations.
#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "codegen/class_edits.h"
#include "codegen/formula_rows.h"
#include "codegen/report.h"
#include "codegen/sub_lines.h"
#include "codegen/templates.h"
#include "codegen/text_numbers.h"
#include "codegen/vb_formula_code.h"

namespace codegen {

class CVBFormulaCode::Impl {
 public:
  Impl(const texts::TextTable& texts, platform::OVItems* items, platform::ComponentList* components)
      : items_(items), components_(components), templates_(texts), report_(texts) {}

  void Initialize(std::shared_ptr<platform::Connection> connection,
                  std::shared_ptr<platform::VBE> vbe, std::string_view project) {
    CancelBatch();
    DropComponents();
    rows_.reset();
    if (connection) rows_ = std::make_unique<FormulaRows>(std::move(connection));
    vbe_ = std::move(vbe);
    project_ = project;
  }

  bool ShowFunction(CodeWindowCaller& caller, std::string_view prog_id, std::string_view name);
  void AddFunction(std::string_view prog_id, std::string_view name, std::string_view code);
  void RenameFunction(std::string_view prog_id, std::string_view old_name,
                      std::string_view new_name);
  void DeleteFunction(std::string_view prog_id, std::string_view name);
  void DeactivateFunction(std::string_view prog_id, std::string_view name);
  void AddParameter(std::string_view prog_id, std::string_view alias, std::string_view item,
                    std::string_view moved_from);
  void RenameParameter(std::string_view prog_id, std::string_view old_name,
                       std::string_view new_name, const ParameterIds& ids);
  void DeleteParameter(std::string_view prog_id, std::string_view name, const ParameterIds& ids);
  void RenameAlias(std::int32_t id, std::string_view old_alias, std::string_view new_alias,
                   std::string_view old_item);
  void RebuildHeader(std::string_view name, std::string_view prog_id);
  std::string GetHeader(std::string_view name, std::string_view prog_id);
  void ReplaceHeader(std::string_view name, std::string_view prog_id, std::string_view header);
  std::string VBConformItemName(std::string& item_name, std::int32_t actual_id);
  std::vector<AliasUse> AliasInUse(std::int32_t alias_id);
  MemberUse LookUp(std::string_view prog_id, std::string_view name);
  std::string FunctionText(std::string_view prog_id, std::string_view name, bool with_header);

  void BeginBatch() { ++batch_; }
  void EndBatch() {
    if (batch_ == 0 || --batch_ > 0) return;
    type_names_.clear();
    ApplyEdits();
  }
  void CancelBatch() {
    batch_ = 0;
    waiting_.clear();
    renamed_aliases_.clear();
    type_names_.clear();
  }
  void CommitComponents();
  void DropComponents() { component_changes_.clear(); }

  NeedFunctionName SetNeedFunctionName(NeedFunctionName answer) {
    return std::exchange(need_function_name_, std::move(answer));
  }
  bool HasEnvironment() const { return vbe_ != nullptr; }
  bool HasProjects() { return vbe_ && !vbe_->VBProjects().empty(); }
  Report& report() { return report_; }

 private:
  // A class and its module; the module is null when there is none.
  struct Place {
    std::shared_ptr<platform::VBComponent> component;
    platform::CodeModule* module = nullptr;
    explicit operator bool() const { return module != nullptr; }
    std::string File() const { return FileNameOf(component->FileName()); }
  };
  struct Header {
    std::string function_name;
    std::int32_t formula_id = 0;  // 0: not known
  };
  // What waits for the end of the batch, of one class.
  struct Waiting {
    std::string prog_id;
    ClassEdits declarations;
    std::vector<Header> headers;
    std::unordered_set<std::string> header_names;
    // Warnings that name a sub and its line.
    std::vector<std::pair<std::int32_t, std::string>> sub_warnings;
  };
  struct ComponentChange {
    bool add = false;
    std::string prog_id;
  };

  // Ends the operation: what need not wait is done.
  class OperationScope {
   public:
    explicit OperationScope(Impl& impl) : impl_(impl) { impl_.BeginBatch(); }
    ~OperationScope() {
      impl_.EndBatch();
      if (impl_.batch_ == 0) impl_.CommitComponents();
    }
    OperationScope(const OperationScope&) = delete;
    OperationScope& operator=(const OperationScope&) = delete;

   private:
    Impl& impl_;
  };

  // Raises when the class is there and cannot be read.
  Place Locate(std::string_view prog_id);
  // Locate, with a warning when there is no such class.
  Place LocateOrWarn(std::string_view prog_id);
  void WarnOfSub(const Place& place, std::int32_t text, std::string_view name);
  void WarnNoSub(std::string_view prog_id, std::string_view name) {
    report_.Warn(kTextNoSub, {{"<Class>", prog_id}, {"<Name>", name}});
  }
  // Appends code that is to hold the sub, and gives it its first header.
  void AppendSub(const Place& place, std::string_view prog_id, std::string_view name,
                 std::string_view code);
  // Whether the class has a type, enumeration or element of one of that name.
  bool IsTypeName(const Place& place, std::string_view prog_id, std::string_view name);
  // The sub that stands there already becomes the formula's: refused when the server cannot call
  // it, with a warning unless its header names one of these formulas.
  bool CanAdopt(const Place& place, std::string_view prog_id, const SubLocation& sub,
                std::initializer_list<std::string_view> formulas);
  // False, with a refusal, when no sub of that name can be added.
  bool CanAppend(const Place& place, std::string_view prog_id, std::string_view name);
  // The aliases that the header of that formula lists.
  std::vector<std::string> ArgumentsOf(std::string_view name, std::string_view prog_id);
  void RewriteHeader(const Place& place, const HeaderRegion& region, std::string_view name,
                     const std::vector<std::string>& aliases);
  void RewriteWaitingHeader(const Place& place, const Header& header, std::string_view prog_id,
                            const FormulaRows::ArgumentsById& arguments);
  void RewriteDeclaration(const Place& place, std::string_view prog_id, const SubLocation& sub,
                          std::string_view new_name);
  void CommentOut(const Place& place, const SubLocation& sub);
  void DeleteProcedure(const Place& place, const SubLocation& sub);
  // Whether the procedure cuts an #If block, so that its directives have to stay; with a warning.
  bool KeepsDirectives(const Place& place, const SubLocation& sub,
                       const std::vector<std::string>& lines);

  Waiting& WaitingFor(std::string_view prog_id);
  void HeaderWaits(std::string_view name, std::string_view prog_id, std::int32_t formula_id = 0);
  void HeaderIsDone(std::string_view name, std::string_view prog_id);
  // The item of the alias, alone in a list; an empty list when there is no such alias.
  std::vector<std::string> ItemOf(std::int32_t alias_id);
  // A declaration that stands before an operation and gives its type to the one that follows it.
  struct OldDeclaration {
    std::string_view prog_id;
    std::string_view alias;
  };
  void Declare(Waiting& waiting, std::string_view alias, std::string_view item,
               const OldDeclaration& old = {});
  // The type given there; empty when there is no such declaration.
  std::string TypeOf(const OldDeclaration& declaration);
  void ApplyEdits();

  void RegisterClass(std::string_view prog_id);
  // Takes the class from the component list when no formula of it is left.
  void UnregisterClass(std::string_view prog_id);

  platform::OVItems* items_;
  platform::ComponentList* components_;
  Templates templates_;
  Report report_;
  std::unique_ptr<FormulaRows> rows_;
  std::shared_ptr<platform::VBE> vbe_;
  std::string project_;  // of the host
  NeedFunctionName need_function_name_;
  int batch_ = 0;
  std::map<std::string, Waiting> waiting_;  // by ProgID without case
  std::vector<std::int32_t> renamed_aliases_;
  // Of the classes asked about in this batch, by ProgID without case. No operation changes them.
  std::map<std::string, std::unordered_set<std::string>> type_names_;
  std::vector<ComponentChange> component_changes_;
};

}  // namespace codegen
