// SPDX-License-Identifier: MIT
#include "check/class_rules.h"

#include <cassert>
#include <map>
#include <utility>

#include "check/class_check.h"
#include "platform/text.h"
#include "store/project_rows.h"

namespace check {
namespace {

using store::FormulaRecord;

// The formulas of one class, as its ProgID is written in the first of them.
struct FormulasOfClass {
  std::string prog_id;
  std::vector<const FormulaRecord*> formulas;
};

std::map<std::string, FormulasOfClass> GroupByClass(const Rows& rows) {
  std::map<std::string, FormulasOfClass> classes;
  for (const FormulaRecord& formula : rows.formulas()) {
    FormulasOfClass& found = classes[platform::FoldCase(formula.prog_id)];
    if (found.formulas.empty()) found.prog_id = formula.prog_id;
    found.formulas.push_back(&formula);
  }
  return classes;
}

// Whether the class's code can be looked at.
bool IsThere(const FormulasOfClass& formulas, const Modules::Module* module, Findings& findings) {
  const auto add = [&](const Rule& rule, const messages::Message& why) {
    findings.Add(
        {rule,
         Row(store::kFormulasTable, formulas.formulas.front()->id, "ProgID"),
         {{"<Class>", formulas.prog_id}, {"<Count>", formulas.formulas.size()}, {"<Why>", why}}});
  };
  if (!module) {
    add(rule::kNoClass, {});
    return false;
  }
  if (module->code == vbcode::kNone) {
    add(rule::kUnreadableClass, module->problem);
    return false;
  }
  if (!module->can_hold_formulas) add(rule::kNoFormulaClass, {});
  return true;
}

}  // namespace

void CheckClasses(const Rows& rows, const Modules& modules, const Parts& parts, Findings& findings,
                  const Progress& progress) {
  if (!parts.code.vbe) return;
  std::map<std::string, FormulasOfClass> classes = GroupByClass(rows);
  for (const Modules::Module& module : modules.modules()) {
    if (module.can_hold_formulas && module.code != vbcode::kNone) {
      classes[platform::FoldCase(module.prog_id)].prog_id = module.prog_id;
    }
  }
  std::size_t done = 0;
  for (const auto& [key, formulas] : classes) {
    if (progress) progress(done++, classes.size());
    const Modules::Module* module = modules.Find(formulas.prog_id);
    if (module ? !module->is_wanted : !modules.AreAll()) continue;
    if (!formulas.formulas.empty() && !IsThere(formulas, module, findings)) continue;
    assert(module);  // one without formulas is here because of its module
    ClassCheck(formulas.prog_id, formulas.formulas, *module, modules.program().module(module->code),
               {rows, parts, findings})
        .Run();
  }
}

}  // namespace check
