// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vbfiles/code_page.h"

namespace vbfiles {

// An attribute line as the environment hides it: Attribute NAME = VALUE, in column 1.
struct AttributeLine {
  std::string_view name;   // dotted for a member: Item.VB_Description
  std::string_view value;  // behind the sign, without blanks around it
};

std::optional<AttributeLine> ParseAttributeLine(std::string_view line);

// What becomes of the attributes of a declaration whose line was replaced.
struct AttributeChange {
  std::vector<std::string_view> declared;  // names that the line declares now
  std::string_view renamed_from;           // "" or the name whose attributes
  std::string_view renamed_to;             // go over to this one
};

// The attribute lines (with their line ends) after the change: attributes of a declared name
// stand, those of the renamed one get its new name, all others are put behind an apostrophe,
// because outside its procedure an attribute is an error when the environment loads the file.
// One behind an apostrophe comes back when its name is declared again.
std::string AdjustAttributeLines(std::string_view lines, const AttributeChange& change,
                                 const CodePage& page);

}  // namespace vbfiles
