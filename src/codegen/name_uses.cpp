// SPDX-License-Identifier: MIT
#include "codegen/name_uses.h"

#include <algorithm>

#include "vbcode/program.h"

namespace codegen {

std::vector<NameUse> FindNameUses(platform::CodeModule& module,
                                  const std::vector<std::string>& names) {
  const std::int32_t count = module.CountOfLines();
  if (count == 0) return {};
  // Most names do not occur; the module finds that out faster than its lines can be read, but
  // name by name.
  constexpr std::size_t kFewNames = 8;
  const auto occurs = [&](const std::string& name) {
    return module.Find(name, 1, count).has_value();
  };
  if (names.size() <= kFewNames && std::ranges::none_of(names, occurs)) return {};
  std::vector<vbcode::ModuleSource> source(1);
  source[0].text = module.Lines(1, count);
  const vbcode::Program program(std::move(source));
  std::vector<NameUse> uses;
  for (const std::string& name : names) {
    for (const vbcode::Use& use : program.Uses(0, name)) {
      const NameUse found = {use.line, name};
      if (uses.empty() || uses.back() != found) uses.push_back(found);
    }
  }
  return uses;
}

}  // namespace codegen
