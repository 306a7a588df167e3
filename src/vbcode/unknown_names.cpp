// SPDX-License-Identifier: MIT
#include "vbcode/unknown_names.h"

#include <cstddef>

#include "vbcode/words.h"

namespace vbcode {

namespace {

constexpr std::size_t kLeastPrefix = 2;

bool IsLower(char c) { return c >= 'a' && c <= 'z'; }
bool IsUpper(char c) { return c >= 'A' && c <= 'Z'; }

// Small letters that say where it comes from, and a capital one.
bool LooksLikeConstant(std::string_view name) {
  std::size_t prefix = 0;
  while (prefix < name.size() && IsLower(name[prefix])) ++prefix;
  return prefix >= kLeastPrefix && prefix < name.size() && IsUpper(name[prefix]);
}

}  // namespace

std::vector<Place> FindUnknownNames(const Program& program, std::int32_t index) {
  const Program::Module& module = program.module(index);
  std::vector<Place> places;
  for (std::size_t i = 0; i < module.code.references.size(); ++i) {
    const Reference& reference = module.code.references[i];
    const Meaning& meaning = module.meanings[i];
    const bool is_unknown = meaning.sureness == Sureness::kUndeclared &&
                            meaning.declaration == kNone && meaning.module == kNone &&
                            reference.name >= kWordFlags.size();
    const bool stands_alone = reference.previous == kNothing && !reference.in_text &&
                              reference.parentheses == 0 && !reference.empty_parentheses;
    const bool is_value = reference.role == Role::kRead || reference.role == Role::kLet ||
                          reference.role == Role::kUpdate || reference.role == Role::kArgument;
    if (!is_unknown || !stands_alone || !is_value) continue;
    const std::string_view line = module.lines->Line(reference.line).substr(reference.column);
    const std::string_view name = line.substr(0, program.Text(reference.name).size());
    const bool is_written = reference.role == Role::kLet || reference.role == Role::kUpdate;
    if (!is_written && LooksLikeConstant(name)) continue;
    places.push_back({reference.line, reference.column, static_cast<std::uint32_t>(name.size())});
  }
  return places;
}

}  // namespace vbcode
