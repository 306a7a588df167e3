// SPDX-License-Identifier: MIT
#include "store/rules.h"

namespace store {

using codegen::IdentifierHint;
using codegen::IdentifierProblem;

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

bool IsOneLine(std::string_view item) {
  return item.find_first_of(std::string_view("\r\n\v\f\0", 5)) == std::string_view::npos;
}

IdentifierHint JudgeAlias(std::string_view name) {
  IdentifierHint hint = codegen::CheckIdentifier(name);
  if (!hint) return {};
  const bool is_clean = codegen::CleanIdentifier(name) == name;
  const bool too_long = codegen::CharacterCount(name) > codegen::kMaxIdentifierLength;
  if (is_clean && too_long) return {IdentifierProblem::kTooLong, {}};
  if (is_clean && !codegen::IsReservedWord(name)) return {};
  return hint;
}

bool CanHoldFormulas(const platform::VBProject& project, const platform::VBComponent& component) {
  return project.Type() == platform::ProjectType::kActiveXDll &&
         component.Type() == platform::ComponentType::kClassModule &&
         component.GetInstancing() >= platform::Instancing::kMultiUse;
}

}  // namespace store
