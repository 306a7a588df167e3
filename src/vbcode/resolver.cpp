// SPDX-License-Identifier: MIT
#include "vbcode/resolver.h"

#include <algorithm>

namespace vbcode {

namespace {

// How far outward branches of #If are compared; beyond it nothing is said about them.
constexpr int kMaxBranches = 32;

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

}  // namespace vbcode
