// SPDX-License-Identifier: MIT
// What rows may hold. The operations refuse what is against it; whoever looks at rows that others
// wrote asks the same questions.
#pragma once

#include <cstdint>
#include <string_view>

#include "codegen/identifier.h"
#include "platform/vbide.h"
#include "store/formula_records.h"

namespace store {

inline bool IsCallType(std::int32_t type) { return type >= 0 && type < kCallTypes; }

// Whether a formula of that call type takes the argument.
inline bool TakesArgument(std::int32_t type, bool in, bool out) {
  return type != kOnVariableChange || !in || !out;
}

// Holds nothing but blanks.
bool IsBlank(std::string_view text);

// The name of an item stands in a line of code and of many lists.
bool IsOneLine(std::string_view item);

// Why the name cannot be an alias; some names that Visual Basic does not take can be one.
codegen::IdentifierHint JudgeAlias(std::string_view name);

// The class that can hold formulas: a class module of an open ActiveX DLL that others can create.
bool CanHoldFormulas(const platform::VBProject& project, const platform::VBComponent& component);

}  // namespace store
