// SPDX-License-Identifier: MIT
// Where names and texts stand in the code of the open projects.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "codegen/project_code.h"
#include "vbcode/program.h"
#include "vbcode/text_search.h"

namespace codegen {

// Lines and columns are numbered from 1; columns and lengths are characters.
struct CodePlace {
  std::string file;    // path
  std::string module;  // "PROJECT.COMPONENT"
  std::int32_t line = 0;
  std::int32_t column = 0;
  std::int32_t length = 0;
  vbcode::UseKind kind = vbcode::UseKind::kText;
  // Whether the name that stands there is surely the one that was asked for.
  bool is_sure = true;
  std::string procedure;  // as its declaration spells it; empty outside of all
  std::string text;       // the line
};

struct FoundPlaces {
  std::vector<CodePlace> places;
  std::vector<messages::Message> unread;  // of modules that could not be searched
};

// In the order of projects, modules and lines; a place of a file that several projects share once.
std::vector<CodePlace> PlacesOf(const ProjectCode& code, std::vector<vbcode::Use> uses);

// Where the name that these classes declare is used, in any open project. Reads the classes, what
// they may call, and the modules that hold the name.
FoundPlaces UsesInCode(platform::VBE& vbe, std::span<const std::string> prog_ids,
                       std::string_view name);
// Where the procedure of the class uses the name that the class declares.
FoundPlaces UsesInProcedure(platform::VBE& vbe, const std::string& prog_id,
                            std::string_view procedure, std::string_view name);

// Where the text stands in any open project, comments and literals included.
FoundPlaces FindInCode(platform::VBE& vbe, std::string_view text,
                       const vbcode::SearchOptions& options);

// A name at a place of a module.
struct NameInCode {
  std::string name;                 // empty: there is none
  std::vector<CodePlace> declared;  // nothing for a name that no module declares
  std::vector<CodePlace> uses;
};
// What stands at the place, be it declared for the module or in a procedure, and where else.
NameInCode LookUpName(platform::VBE& vbe, const std::string& prog_id, std::int32_t line,
                      std::int32_t column);

// "read", "write", "both", "call", "unknown" or "text", for programs.
std::string_view NameOfKind(vbcode::UseKind kind);
// The text that says it to the user.
messages::TextNumber KindText(const CodePlace& place);

}  // namespace codegen
