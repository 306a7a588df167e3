// SPDX-License-Identifier: MIT
#include <algorithm>

#include "vbcode/resolver.h"

namespace vbcode {

namespace {

// Visual Basic takes no more.
constexpr std::int32_t kMaxParameters = 60;

bool IsVariable(DeclarationKind kind) {
  return kind == DeclarationKind::kVariable || kind == DeclarationKind::kLocal ||
         kind == DeclarationKind::kParameter || kind == DeclarationKind::kRedim ||
         kind == DeclarationKind::kTypeMember;
}

}  // namespace

// Whether the name stands for what the function that it stands in returns.
bool Resolver::IsOwnResult(const Reference& reference, std::int32_t number) const {
  if (procedure_ == kNone || !IsBare(reference)) return false;
  const Declaration& own =
      module_->code.declarations[Index(module_->code.procedures[Index(procedure_)].declaration)];
  if (own.name != reference.name || own.kind == DeclarationKind::kSub) return false;
  const std::int32_t index = number - module_->first_declaration;
  if (index < 0 || Index(index) >= module_->code.declarations.size()) return false;
  if (own.kind == DeclarationKind::kProperty &&
      module_->code.procedures[Index(procedure_)].kind != platform::ProcKind::kGet) {
    return false;
  }
  if (reference.empty_parentheses) return false;
  return reference.parentheses == 0 || (own.is_array && own.parts == 0);
}

Effect Resolver::EffectOf(const Reference& reference, const Meaning& meaning) {
  const Role role = reference.role;
  if (role == Role::kUnknown) return kUndecided;
  if (meaning.module != kNone) return kReads;
  if (meaning.declaration == kNone) {
    switch (role) {
      case Role::kCall:
      case Role::kAddress:
        return kCalls;
      case Role::kObject:
        return kReads;
      case Role::kRead:
        if (HasFlag(reference.name, kIntrinsic)) return kCalls;
        return reference.parentheses == 0 ? kReads : kUndecided;
      case Role::kArgument:
        return IsBare(reference) ? EffectOfArgument(reference) : kReads;
      case Role::kUpdate:
        return reference.parentheses == 0 ? kReads | kWrites : kUndecided;
      default:
        return reference.parentheses == 0 ? kWrites : kUndecided;
    }
  }
  const Declaration& declaration = DeclarationAt(meaning.declaration);
  if (IsVariable(declaration.kind) || IsOwnResult(reference, meaning.declaration)) {
    // What has its members in it is used as they are.
    if (role == Role::kObject) return TypeOf(current_).kind == Kind::kRecord ? 0 : kReads;
    return EffectOnVariable(reference, meaning, TypeOfDeclaration(meaning.declaration, 0));
  }
  switch (declaration.kind) {
    case DeclarationKind::kSub:
    case DeclarationKind::kFunction:
    case DeclarationKind::kExternal:
    case DeclarationKind::kEvent:
      return kCalls;
    case DeclarationKind::kProperty:
      switch (role) {
        case Role::kLet:
        case Role::kSet:
        case Role::kReplace:
          return kWrites;
        case Role::kUpdate:
          return kReads | kWrites;
        default:
          return kReads;
      }
    case DeclarationKind::kConstant:
    case DeclarationKind::kLocalConstant:
    case DeclarationKind::kEnumMember:
    case DeclarationKind::kEnum:
      return role == Role::kRead || role == Role::kObject || role == Role::kArgument ? kReads
                                                                                     : kUndecided;
    default:
      return kUndecided;
  }
}

Effect Resolver::EffectOnVariable(const Reference& reference, const Meaning& meaning,
                                  const ValueType& type) {
  const bool element = reference.parentheses > 0;
  const bool through_object =
      meaning.other_object ||
      (reference.previous >= 0 && TypeOf(reference.previous).kind == Kind::kClass);
  if (element && !type.is_array) {
    // The default member of an object, or the element of an array that a Variant holds.
    const bool may_hold_array = type.kind == Kind::kVariant || type.kind == Kind::kUnknown;
    if (reference.role == Role::kRead || (!may_hold_array && type.kind != Kind::kValue)) {
      return kReads;
    }
    return kUndecided;
  }
  if (element && reference.parentheses > 1 && reference.role != Role::kRead) return kUndecided;
  switch (reference.role) {
    case Role::kRead:
      return kReads;
    case Role::kLet:
      if (type.kind == Kind::kObject || type.kind == Kind::kClass ||
          type.kind == Kind::kCollection) {
        return kReads;  // without Set the object's default member is assigned to
      }
      return type.kind == Kind::kForeign ? kUndecided : kWrites;
    case Role::kSet:
    case Role::kReplace:
      return kWrites;
    case Role::kUpdate:
      return kReads | kWrites;
    case Role::kArgument:
      // A member of an object is handed over as a copy.
      return through_object ? kReads : EffectOfArgument(reference);
    case Role::kCall:
      // The default method of an object.
      return type.kind == Kind::kObject || type.kind == Kind::kClass || type.kind == Kind::kForeign
                 ? kReads
                 : kUndecided;
    default:
      return kUndecided;
  }
}

std::int32_t Resolver::FindParameter(const Argument& argument, Effect& effect) const {
  const Reference& callee = module_->code.references[Index(argument.callee)];
  const Meaning& meaning = module_->meanings[Index(argument.callee)];
  effect = kUndecided;
  if (meaning.sureness == Sureness::kDoubtful) return kNone;
  if (meaning.declaration == kNone) {
    const bool library = meaning.sureness == Sureness::kUndeclared && IsBare(callee) &&
                         HasFlag(callee.name, kIntrinsic);
    const Kind object = callee.previous >= 0 ? TypeOf(callee.previous).kind : Kind::kUnknown;
    const bool copied = callee.name == Keyword("callbyname") && argument.position > 2;
    if ((library && !copied) || object == Kind::kLibrary || object == Kind::kCollection ||
        callee.name == Keyword("print")) {
      effect = kReads;
    }
    return kNone;
  }
  std::int32_t number = meaning.declaration;
  if (!HasParameters(DeclarationAt(number).kind)) {
    effect = kReads;  // a subscript
    return kNone;
  }
  const Declaration* declaration = &DeclarationAt(number);
  if (declaration->kind == DeclarationKind::kProperty) {
    const platform::ProcKind wanted = callee.role == Role::kLet   ? platform::ProcKind::kLet
                                      : callee.role == Role::kSet ? platform::ProcKind::kSet
                                                                  : platform::ProcKind::kGet;
    if (const std::int32_t accessor = FindAccessor(number, wanted); accessor != kNone) {
      number = accessor;
      declaration = &DeclarationAt(number);
    }
  } else if (IsOwnResult(callee, number)) {
    effect = kReads;  // a subscript of the array that is returned
    return kNone;
  }
  if (declaration->parts == 0) {
    // Behind a function without parameters stands a subscript of what it returns.
    effect = declaration->kind == DeclarationKind::kFunction ||
                     declaration->kind == DeclarationKind::kProperty
                 ? kReads
                 : kUndecided;
    return kNone;
  }
  std::int32_t position = argument.position;
  if (argument.name != kNoName) {
    const std::int32_t count = std::min(declaration->parts, kMaxParameters);
    for (position = 0; position < count; ++position) {
      if (DeclarationAt(number + 1 + position).name == argument.name) break;
    }
    if (position == count) return kNone;
  }
  position = std::min(position, declaration->parts - 1);
  const std::int32_t parameter = number + 1 + position;
  const Declaration& found = DeclarationAt(parameter);
  if (argument.position >= declaration->parts && found.passing != Passing::kParamArray) {
    return kNone;
  }
  const bool external = declaration->kind == DeclarationKind::kExternal;
  const ValueType type = TypeNamed(program_.PlaceOf(parameter).module, found.type);
  if (found.passing == Passing::kByVal) {
    // The memory of a text is handed over as it is.
    const bool text =
        external && (found.type.name == Keyword("string") || found.type.name == Keyword("any") ||
                     type.kind == Kind::kUnknown);
    effect = text ? kUndecided : kReads;
    return kNone;
  }
  const bool known = !external && declaration->kind != DeclarationKind::kEvent &&
                     !is_implemented_[Index(program_.PlaceOf(number).module)];
  return known ? parameter : kNone;
}

Effect Resolver::EffectOfArgument(const Reference& reference) {
  Effect effect = kUndecided;
  const Argument& argument = module_->code.arguments[Index(reference.argument)];
  const std::int32_t parameter = FindParameter(argument, effect);
  if (parameter == kNone) return effect;
  passed_.push_back({module_index_, current_, parameter});
  return 0;
}

// The effect on a member is one on the records that it is a part of.
void Resolver::AddEffect(std::int32_t module, std::int32_t number, Effect effect) {
  Program::Module& owner = program_.modules_[Index(module)];
  while (number >= 0) {
    Meaning& meaning = owner.meanings[Index(number)];
    meaning.effect |= effect;
    if (meaning.declaration == kNone) return;
    Effect& total = effects_[Index(meaning.declaration)];
    if ((total | effect) != total) {
      total |= effect;
      changed_.push_back(meaning.declaration);
    }
    if (DeclarationAt(meaning.declaration).kind != DeclarationKind::kTypeMember) return;
    number = owner.code.references[Index(number)].previous;
    if (number >= 0) {
      const Effect record = owner.meanings[Index(number)].effect;
      if ((record | effect) == record) return;
    }
  }
}

// What procedures do with the parameters that others hand on to them: until nothing changes.
void Resolver::SolveParameters() {
  // Arguments by the parameter they go to.
  std::vector<std::uint32_t> begins(effects_.size() + 1);
  for (const Passed& passed : passed_) ++begins[Index(passed.parameter) + 1];
  for (std::size_t i = 1; i < begins.size(); ++i) begins[i] += begins[i - 1];
  std::vector<std::size_t> arguments(passed_.size());
  std::vector<std::uint32_t> next(begins.begin(), begins.end() - 1);
  for (std::size_t i = 0; i < passed_.size(); ++i) {
    arguments[next[Index(passed_[i].parameter)]++] = i;
  }
  // A declaration is in the list again each time its effect grows: at most once for each bit.
  while (!changed_.empty()) {
    const std::size_t parameter = Index(changed_.back());
    changed_.pop_back();
    for (std::uint32_t i = begins[parameter]; i < begins[parameter + 1]; ++i) {
      const Passed& passed = passed_[arguments[i]];
      AddEffect(passed.module, passed.reference, effects_[parameter]);
    }
  }
  // What is handed over to nobody's use is evaluated all the same.
  for (const Passed& passed : passed_) {
    Meaning& meaning = program_.modules_[Index(passed.module)].meanings[Index(passed.reference)];
    if (meaning.effect == 0) meaning.effect = kReads;
  }
}

}  // namespace vbcode
