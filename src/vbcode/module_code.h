// SPDX-License-Identifier: MIT
// What reading one module's lines gives: what it declares, and each place where a name is used.
// What a name means depends on the other modules, too: see Program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "platform/vbide.h"
#include "vbcode/names.h"

namespace vbcode {

inline constexpr std::int32_t kNone = -1;

// References, declarations and the like are numbered; kNone is none of them.
inline std::size_t Index(std::int32_t number) { return static_cast<std::size_t>(number); }

// Where a name stands. Brackets and type character do not belong to it.
struct Place {
  std::int32_t line = 0;     // from 1
  std::uint32_t column = 0;  // byte, from 0
  std::uint32_t length = 0;  // in bytes
  friend auto operator<=>(const Place&, const Place&) = default;
};

enum class DeclarationKind : std::uint8_t {
  kVariable,
  kConstant,
  kSub,
  kFunction,
  kProperty,  // one for each of Get, Let, Set
  kExternal,  // a Declare
  kEvent,
  kEnum,
  kEnumMember,
  kType,
  kTypeMember,
  kParameter,
  kLocal,
  kLocalConstant,
  kRedim,  // by ReDim; a local variable where nothing else has that name
  kLabel,
};

enum class Passing : std::uint8_t { kByRef, kByVal, kParamArray };

// Whether parameters belong to it.
inline bool HasParameters(DeclarationKind kind) {
  return kind == DeclarationKind::kSub || kind == DeclarationKind::kFunction ||
         kind == DeclarationKind::kProperty || kind == DeclarationKind::kExternal ||
         kind == DeclarationKind::kEvent;
}

// A type as it is written: "Library.Name", or "Name".
struct TypeName {
  NameId qualifier = kNoName;
  NameId name = kNoName;
};

struct Declaration {
  NameId name = kNoName;
  DeclarationKind kind = DeclarationKind::kVariable;
  platform::MemberScope scope = platform::MemberScope::kPublic;
  Passing passing = Passing::kByRef;  // of a parameter
  bool is_array = false;
  bool as_new = false;
  bool with_events = false;
  bool has_type_character = false;
  Place place;
  TypeName type;
  // The procedure that it declares or is declared in; kNone for the rest of the module.
  std::int32_t procedure = kNone;
  // The declarations behind this one that are its parameters or members.
  std::int32_t parts = 0;
  std::int32_t branch = 0;  // of conditional compilation
};

struct Procedure {
  std::int32_t declaration = kNone;
  platform::ProcKind kind = platform::ProcKind::kProc;
  std::int32_t first_line = 0;
  std::int32_t last_line = std::numeric_limits<std::int32_t>::max();
  // Its references, from `begin` to before `end`. What it declares itself, parameters first, stands
  // behind its own declaration and before `declarations_end`.
  std::int32_t references_begin = 0;
  std::int32_t references_end = 0;
  std::int32_t declarations_end = 0;
};

// What a statement does with what a name, or the last name of "a.b.c", stands for.
enum class Role : std::uint8_t {
  kObject,    // a member of it is used
  kRead,      // its value is
  kLet,       // is assigned to
  kSet,       // is given an object
  kUpdate,    // is changed, keeping something of it
  kReplace,   // is changed as a whole, whatever it is: ReDim, Erase
  kCall,      // stands as a statement
  kArgument,  // is all that an argument holds
  kAddress,   // AddressOf
  kNew,       // a class of which an object is made
  kUnknown,   // not understood
};

// What stands in front of the dot.
inline constexpr std::int32_t kNothing = -1;         // there is no dot
inline constexpr std::int32_t kSomeExpression = -2;  // nothing that has a name

struct Reference {
  NameId name = kNoName;
  std::int32_t line = 0;
  std::uint32_t column = 0;          // byte, from 0
  std::int32_t previous = kNothing;  // the name in front of the dot
  std::int32_t argument = kNone;     // for kArgument
  Role role = Role::kRead;
  std::uint8_t parentheses = 0;    // how many pairs follow, up to 2
  bool empty_parentheses = false;  // "()" follows, which `parentheses` does not count
  bool in_text = false;            // stands in a literal, as the member that CallByName takes
  bool with_dot = false;           // `previous` is the object of With
};

// A reference that is an argument of a call.
struct Argument {
  std::int32_t callee = kNone;  // the reference that is called
  NameId name = kNoName;        // for Name:=
  std::int32_t position = 0;
};

// A branch of conditional compilation; 0 is the text outside of all.
struct Branch {
  std::int32_t parent = 0;
  std::int32_t group = 0;  // branches of one #If have the same
};

// From this line on code stands in that branch.
struct BranchStart {
  std::int32_t line = 0;
  std::int32_t branch = 0;
};

struct ModuleCode {
  std::vector<Declaration> declarations;
  std::vector<Procedure> procedures;  // in the order of their lines
  std::vector<Reference> references;  // in the order of the text
  std::vector<Argument> arguments;
  std::vector<Branch> branches;
  std::vector<BranchStart> branch_starts;
  std::vector<TypeName> interfaces;  // that it implements
};

}  // namespace vbcode
