// SPDX-License-Identifier: MIT
// What becomes of the code when a name of a module is to be another one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vbcode/line_edits.h"
#include "vbcode/program.h"

namespace vbcode {

struct RenameRequest {
  std::vector<std::int32_t> modules;  // which declare the name
  std::string old_name;
  std::string new_name;
  // Only the uses in this procedure of the first module, which takes another of its names instead:
  // a variable of the new name may be there already.
  std::int32_t procedure = kNone;
  // Where the name stands as a word of its own; in those modules.
  bool in_comments = false;
  bool in_literals = false;
  // The declarations themselves, too. They are left to whoever writes them otherwise.
  bool declarations = false;
};

// Why a name cannot be renamed.
enum class RenameProblem {
  kNotAName,      // the new one names nothing in Visual Basic; without a place
  kMemberName,    // a module declares the new name
  kLocalName,     // a variable, constant or parameter of a procedure that uses the old name has it
  kLabelName,     // so does a label
  kOtherMeaning,  // code means something else by the new name
  kNamedAfter,    // a procedure is bound to the old name by its own, as in Name_Event
  kLineTooLong,   // a line would become longer than 1023 characters
};

struct RenameRefusal {
  RenameProblem problem = RenameProblem::kNotAName;
  std::int32_t module = 0;
  std::int32_t line = 0;
  std::int32_t column = 0;
  friend bool operator==(const RenameRefusal&, const RenameRefusal&) = default;
};

struct Renaming {
  std::vector<RenameRefusal> refusals;  // when there are any, nothing else is filled in but uses
  std::vector<LineEdit> edits;
  std::vector<Use> changed;
  std::vector<Use> left;  // that may mean the name, or do so without a declaration
};

// Changes nothing but the name where it surely means what the module declares.
Renaming RenameMember(const Program& program, const RenameRequest& request);

}  // namespace vbcode
