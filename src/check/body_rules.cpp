// SPDX-License-Identifier: MIT
#include "check/body_rules.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "vbcode/body_findings.h"

namespace check {
namespace {

using store::FormulaRecord;

const Rule& RuleOf(vbcode::FindingKind kind) {
  switch (kind) {
    case vbcode::FindingKind::kAliasNotArgument:
      return rule::kNoArgumentOfUse;
    case vbcode::FindingKind::kArgumentUnused:
      return rule::kUnusedArgument;
    case vbcode::FindingKind::kInOnlyWritten:
      return rule::kInOnlyWritten;
    case vbcode::FindingKind::kOutNeverWritten:
      break;
  }
  return rule::kOutNeverWritten;
}

}  // namespace

void CheckBodies(const Rows& rows, const Modules& modules, Findings& findings) {
  const bool wanted =
      findings.Wants(rule::kNoArgumentOfUse) || findings.Wants(rule::kUnusedArgument) ||
      findings.Wants(rule::kInOnlyWritten) || findings.Wants(rule::kOutNeverWritten);
  if (!wanted || modules.modules().empty()) return;
  const vbcode::Program& program = modules.program();
  std::vector<vbcode::FormulaCode> formulas;
  std::vector<const FormulaRecord*> records;
  std::set<std::pair<std::int32_t, std::int32_t>> seen;  // of several formulas of a name the first
  for (const FormulaRecord& formula : rows.formulas()) {
    const Modules::Module* module = modules.Find(formula.prog_id);
    if (!module || module->code == vbcode::kNone) continue;
    const std::int32_t procedure = program.FindProcedure(module->code, formula.name);
    if (procedure == vbcode::kNone || !program.HasStatements(module->code, procedure)) continue;
    if (!seen.emplace(module->code, procedure).second) continue;
    vbcode::FormulaCode code{module->code, formula.name, {}};
    for (const store::ArgumentRecord& argument : rows.ArgumentsOf(formula.id)) {
      const store::AliasRecord* alias = rows.FindAlias(argument.alias_id);
      if (alias) code.arguments.push_back({alias->vb_alias, argument.in, argument.out});
    }
    formulas.push_back(std::move(code));
    records.push_back(&formula);
  }
  std::vector<std::string> aliases;
  aliases.reserve(rows.aliases().size());
  for (const store::AliasRecord& alias : rows.aliases()) aliases.push_back(alias.vb_alias);
  for (const vbcode::BodyFinding& found : vbcode::FindBodyFindings(program, formulas, aliases)) {
    const FormulaRecord& formula = *records[found.formula];
    findings.Add(
        {RuleOf(found.kind),
         Line(modules.File(found.place.module), found.place.line),
         {{"<Name>", formula.name}, {"<Class>", formula.prog_id}, {"<Alias>", found.alias}}});
  }
}

}  // namespace check
