// SPDX-License-Identifier: MIT
#include "vbcode/effects.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace vbcode {

namespace {

using platform::ProcKind;

}  // namespace

// From one procedure through what it calls.
class EffectWalk {
 public:
  explicit EffectWalk(const EffectFinder& finder) : finder_(finder), program_(finder.program_) {}

  Effects Run(std::int32_t module, std::int32_t procedure) {
    Visit(module, procedure, false);
    for (bool direct = true; !work_.empty(); direct = false) {
      const Step step = work_.back();
      work_.pop_back();
      Read(step, direct);
    }
    return std::move(effects_);
  }

 private:
  struct Step {
    std::int32_t module = 0;
    std::int32_t procedure = 0;
    bool other_object = false;
  };

  void Visit(std::int32_t module, std::int32_t procedure, bool other_object) {
    const auto key = static_cast<std::uint64_t>(module) << 33 |
                     static_cast<std::uint64_t>(procedure) << 1 | (other_object ? 1 : 0);
    if (seen_.insert(key).second) work_.push_back({module, procedure, other_object});
  }

  void Read(const Step& step, bool direct) {
    const Program::Module& module = program_.module(step.module);
    const Procedure& procedure = module.code.procedures[Index(step.procedure)];
    for (std::int32_t i = procedure.references_begin; i < procedure.references_end; ++i) {
      const Reference& reference = module.code.references[Index(i)];
      const Meaning& meaning = module.meanings[Index(i)];
      const bool other =
          meaning.other_object || (step.other_object && module.source.kind == ModuleKind::kClass);
      NoteOpen(reference);
      if (reference.role == Role::kNew && meaning.module != kNone) {
        VisitNamed(meaning.module, "Class_Initialize", true);
      }
      if (IsLocal(meaning) || meaning.module != kNone || IsOwnResult(module, procedure, i))
        continue;
      if (meaning.declaration == kNone && meaning.sureness == Sureness::kForeign) continue;
      // Of a member of an object of unknown class nobody knows whose it is.
      const bool any = meaning.sureness == Sureness::kAnyMember;
      if (any && reference.role == Role::kCall) continue;
      Touch(step, i, direct, other || any);
      if (meaning.declaration != kNone) Follow(reference, meaning, other);
    }
  }

  // What a function returns is no more than a local variable of its own.
  bool IsOwnResult(const Program::Module& module, const Procedure& procedure,
                   std::int32_t number) const {
    const Reference& reference = module.code.references[Index(number)];
    const Declaration& own = module.code.declarations[Index(procedure.declaration)];
    return reference.previous == kNothing && reference.name == own.name &&
           (module.meanings[Index(number)].effect & kCalls) == 0 &&
           (own.kind == DeclarationKind::kFunction ||
            (own.kind == DeclarationKind::kProperty && procedure.kind == ProcKind::kGet));
  }

  // The object itself goes to somebody else, who may use its members; so may a member whose name
  // is computed.
  void NoteOpen(const Reference& reference) {
    const bool escapes = reference.name == Keyword("me") && reference.previous == kNothing &&
                         reference.role != Role::kObject;
    if (escapes || (reference.name == Keyword("callbyname") && reference.previous == kNothing)) {
      effects_.open = true;
    }
  }

  bool IsLocal(const Meaning& meaning) const {
    if (meaning.declaration == kNone) return false;
    switch (program_.declaration(meaning.declaration).kind) {
      case DeclarationKind::kParameter:
      case DeclarationKind::kLocal:
      case DeclarationKind::kLocalConstant:
      case DeclarationKind::kRedim:
      case DeclarationKind::kTypeMember:
        return true;
      default:
        return false;
    }
  }

  void Touch(const Step& step, std::int32_t number, bool direct, bool other) {
    const Program::Module& module = program_.module(step.module);
    const Reference& reference = module.code.references[Index(number)];
    const Meaning& meaning = module.meanings[Index(number)];
    const bool sure =
        meaning.sureness == Sureness::kSure || meaning.sureness == Sureness::kUndeclared;
    const Effect effect = sure ? meaning.effect : kUndecided;
    // Names that nobody declares are one and the same within a module.
    // A name that nobody declares is one and the same within a module.
    const bool any = meaning.sureness == Sureness::kAnyMember;
    const std::uint64_t key = meaning.declaration != kNone
                                  ? static_cast<std::uint64_t>(meaning.declaration) << 2
                                  : (static_cast<std::uint64_t>(step.module) << 32 | reference.name)
                                            << 2 |
                                        (any ? 1u : 2u);
    const auto [at, added] = places_.emplace(key, effects_.touched.size());
    if (added) {
      Touched touched;
      touched.declaration = meaning.declaration;
      touched.name = reference.name;
      touched.other_object = other;
      touched.first = program_.MakeUse(step.module, number, columns_);
      effects_.touched.push_back(touched);
    }
    Touched& touched = effects_.touched[at->second];
    touched.effect |= effect;
    touched.direct = touched.direct || direct;
    touched.other_object = touched.other_object && other;
  }

