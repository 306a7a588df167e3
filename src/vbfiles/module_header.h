// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/vbide.h"

namespace vbfiles {

// What stands above the first visible line of a component's file.
struct ModuleHeader {
  std::string name;         // VB_Name as bytes of the file, "" when the file has none
  std::string object_name;  // of a form: as in Begin VB.Form NAME
  bool mdi_form = false;
  bool exposed = false;
  bool creatable = false;
  bool global_name_space = false;
  bool multi_use = false;
  bool recognised = false;  // a version line or an attribute line was found
  std::size_t length = 0;   // bytes up to the first visible line
  bool complete = false;    // the end of the header lies within the text
};

// Reads the header from the beginning of a file. `whole`: the text is the whole file; otherwise
// the header can turn out incomplete, and the caller comes again with more.
ModuleHeader ParseModuleHeader(std::string_view text, bool whole);

// Instancing as the four settings of a class file encode it.
platform::Instancing InstancingOf(const ModuleHeader& header);

}  // namespace vbfiles
