// SPDX-License-Identifier: MIT
// The code of several modules, read and put together: what each name in it stands for and what is
// done with it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vbcode/columns.h"
#include "vbcode/meaning.h"
#include "vbcode/module_code.h"
#include "vbcode/names.h"
#include "vbcode/text_lines.h"

namespace vbcode {

enum class ModuleKind {
  kStandard,
  kClass,  // and forms, controls, documents
};

// A module as the development environment shows it.
struct ModuleSource {
  std::string name;
  std::string project;
  ModuleKind kind = ModuleKind::kClass;
  std::string text;  // the visible lines, UTF-8
};

enum class UseKind { kRead, kWrite, kBoth, kCall, kUnknown, kText };

// Whether the name that stands there is the one that was asked for.
enum class Binding {
  kMember,      // the module's own, for sure
  kUndeclared,  // the module uses the name and declares it nowhere
  kUncertain,   // not to be decided: a member of an object whose class is not known, a name that a
                // local variable may hide. The kind is kUnknown.
};

// A place in a module. Lines and columns are numbered from 1; columns are characters.
struct Use {
  std::int32_t module = 0;
  std::int32_t line = 0;
  std::int32_t column = 0;
  std::int32_t length = 0;         // in characters
  std::int32_t procedure = kNone;  // of the module; kNone outside of all
  UseKind kind = UseKind::kUnknown;
  Binding binding = Binding::kMember;
  bool other_object = false;  // the member of another object than the one the code runs in
  friend bool operator==(const Use&, const Use&) = default;
};

class Program {
 public:
  // One module, and what its references stand for.
  struct Module {
    ModuleSource source;  // without its text, which `lines` keeps
    std::unique_ptr<TextLines> lines;
    ModuleCode code;
    std::vector<Meaning> meanings;       // of each reference
    std::int32_t first_declaration = 0;  // its number among all modules'
    std::uint32_t first_reference = 0;   // the same
    NameId name = kNoName;
    NameId project = kNoName;
  };
  // Where a declaration is found.
  struct DeclarationPlace {
    std::int32_t module = kNone;
    std::int32_t index = kNone;
  };

  explicit Program(std::vector<ModuleSource> modules);

  // More modules, numbered behind those that are there. Everything is put together again.
  void Add(std::vector<ModuleSource> modules);
  // The module's text is another. Everything is put together again.
  void Replace(std::int32_t module, std::string text);

  std::int32_t ModuleCount() const { return static_cast<std::int32_t>(modules_.size()); }
  const Module& module(std::int32_t index) const {
    return modules_[static_cast<std::size_t>(index)];
  }
  // The first of that name, in any project or the one given; kNone for none.
  std::int32_t FindModule(std::string_view name, std::string_view project = {}) const;
  // The first of that name that the module declares outside of procedures, not being a type; kNone
  // for none. Its number among all modules'.
  std::int32_t FindMember(std::int32_t module, std::string_view name) const;
  // Number of the module's procedure; for a property its first.
  std::int32_t FindProcedure(std::int32_t module, std::string_view name) const;
  // The procedure whose declaration, body or end the line is; kNone for none.
  std::int32_t ProcedureOfLine(std::int32_t module, std::int32_t line) const;

  // Whether anything but comments stands in the procedure.
  bool HasStatements(std::int32_t module, std::int32_t procedure) const;

  // Where the name stands for what the module declares by it outside of procedures, or might: in
  // all modules, in their order. The declarations themselves are no uses. Of a name that the
  // module does not declare: where it uses it all the same.
  std::vector<Use> Uses(std::int32_t module, std::string_view name) const;

  // The module's reference that stands at the place, or right behind it ends; kNone for none.
  std::int32_t FindReference(std::int32_t module, std::int32_t line, std::int32_t column) const;

  const Names& names() const { return names_; }
  std::string_view Text(NameId name) const { return names_.Text(name); }
  DeclarationPlace PlaceOf(std::int32_t declaration) const;
  const Declaration& declaration(std::int32_t number) const;
  // Numbered like declarations; FindMember for a name that was looked up.
  std::int32_t FindMember(std::int32_t module, NameId name) const;
  // The member of an Enum or Type; kNone for none.
  std::int32_t FindPart(std::int32_t declaration, NameId name) const;
  // The Enum or Type of that name; kNone for none.
  std::int32_t FindType(std::int32_t module, NameId name) const;
  // Those of the same name in the same module, outside of procedures: the procedures of a
  // property, the branches of #If. In the order of the text.
  std::vector<std::int32_t> SameMember(std::int32_t declaration) const;
  // A reference of a module.
  struct ReferencePlace {
    std::int32_t module = 0;
    std::int32_t reference = 0;
  };
  // Those of Uses().
  std::vector<ReferencePlace> References(std::int32_t module, NameId name) const;
  // All of that name, whatever they stand for, in the order of the modules and their text.
  std::vector<ReferencePlace> ReferencesNamed(NameId name) const;
  // The reference as a place; kind and binding as they were found.
  Use MakeUse(std::int32_t module, std::int32_t reference, ColumnCounter& columns) const;

 private:
  friend class Resolver;

  // By module, or by the declaration of a type, and name.
  struct MemberKey {
    std::int32_t owner = 0;
    NameId name = kNoName;
    std::int32_t declaration = kNone;
    // NOLINTNEXTLINE(modernize-use-nullptr): it takes the comparison's own 0 for a pointer.
    friend auto operator<=>(const MemberKey&, const MemberKey&) = default;
  };

  void Read(Module& module, std::string text);
  void PutTogether();
  void ListMembers();
  void ListReferences();
  std::span<const MemberKey> MembersLike(std::int32_t declaration) const;
  std::int32_t FindKey(const std::vector<MemberKey>& keys, std::int32_t owner, NameId name) const;

  Names names_;
  std::vector<Module> modules_;
  std::int32_t declaration_count_ = 0;
  std::vector<MemberKey> members_;  // of modules, sorted
  std::vector<MemberKey> types_;    // the Enums and Types of modules, sorted
  std::vector<MemberKey> parts_;    // of Enums and Types, sorted
  // References by name, numbered through all modules: those of name n stand from begins_[n] to
  // before begins_[n + 1].
  std::vector<std::uint32_t> begins_;
  std::vector<std::uint32_t> by_name_;
};

}  // namespace vbcode