  void Follow(const Reference& reference, const Meaning& meaning, bool other) {
    const Declaration& declaration = program_.declaration(meaning.declaration);
    const std::int32_t owner = program_.PlaceOf(meaning.declaration).module;
    const auto key = static_cast<std::uint64_t>(meaning.declaration) << 8 |
                     static_cast<std::uint64_t>(meaning.effect) << 1 | (other ? 1 : 0);
    if (!followed_.insert(key).second) return;
    if (declaration.as_new) FollowNew(owner, declaration);
    const bool into_other = other && program_.module(owner).source.kind == ModuleKind::kClass;
    switch (declaration.kind) {
      case DeclarationKind::kSub:
      case DeclarationKind::kFunction:
      case DeclarationKind::kProperty:
        for (const std::int32_t same : program_.SameMember(meaning.declaration)) {
          const Declaration& member = program_.declaration(same);
          if (member.procedure == kNone || !Runs(owner, member, meaning.effect)) continue;
          Visit(owner, member.procedure, into_other);
        }
        FollowInterface(owner, reference.name);
        break;
      case DeclarationKind::kEvent:
        FollowEvent(owner, reference.name);
        break;
      default:
        break;
    }
  }

  // Whether the effect runs that procedure of a property.
  bool Runs(std::int32_t module, const Declaration& member, Effect effect) const {
    if (member.kind != DeclarationKind::kProperty) return true;
    const ProcKind kind = program_.module(module).code.procedures[Index(member.procedure)].kind;
    if ((effect & kUndecided) != 0) return true;
    return kind == ProcKind::kGet ? (effect & (kReads | kCalls)) != 0 : (effect & kWrites) != 0;
  }

  void FollowNew(std::int32_t module, const Declaration& variable) {
    const auto found = finder_.classes_.find(variable.type.name);
    if (found == finder_.classes_.end()) return;
    for (const std::int32_t m : found->second) {
      if (program_.module(m).project == program_.module(module).project) {
        VisitNamed(m, "Class_Initialize", true);
      }
    }
  }

  // Who implements the class runs in its place.
  void FollowInterface(std::int32_t module, NameId member) {
    const auto found = finder_.implementers_.find(program_.module(module).name);
    if (found == finder_.implementers_.end()) return;
    const std::string name =
        program_.module(module).source.name + '_' + std::string(program_.Text(member));
    for (const std::int32_t m : found->second) VisitNamed(m, name, true);
  }

  void FollowEvent(std::int32_t module, NameId event) {
    const auto found = finder_.listeners_.find(program_.module(module).name);
    if (found == finder_.listeners_.end()) return;
    for (const auto& [m, variable] : found->second) {
      VisitNamed(m, std::string(program_.Text(variable)) + '_' + std::string(program_.Text(event)),
                 true);
    }
  }

  void VisitNamed(std::int32_t module, std::string_view name, bool other_object) {
    const std::int32_t member = program_.FindMember(module, name);
    if (member == kNone) return;
    for (const std::int32_t same : program_.SameMember(member)) {
      const std::int32_t procedure = program_.declaration(same).procedure;
      if (procedure != kNone) Visit(module, procedure, other_object);
    }
  }

  const EffectFinder& finder_;
  const Program& program_;
  ColumnCounter columns_;
  Effects effects_;
  std::vector<Step> work_;
  std::unordered_set<std::uint64_t> seen_;      // procedures
  std::unordered_set<std::uint64_t> followed_;  // declarations, with what is done with them
  std::unordered_map<std::uint64_t, std::size_t> places_;
};

EffectFinder::EffectFinder(const Program& program) : program_(program) {
  for (std::int32_t m = 0; m < program.ModuleCount(); ++m) {
    const Program::Module& module = program.module(m);
    classes_[module.name].push_back(m);
    for (const TypeName& interface : module.code.interfaces) {
      implementers_[interface.name].push_back(m);
    }
    for (const Declaration& declaration : module.code.declarations) {
      if (declaration.with_events) {
        listeners_[declaration.type.name].push_back({m, declaration.name});
      }
    }
  }
}

Effects EffectFinder::Find(std::int32_t module, std::int32_t procedure) const {
  return EffectWalk(*this).Run(module, procedure);
}

std::unordered_map<NameId, OwnVariable> OwnVariables(const Program& program, std::int32_t module,
                                                     const Effects& effects) {
  std::unordered_map<NameId, OwnVariable> variables;
  for (const Touched& touched : effects.touched) {
    bool own = touched.first.module == module && touched.first.binding == Binding::kUndeclared;
    if (touched.declaration != kNone) {
      if (program.PlaceOf(touched.declaration).module != module) continue;
      // A procedure or constant of that name is no variable.
      if (program.declaration(touched.declaration).kind != DeclarationKind::kVariable) continue;
      own = touched.first.binding == Binding::kMember;
    }
    own = own && !touched.other_object;
    OwnVariable& variable = variables[touched.name];
    variable.effect |= own ? touched.effect & ~kCalls : kUndecided;
    if (own && !variable.is_sure) {
      variable.is_sure = true;
      variable.first = touched.first;
    }
  }
  return variables;
}

}  // namespace vbcode
