// SPDX-License-Identifier: MIT
#pragma once

#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/check.h"
#include "check/findings.h"
#include "check/modules.h"
#include "check/rows.h"
#include "codegen/class_differences.h"
#include "codegen/declaration.h"
#include "codegen/formula_sub.h"
#include "codegen/sub_lines.h"
#include "platform/vbide.h"
#include "vbcode/program.h"

namespace check {

// Compares one class with its formulas.
class ClassCheck {
 public:
  struct Context {
    const Rows& rows;
    const Parts& parts;
    Findings& findings;
  };
  // All of it must outlive the object. The formulas may be none.
  ClassCheck(std::string prog_id, std::vector<const store::FormulaRecord*> formulas,
             const Modules::Module& module, const vbcode::Program::Module& code,
             const Context& context);

  void Run();

 private:
  using Alias = store::AliasRecord;

  // What the rows want.
  void WantFormulas();
  void WantListed(const std::vector<std::string>& aliases);
  std::optional<std::size_t> WantDeclaration(const Alias& alias);

  codegen::WantedClass WantedOfModule() const;

  // Procedures.
  void CheckOtherSubs();
  void CheckOtherSub(const codegen::SubLocation& sub);
  void CheckFormulaSub(const store::FormulaRecord& formula);
  void CheckSub(const store::FormulaRecord& formula, const codegen::SubLocation& sub);
  void CheckSwitchedOff();
  void AddOfSub(const Rule& rule, std::int32_t line, const store::FormulaRecord& formula);

  // Declarations.
  void CheckDeclarations();
  void CheckDeclaration(const platform::Member& member, const std::string& folded);
  void CheckTaken();
  void CheckTwice();

  // Differences.
  void Visit(const codegen::Difference& difference);
  void AddHeader(const codegen::Difference& difference);
  void AddLoose(const codegen::Difference& difference);
  void AddUndeclared(const codegen::Difference& difference);

  platform::CodeModule& module() const { return *module_.component->Module(); }
  const store::FormulaRecord* FormulaNamed(std::string_view name) const;
  Finding AtLine(const Rule& rule, std::int32_t line, const Alias& alias) const;

  std::string prog_id_;
  std::vector<const store::FormulaRecord*> formulas_;
  const Modules::Module& module_;
  const vbcode::Program::Module& code_;
  Context context_;
  std::string file_;
  codegen::ConditionalBlocks blocks_;
  std::vector<platform::Member> members_;
  std::pmr::monotonic_buffer_resource memory_;  // of the tables by name, folded
  std::pmr::unordered_map<std::string, std::size_t> member_of_{&memory_};
  std::pmr::unordered_map<std::string, const store::FormulaRecord*> by_name_{&memory_};
  // An alias of the formulas, and its place among the wanted declarations; none for a name that
  // cannot be declared.
  struct Used {
    const Alias* alias = nullptr;
    std::optional<std::size_t> declared;
    bool by_formula = true;  // false: only a header that no formula has lists it
  };
  const Used* FindUsed(std::string_view name) const;

  std::vector<const Alias*> aliases_;                           // of the formulas
  std::pmr::unordered_map<std::string, Used> used_{&memory_};   // the same by name
  std::unordered_map<std::string, codegen::VariableLine> old_;  // declarations of ours, by name
  std::unordered_set<std::string> types_;  // types and enumerations, with their elements; folded
  codegen::WantedClass wanted_;
};

}  // namespace check
