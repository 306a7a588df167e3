// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vbfiles/module_text.h"
#include "vbfiles/source_index.h"

namespace vbfiles {

// Takes the hidden attribute lines of a declaration along when one of its lines is replaced: to
// the end of the new declaration, under its new name; behind an apostrophe when nothing of their
// name is declared there any more. Line numbers do not change by that.
class AttributeCarrier {
 public:
  // Before `line` is replaced.
  AttributeCarrier(ModuleText& text, const SourceIndex& index, std::int32_t line);

  // After it became `count` lines and the index was updated.
  void Replaced(std::int32_t count);

 private:
  ModuleText& text_;
  const SourceIndex& index_;
  std::int32_t line_;
  std::int32_t holder_;             // last line of the statement: where the hidden lines are
  std::vector<std::string> names_;  // that the statement declared
};

}  // namespace vbfiles
