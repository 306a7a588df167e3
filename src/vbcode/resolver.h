// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "vbcode/program.h"

namespace vbcode {

// What is known of the value that a name stands for.
struct ValueType {
  enum class Kind : std::uint8_t {
    kUnknown,
    kValue,  // number, text, date, Enum
    kVariant,
    kObject,   // of any class
    kClass,    // of the module `index`
    kRecord,   // of the Type that is the declaration `index`
    kForeign,  // a type that no module here declares
    kCollection,
    kModule,  // the standard module `index` itself
    kProject,
    kEnum,     // the Enum itself
    kLibrary,  // an object or module of the runtime library
  };
  Kind kind = Kind::kUnknown;
  bool is_array = false;
  bool is_me = false;
  std::int32_t index = kNone;
};

// Finds what the references of a program stand for.
class Resolver {
 public:
  explicit Resolver(Program& program);
  void Run();

 private:
  using Kind = ValueType::Kind;

  // A name that several modules may declare for all of them.
  struct Shared {
    std::int32_t declaration = kNone;
    std::int32_t next = kNone;  // with the same name
  };
  // An argument whose effect is that of the parameter it goes to.
  struct Passed {
    std::int32_t module = 0;
    std::int32_t reference = 0;
    std::int32_t parameter = 0;
  };

  const Declaration& DeclarationAt(std::int32_t number) const;
  void ListShared();
  void AddShared(std::int32_t& head, std::int32_t declaration);
  void ResolveModule(std::int32_t module);
  void EnterProcedure(const Procedure& procedure);
  void LeaveProcedure(const Procedure& procedure);
  void Resolve(std::int32_t reference);
  void ResolveBare(const Reference& reference, Meaning& meaning);
  void ResolveMember(const Reference& reference, Meaning& meaning);
  bool ResolveLocal(const Reference& reference, Meaning& meaning) const;
  void ResolveShared(NameId name, Meaning& meaning) const;
  bool IsBare(const Reference& reference) const;

  std::int32_t FindAccessor(std::int32_t declaration, platform::ProcKind kind) const;
  // Of a reference that was resolved already.
  ValueType TypeOf(std::int32_t reference) const;
  ValueType TypeOfDeclaration(std::int32_t declaration, int parentheses) const;
  ValueType TypeNamed(std::int32_t module, const TypeName& name) const;

  Effect EffectOf(const Reference& reference, const Meaning& meaning);
  Effect EffectOnVariable(const Reference& reference, const Meaning& meaning,
                          const ValueType& type);
  Effect EffectOfArgument(const Reference& reference);
  // The parameter that takes the argument; kNone for none. Says what else is known in `effect`.
  std::int32_t FindParameter(const Argument& argument, Effect& effect) const;
  bool IsOwnResult(const Reference& reference, std::int32_t declaration) const;
  void AddEffect(std::int32_t module, std::int32_t reference, Effect effect);

  void SolveParameters();

  Program& program_;
  std::vector<std::int32_t> shared_heads_;  // by name
  std::vector<std::int32_t> type_heads_;    // the same for Enums and Types
  std::vector<Shared> shared_;
  std::vector<std::int32_t> module_heads_;  // by name, of modules
  std::vector<std::int32_t> next_module_;
  std::vector<bool> is_project_;       // by name
  std::vector<bool> is_implemented_;   // by module
  std::vector<Effect> effects_;        // on each declaration
  std::vector<std::int32_t> changed_;  // declarations whose effects grew
  std::vector<Passed> passed_;

  // While a module is worked on:
  std::int32_t module_index_ = 0;
  Program::Module* module_ = nullptr;
  std::int32_t procedure_ = kNone;
  std::int32_t current_ = 0;  // the reference
  std::int32_t branch_ = 0;
  std::vector<std::int32_t> member_by_name_;
  std::vector<std::int32_t> local_by_name_;  // the first of the name
  std::vector<bool> has_twin_;               // by name: another one follows
};

}  // namespace vbcode
