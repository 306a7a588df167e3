// SPDX-License-Identifier: MIT
#include <algorithm>
#include <span>

#include "vbcode/resolver.h"

namespace vbcode {

ValueType Resolver::TypeNamed(std::int32_t module, const TypeName& type) const {
  if (type.qualifier == kNoName) {
    if (HasFlag(type.name, kValueType)) return {Kind::kValue};
    if (type.name == Keyword("variant")) return {Kind::kVariant};
    if (type.name == Keyword("object")) return {Kind::kObject};
    if (type.name == Keyword("any") || type.name == kNoName) return {Kind::kUnknown};
  }
  auto of_declaration = [&](std::int32_t number) {
    const bool is_enum = DeclarationAt(number).kind == DeclarationKind::kEnum;
    return ValueType{is_enum ? Kind::kValue : Kind::kRecord, false, false, number};
  };
  if (type.qualifier == kNoName || type.qualifier == program_.module(module).name) {
    const std::int32_t own = program_.FindKey(program_.types_, module, type.name);
    if (own != kNone) return of_declaration(own);
  }
  const NameId project = program_.module(module).project;
  std::int32_t elsewhere = kNone;
  for (std::int32_t m = module_heads_[type.name]; m != kNone; m = next_module_[Index(m)]) {
    const Program::Module& candidate = program_.module(m);
    if (candidate.source.kind != ModuleKind::kClass) continue;
    if (type.qualifier != kNoName && candidate.project != type.qualifier) continue;
    if (candidate.project == project) return {Kind::kClass, false, false, m};
    if (elsewhere == kNone) elsewhere = m;
  }
  for (std::int32_t i = type_heads_[type.name]; i != kNone; i = shared_[Index(i)].next) {
    const std::int32_t found = shared_[Index(i)].declaration;
    const Program::Module& owner = program_.module(program_.PlaceOf(found).module);
    if (owner.project == project && (type.qualifier == kNoName || type.qualifier == owner.name ||
                                     type.qualifier == owner.project)) {
      return of_declaration(found);
    }
  }
  if (elsewhere != kNone) return {Kind::kClass, false, false, elsewhere};
  return {type.name == Keyword("collection") ? Kind::kCollection : Kind::kForeign};
}

ValueType Resolver::TypeOfDeclaration(std::int32_t number, int parentheses) const {
  const Declaration& declaration = DeclarationAt(number);
  const std::int32_t owner = program_.PlaceOf(number).module;
  ValueType type = TypeNamed(owner, declaration.type);
  if (declaration.type.name == kNoName) {
    type.kind = declaration.has_type_character ? Kind::kValue : Kind::kVariant;
  }
  type.is_array = declaration.is_array;
  if (parentheses == 0) return type;
  const bool index_needed = !HasParameters(declaration.kind) || declaration.parts == 0;
  if (index_needed && !declaration.is_array) {
    // A default member, or the element of what a Variant holds.
    return {type.kind == Kind::kValue ? Kind::kForeign : Kind::kUnknown};
  }
  if (parentheses > 1) return {};
  if (index_needed) type.is_array = false;
  return type;
}

// The procedure of that kind of the property; kNone for none.
std::int32_t Resolver::FindAccessor(std::int32_t number, platform::ProcKind kind) const {
  constexpr std::size_t kMaxTwins = 16;  // in branches of #If
  const std::span<const Program::MemberKey> same = program_.MembersLike(number);
  for (const Program::MemberKey& key : same.first(std::min(same.size(), kMaxTwins))) {
    const auto place = program_.PlaceOf(key.declaration);
    const ModuleCode& code = program_.module(place.module).code;
    const Declaration& found = code.declarations[Index(place.index)];
    if (found.kind == DeclarationKind::kProperty &&
        code.procedures[Index(found.procedure)].kind == kind) {
      return key.declaration;
    }
  }
  return kNone;
}

ValueType Resolver::TypeOf(std::int32_t number) const {
  const Reference& reference = module_->code.references[Index(number)];
  const Meaning& meaning = module_->meanings[Index(number)];
  if (meaning.sureness == Sureness::kDoubtful) return {};
  if (meaning.module != kNone) {
    const bool is_class = program_.module(meaning.module).source.kind == ModuleKind::kClass;
    const bool is_me = IsBare(reference) && reference.name == Keyword("me");
    if (reference.parentheses > 0) return {};
    return {is_class ? Kind::kClass : Kind::kModule, false, is_me, meaning.module};
  }
  if (meaning.declaration == kNone) {
    if (meaning.sureness == Sureness::kForeign) {
      const bool is_project = IsBare(reference) && is_project_[reference.name];
      if (is_project) return {Kind::kProject};
      // The modules of the runtime library hold procedures alone.
      if (reference.previous >= 0) {
        const Reference& library = module_->code.references[Index(reference.previous)];
        if (IsBare(library) && library.name == Keyword("vba") &&
            module_->meanings[Index(reference.previous)].sureness == Sureness::kUndeclared) {
          return {Kind::kLibrary};
        }
      }
      return {};
    }
    const bool is_library = meaning.sureness == Sureness::kUndeclared && IsBare(reference) &&
                            HasFlag(reference.name, kIntrinsic) && reference.parentheses == 0;
    return {is_library ? Kind::kLibrary : Kind::kUnknown};
  }
  const Declaration& declaration = DeclarationAt(meaning.declaration);
  switch (declaration.kind) {
    case DeclarationKind::kEnum:
      return {Kind::kEnum, false, false, meaning.declaration};
    case DeclarationKind::kProperty:
      if (const std::int32_t getter = FindAccessor(meaning.declaration, platform::ProcKind::kGet);
          getter != kNone) {
        return TypeOfDeclaration(getter, reference.parentheses);
      }
      return {};
    case DeclarationKind::kSub:
    case DeclarationKind::kEvent:
    case DeclarationKind::kType:
    case DeclarationKind::kLabel:
      return {};
    default:
      return TypeOfDeclaration(meaning.declaration, reference.parentheses);
  }
}

}  // namespace vbcode
