// SPDX-License-Identifier: MIT
#include "vbcode/body_findings.h"

#include <string_view>
#include <unordered_map>

#include "vbcode/columns.h"
#include "vbcode/effects.h"

namespace vbcode {

namespace {

class Check {
 public:
  Check(const Program& program, const std::vector<std::string>& aliases)
      : program_(program), effects_(program) {
    for (const std::string& alias : aliases) {
      const NameId name = program.names().Find(alias);
      if (name != kNoName) aliases_.emplace(name, &alias);
    }
  }

  void Formula(std::size_t index, const FormulaCode& formula) {
    const std::int32_t procedure = program_.FindProcedure(formula.module, formula.procedure);
    if (procedure == kNone) return;
    const Effects effects = effects_.Find(formula.module, procedure);
    const auto used = OwnVariables(program_, formula.module, effects);
    std::unordered_map<NameId, bool> is_argument;
    for (const FormulaCode::Argument& argument : formula.arguments) {
      const NameId name = program_.names().Find(argument.alias);
      if (name != kNoName) is_argument[name] = true;
      const auto found = used.find(name);
      BodyFinding finding;
      finding.formula = index;
      finding.alias = argument.alias;
      finding.place = Declared(formula.module, procedure);
      if (name == kNoName || found == used.end()) {
        if (!effects.open) Add(FindingKind::kArgumentUnused, finding);
        continue;
      }
      if (found->second.is_sure) finding.place = found->second.first;
      finding.effect = found->second.effect;
      if ((finding.effect & kUndecided) != 0 || effects.open) continue;
      if (argument.in && (finding.effect & kReads) == 0) {
        Add(FindingKind::kInOnlyWritten, finding);
      }
      if (argument.out && (finding.effect & kWrites) == 0) {
        Add(FindingKind::kOutNeverWritten, finding);
      }
    }
    for (const Touched& touched : effects.touched) {
      const auto alias = aliases_.find(touched.name);
      if (alias == aliases_.end() || is_argument[touched.name]) continue;
      const auto found = used.find(touched.name);
      if (found == used.end() || !found->second.is_sure) continue;
      is_argument[touched.name] = true;  // once
      BodyFinding finding;
      finding.formula = index;
      finding.alias = *alias->second;
      finding.effect = found->second.effect;
      finding.place = found->second.first;
      Add(FindingKind::kAliasNotArgument, finding);
    }
  }

  std::vector<BodyFinding> Take() { return std::move(findings_); }

 private:
  Use Declared(std::int32_t module, std::int32_t procedure) const {
    const ModuleCode& code = program_.module(module).code;
    const Declaration& declaration =
        code.declarations[Index(code.procedures[Index(procedure)].declaration)];
    const std::string_view line = program_.module(module).lines->Line(declaration.place.line);
    Use use;
    use.module = module;
    use.line = declaration.place.line;
    use.column = CountCharacters(line.substr(0, declaration.place.column)) + 1;
    use.length = CountCharacters(line.substr(declaration.place.column, declaration.place.length));
    use.procedure = procedure;
    return use;
  }

  void Add(FindingKind kind, BodyFinding finding) {
    finding.kind = kind;
    findings_.push_back(std::move(finding));
  }

  const Program& program_;
  EffectFinder effects_;
  std::unordered_map<NameId, const std::string*> aliases_;
  std::vector<BodyFinding> findings_;
};

}  // namespace

std::vector<BodyFinding> FindBodyFindings(const Program& program,
                                          const std::vector<FormulaCode>& formulas,
                                          const std::vector<std::string>& aliases) {
  Check check(program, aliases);
  for (std::size_t i = 0; i < formulas.size(); ++i) check.Formula(i, formulas[i]);
  return check.Take();
}

}  // namespace vbcode
