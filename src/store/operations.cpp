// SPDX-License-Identifier: MIT
#include "store/operations.h"

#include <charconv>

#include "codegen/identifier.h"
#include "platform/prog_id.h"
#include "platform/text.h"
#include "store/operation_context.h"
#include "store/operation_texts.h"
#include "store/rules.h"

namespace store {
namespace {

constexpr std::int32_t kMaxNameNumber = 32767;
constexpr std::int32_t kErrOverflow = 6;

// The number behind the base in a name such as "Formula12"; 0 for any other name. Letter case and
// blanks at the end do not count, as they do not for the database.
std::int32_t NumberOf(std::string_view name, std::string_view base) {
  while (name.ends_with(' ')) name.remove_suffix(1);
  if (name.size() <= base.size() ||
      !platform::EqualsIgnoringCase(name.substr(0, base.size()), base)) {
    return 0;
  }
  const std::string_view digits = name.substr(base.size());
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  return whole && digits[0] != '0' && number > 0 ? number : 0;
}

}  // namespace

Operations::Operations(Parts parts)
    : context_(std::make_unique<OperationContext>(std::move(parts))) {}
Operations::~Operations() = default;

ProjectRows& Operations::rows() { return context_->rows(); }

std::string Operations::ProposeFormulaName() {
  const std::string base = context_->texts().Text(kTextFormulaBase);
  std::vector<bool> taken(kMaxNameNumber + 1, false);
  rows().ForEachFormulaName([&](const std::string& name) {
    const std::int32_t number = NumberOf(name, base);
    if (number <= kMaxNameNumber) taken[static_cast<std::size_t>(number)] = true;
  });
  for (std::int32_t i = 1; i <= kMaxNameNumber; ++i) {
    if (!taken[static_cast<std::size_t>(i)]) return base + std::to_string(i);
  }
  throw platform::Error(platform::ErrorKind::kRefused, kErrOverflow,
                        messages::Message({kTextNoFreeName}, {{"<Base>", base}}));
}

ClassList Operations::Classes() {
  ClassList list;
  if (!context_->parts().vbe) return list;
  std::string too_long;
  for (const auto& project : context_->parts().vbe->VBProjects()) {
    if (project->Type() != platform::ProjectType::kActiveXDll) continue;
    for (const auto& component : project->VBComponents()) {
      if (!CanHoldFormulas(*project, *component)) continue;
      const std::string prog_id = project->Name() + "." + component->Name();
      list.classes.push_back({prog_id, component->FileName()});
      if (codegen::CharacterCount(prog_id) > codegen::kMaxProgIdLength) {
        too_long += (too_long.empty() ? "" : ", ") + prog_id;
      }
    }
  }
  if (!too_long.empty()) {
    list.warnings.push_back(messages::Message({kTextLongClassNames}, {{"<ClassNames>", too_long}}));
  }
  return list;
}

bool Operations::IsFormulaClass(std::string_view prog_id) {
  const platform::ProgId named(prog_id);
  if (!context_->parts().vbe || named.project().empty()) return false;
  const auto project = context_->parts().vbe->FindProject(named.project());
  if (!project || project->Type() != platform::ProjectType::kActiveXDll) return false;
  const auto component = project->FindComponent(named.class_name());
  if (!component || component->Type() != platform::ComponentType::kClassModule) return false;
  if (CanHoldFormulas(*project, *component)) return true;
  // A class that cannot be read says so here; any other just does not fit.
  if (component->Module()) component->Module()->RequireSource();
  return false;
}

FormulaRecord Operations::RequireFormula(std::int32_t id) {
  if (auto record = rows().FindFormula(id)) return *record;
  context_->Refuse(kTextNoFormula, {{"<ID>", std::to_string(id)}});
}
AliasRecord Operations::RequireAlias(std::int32_t id) {
  if (auto record = rows().FindAlias(id)) return *record;
  context_->Refuse(kTextNoAlias, {{"<ID>", std::to_string(id)}});
}
ArgumentRecord Operations::RequireArgument(std::int32_t id) {
  if (auto record = rows().FindArgument(id)) return *record;
  context_->Refuse(kTextNoArgument, {{"<ID>", std::to_string(id)}});
}

// --- Look-ups ---

std::vector<FormulaRecord> Operations::UsesOfAlias(std::int32_t alias_id) {
  return rows().UsesOfAlias(alias_id);
}
std::optional<FormulaRecord> Operations::FindFormula(std::int32_t id) {
  return rows().FindFormula(id);
}
std::vector<FormulaRecord> Operations::FindFormulasByName(std::string_view name) {
  return rows().FindFormulasByName(name);
}
std::optional<FormulaRecord> Operations::FindFormulaInClass(std::string_view prog_id,
                                                            std::string_view name) {
  return rows().FindFormulaInClass(prog_id, name);
}
std::optional<AliasRecord> Operations::FindAlias(std::int32_t id) { return rows().FindAlias(id); }
std::optional<AliasRecord> Operations::FindAliasByName(std::string_view vb_alias) {
  return rows().FindAliasByName(vb_alias);
}
std::optional<ArgumentRecord> Operations::FindArgument(std::int32_t id) {
  return rows().FindArgument(id);
}
std::vector<ArgumentRecord> Operations::ArgumentsOf(std::int32_t formula_id) {
  return rows().ArgumentsOf(formula_id);
}
void Operations::ForEachFormula(const std::function<void(const FormulaRecord&)>& visit) {
  rows().ForEachFormula(visit);
}
void Operations::ForEachAlias(const std::function<void(const AliasRecord&)>& visit) {
  rows().ForEachAlias(visit);
}
void Operations::ForEachArgument(const std::function<void(const ArgumentRecord&)>& visit) {
  rows().ForEachArgument(visit);
}
Statistics Operations::Count() { return rows().Count(); }

}  // namespace store
