// SPDX-License-Identifier: MIT
#include "vbcode/resolver.h"

#include <algorithm>
#include <span>

namespace vbcode {

namespace {

// How far outward branches of #If are compared; beyond it nothing is said about them.
constexpr int kMaxBranches = 32;
// Visual Basic takes no more.
constexpr std::int32_t kMostParameters = 60;

inline std::size_t Index(std::int32_t number) { return static_cast<std::size_t>(number); }

bool IsShared(const Declaration& declaration, ModuleKind kind) {
  if (declaration.procedure != kNone && declaration.kind != DeclarationKind::kSub &&
      declaration.kind != DeclarationKind::kFunction &&
      declaration.kind != DeclarationKind::kProperty) {
    return false;
  }
  if (declaration.scope != platform::MemberScope::kPublic) return false;
  switch (declaration.kind) {
    case DeclarationKind::kEnum:
    case DeclarationKind::kEnumMember:
      return true;
    case DeclarationKind::kVariable:
    case DeclarationKind::kConstant:
    case DeclarationKind::kSub:
    case DeclarationKind::kFunction:
    case DeclarationKind::kProperty:
    case DeclarationKind::kExternal:
      return kind == ModuleKind::kStandard;
    default:
      return false;
  }
}

bool IsSharedType(const Declaration& declaration) {
  return declaration.scope == platform::MemberScope::kPublic &&
         (declaration.kind == DeclarationKind::kEnum || declaration.kind == DeclarationKind::kType);
}

bool IsVariable(DeclarationKind kind) {
  return kind == DeclarationKind::kVariable || kind == DeclarationKind::kLocal ||
         kind == DeclarationKind::kParameter || kind == DeclarationKind::kRedim ||
         kind == DeclarationKind::kTypeMember;
}

bool HasParameters(DeclarationKind kind) {
  return kind == DeclarationKind::kSub || kind == DeclarationKind::kFunction ||
         kind == DeclarationKind::kProperty || kind == DeclarationKind::kExternal ||
         kind == DeclarationKind::kEvent;
}

enum class Relation { kWithin, kApart, kUnclear };

// Whether code of the branch `inner` is within `outer`, or never compiled along with it.
Relation RelationOf(const std::vector<Branch>& branches, std::int32_t inner, std::int32_t outer) {
  std::int32_t in = inner;
  for (int i = 0; i < kMaxBranches; ++i, in = branches[Index(in)].parent) {
    if (in == outer) return Relation::kWithin;
    if (in == 0) break;
    std::int32_t out = outer;
    for (int k = 0; k < kMaxBranches && out != 0; ++k, out = branches[Index(out)].parent) {
      if (branches[Index(in)].group == branches[Index(out)].group && in != out) {
        return Relation::kApart;
      }
    }
  }
  return Relation::kUnclear;
}

}  // namespace

Resolver::Resolver(Program& program)
    : program_(program),
      shared_heads_(program.names_.size(), kNone),
      type_heads_(program.names_.size(), kNone),
      module_heads_(program.names_.size(), kNone),
      next_module_(program.modules_.size(), kNone),
      is_project_(program.names_.size()),
      is_implemented_(program.modules_.size()),
      effects_(Index(program.declaration_count_)),
      member_by_name_(program.names_.size(), kNone),
      local_by_name_(program.names_.size(), kNone),
      has_twin_(program.names_.size()) {}

// The module that is worked on is nearly always the one.
const Declaration& Resolver::DeclarationAt(std::int32_t number) const {
  if (module_ != nullptr) {
    const std::size_t index = Index(number - module_->first_declaration);
    if (index < module_->code.declarations.size()) return module_->code.declarations[index];
  }
  return program_.declaration(number);
}

void Resolver::Run() {
  ListShared();
  for (std::int32_t module = 0; module < program_.ModuleCount(); ++module) ResolveModule(module);
  SolveParameters();
}

void Resolver::ListShared() {
  for (std::int32_t m = program_.ModuleCount() - 1; m >= 0; --m) {
    const Program::Module& module = program_.module(m);
    next_module_[Index(m)] = module_heads_[module.name];
    module_heads_[module.name] = m;
    is_project_[module.project] = module.project != kNoName;
    const auto& declarations = module.code.declarations;
    for (std::int32_t i = 0; Index(i) < declarations.size(); ++i) {
      const Declaration& declaration = declarations[Index(i)];
      if (IsShared(declaration, module.source.kind)) {
        AddShared(shared_heads_[declaration.name], module.first_declaration + i);
      }
      if (IsSharedType(declaration)) {
        AddShared(type_heads_[declaration.name], module.first_declaration + i);
      }
    }
  }
  for (std::int32_t m = 0; m < program_.ModuleCount(); ++m) {
    for (const TypeName& interface : program_.module(m).code.interfaces) {
      const ValueType type = TypeNamed(m, interface);
      if (type.kind == Kind::kClass) is_implemented_[Index(type.index)] = true;
    }
  }
}

void Resolver::AddShared(std::int32_t& head, std::int32_t declaration) {
  shared_.push_back({declaration, head});
  head = static_cast<std::int32_t>(shared_.size()) - 1;
}

void Resolver::ResolveModule(std::int32_t module) {
  module_index_ = module;
  module_ = &program_.modules_[Index(module)];
  ModuleCode& code = module_->code;
  module_->meanings.assign(code.references.size(), {});
  const auto count = static_cast<std::int32_t>(code.references.size());
  const auto members = std::lower_bound(
      program_.members_.begin(), program_.members_.end(), module,
      [](const Program::MemberKey& key, std::int32_t owner) { return key.owner < owner; });
  auto end = members;
  for (; end != program_.members_.end() && end->owner == module; ++end) {
    if (member_by_name_[end->name] == kNone) member_by_name_[end->name] = end->declaration;
  }
  branch_ = 0;
  procedure_ = kNone;
  std::size_t next_procedure = 0;
  std::size_t next_branch = 0;
  for (current_ = 0; current_ < count; ++current_) {
    while (procedure_ != kNone && current_ >= code.procedures[Index(procedure_)].references_end) {
      LeaveProcedure(code.procedures[Index(procedure_)]);
      procedure_ = kNone;
    }
    while (next_procedure < code.procedures.size() && procedure_ == kNone &&
           current_ >= code.procedures[next_procedure].references_begin) {
      if (current_ < code.procedures[next_procedure].references_end) {
        procedure_ = static_cast<std::int32_t>(next_procedure);
        EnterProcedure(code.procedures[next_procedure]);
      }
      ++next_procedure;
    }
    const std::int32_t line = code.references[Index(current_)].line;
    while (next_branch < code.branch_starts.size() &&
           code.branch_starts[next_branch].line <= line) {
      branch_ = code.branch_starts[next_branch++].branch;
    }
    Resolve(current_);
  }
  if (procedure_ != kNone) LeaveProcedure(code.procedures[Index(procedure_)]);
  for (auto key = members; key != end; ++key) member_by_name_[key->name] = kNone;
}

// Locals that were declared first come out on top.
void Resolver::EnterProcedure(const Procedure& procedure) {
  const auto& declarations = module_->code.declarations;
  for (std::int32_t i = procedure.declaration + 1; i < procedure.declarations_end; ++i) {
    const Declaration& local = declarations[Index(i)];
    if (local.kind == DeclarationKind::kLabel) continue;
    if (local_by_name_[local.name] != kNone) {
      if (local.kind != DeclarationKind::kRedim) has_twin_[local.name] = true;
      continue;
    }
    if (local.kind == DeclarationKind::kRedim &&
        (member_by_name_[local.name] != kNone || shared_heads_[local.name] != kNone)) {
      continue;
    }
    local_by_name_[local.name] = i;
  }
}

void Resolver::LeaveProcedure(const Procedure& procedure) {
  const auto& declarations = module_->code.declarations;
  for (std::int32_t i = procedure.declaration + 1; i < procedure.declarations_end; ++i) {
    local_by_name_[declarations[Index(i)].name] = kNone;
    has_twin_[declarations[Index(i)].name] = false;
  }
}

void Resolver::Resolve(std::int32_t number) {
  const Reference& reference = module_->code.references[Index(number)];
  Meaning& meaning = module_->meanings[Index(number)];
  if (reference.in_text) {
    meaning.sureness = Sureness::kAnyMember;
    meaning.effect = kUndecided;
    return;
  }
  if (reference.role == Role::kNew) {
    const ValueType type = TypeNamed(module_index_, {kNoName, reference.name});
    meaning.sureness = type.kind == Kind::kClass ? Sureness::kSure : Sureness::kForeign;
    if (type.kind == Kind::kClass) meaning.module = type.index;
    meaning.effect = kCalls;
    return;
  }
  if (reference.previous == kNothing) {
    ResolveBare(reference, meaning);
  } else {
    ResolveMember(reference, meaning);
  }
  const Effect effect = EffectOf(reference, meaning);
  AddEffect(module_index_, number, effect);
}

bool Resolver::IsBare(const Reference& reference) const { return reference.previous == kNothing; }

bool Resolver::ResolveLocal(const Reference& reference, Meaning& meaning) const {
  const std::int32_t local = local_by_name_[reference.name];
  if (local == kNone) return false;
  const ModuleCode& code = module_->code;
  const Declaration& declaration = code.declarations[Index(local)];
  const Relation relation = RelationOf(code.branches, branch_, declaration.branch);
  const bool above =
      declaration.kind != DeclarationKind::kParameter &&
      (reference.line < declaration.place.line ||
       (reference.line == declaration.place.line && reference.column < declaration.place.column));
  if (relation == Relation::kWithin && !above) {
    meaning.declaration = module_->first_declaration + local;
    meaning.sureness = Sureness::kSure;
    return true;
  }
  if (relation == Relation::kApart && !has_twin_[reference.name]) return false;
  // Another declaration of the name may be meant, in another branch.
  meaning.sureness = Sureness::kDoubtful;
  return false;
}

void Resolver::ResolveBare(const Reference& reference, Meaning& meaning) {
  if (reference.name == Keyword("me")) {
    meaning.module = module_index_;
    meaning.sureness = Sureness::kSure;
    return;
  }
  meaning.sureness = Sureness::kSure;
  if (ResolveLocal(reference, meaning)) return;
  const bool doubtful = meaning.sureness == Sureness::kDoubtful;
  if (member_by_name_[reference.name] != kNone) {
    meaning.declaration = member_by_name_[reference.name];
  } else {
    ResolveShared(reference.name, meaning);
  }
  if (doubtful) meaning.sureness = Sureness::kDoubtful;
}

// What other modules declare for all; then the names of modules.
void Resolver::ResolveShared(NameId name, Meaning& meaning) const {
  bool ambiguous = false;
  for (std::int32_t i = shared_heads_[name]; i != kNone; i = shared_[Index(i)].next) {
    const std::int32_t found = shared_[Index(i)].declaration;
    const std::int32_t owner = program_.PlaceOf(found).module;
    if (program_.module(owner).project != module_->project) continue;
    // Of the declarations of one module the first is on top.
    if (meaning.declaration != kNone && program_.PlaceOf(meaning.declaration).module != owner) {
      ambiguous = true;
      break;
    }
    meaning.declaration = found;
  }
  if (ambiguous) {
    meaning.declaration = kNone;
    meaning.sureness = Sureness::kDoubtful;
    return;
  }
  if (meaning.declaration != kNone) {
    meaning.declaration = program_.FindMember(program_.PlaceOf(meaning.declaration).module, name);
    return;
  }
  for (std::int32_t m = module_heads_[name]; m != kNone; m = next_module_[Index(m)]) {
    if (program_.module(m).project != module_->project) continue;
    meaning.module = m;
    meaning.other_object = program_.module(m).source.kind == ModuleKind::kClass;
    return;
  }
  meaning.sureness = is_project_[name] ? Sureness::kForeign : Sureness::kUndeclared;
}

void Resolver::ResolveMember(const Reference& reference, Meaning& meaning) {
  ValueType object;
  if (reference.previous >= 0) {
    object = TypeOf(reference.previous);
    meaning.other_object = module_->meanings[Index(reference.previous)].other_object;
  }
  switch (object.kind) {
    case Kind::kClass:
    case Kind::kModule: {
      const std::int32_t found = program_.FindMember(object.index, reference.name);
      const bool own =
          object.is_me || (object.kind == Kind::kModule && object.index == module_index_);
      if (object.kind == Kind::kClass && !object.is_me) meaning.other_object = true;
      if (object.kind == Kind::kModule) meaning.other_object = false;
      if (found == kNone ||
          (!own && DeclarationAt(found).scope == platform::MemberScope::kPrivate)) {
        meaning.sureness = own ? Sureness::kUndeclared : Sureness::kForeign;
      } else {
        meaning.declaration = found;
        meaning.sureness = Sureness::kSure;
      }
      return;
    }
    case Kind::kRecord:
    case Kind::kEnum:
      meaning.declaration = program_.FindPart(object.index, reference.name);
      meaning.sureness = meaning.declaration == kNone ? Sureness::kForeign : Sureness::kSure;
      return;
    case Kind::kProject:
      for (std::int32_t m = module_heads_[reference.name]; m != kNone; m = next_module_[Index(m)]) {
        if (program_.module(m).project !=
            module_->code.references[Index(reference.previous)].name) {
          continue;
        }
        meaning.module = m;
        meaning.sureness = Sureness::kSure;
        meaning.other_object = program_.module(m).source.kind == ModuleKind::kClass;
        return;
      }
      meaning.sureness = Sureness::kForeign;
      return;
    case Kind::kForeign:
    case Kind::kCollection:
    case Kind::kLibrary:
    case Kind::kValue:
      meaning.sureness = Sureness::kForeign;
      return;
    default:
      meaning.sureness = Sureness::kAnyMember;
  }
}

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
    const std::int32_t count = std::min(declaration->parts, kMostParameters);
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
