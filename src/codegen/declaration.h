// SPDX-License-Identifier: MIT
// What a declaration statement says, as far as an edit of it must know.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace codegen {

// The declaration of a Sub, taken apart.
struct SubDeclaration {
  std::string name;
  bool is_public = true;
  bool is_static = false;
  std::string parameters;  // between the parentheses, blanks trimmed
  std::string rest;        // statements behind it on the line, from the colon on
  std::string comment;     // behind all of it, from the apostrophe on
};

// Reads a declaration from its physical lines, the continuations included. Nothing when it does
// not declare a Sub (a Function, a Property, anything else).
std::optional<SubDeclaration> ParseSub(const std::vector<std::string>& lines);

// The physical lines of the declaration under a new name: public, without parameters, the
// statements and the comment behind it kept. What has parameters keeps its lines save for the name.
std::vector<std::string> RenamedSub(const std::vector<std::string>& lines,
                                    const SubDeclaration& old, std::string_view new_name);

// A line that is a whole statement and declares one public variable and nothing else, so that it
// can be deleted.
struct VariableLine {
  std::string name;
  std::string type;     // as spelled, with its "New"; empty when none is given
  std::string comment;  // from the apostrophe on
};
std::optional<VariableLine> ParseVariableLine(std::string_view line);

// The names, letter case folded, of the types and enumerations of a declarations section and of
// the enumerations' elements. The code model does not count them as members, but Visual Basic
// takes no variable or procedure of such a name beside them.
std::unordered_set<std::string> TypeNames(const std::vector<std::string>& declarations);

}  // namespace codegen
