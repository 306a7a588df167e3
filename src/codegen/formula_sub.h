// SPDX-License-Identifier: MIT
// Whether the server can call what a class holds under a formula's name.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "codegen/sub_lines.h"
#include "platform/vbide.h"

namespace codegen {

// Where #If blocks are open in a module.
class ConditionalBlocks {
 public:
  // The module's lines from the first on, as far as it is asked about, joined by CR LF; or from
  // another one on, in front of which no block is open.
  explicit ConditionalBlocks(std::string_view text, std::int32_t first_line = 1);

  bool Any() const { return !depths_.empty(); }
  // Whether a block is open in front of the line, which is numbered from 1.
  bool Hold(std::int32_t line) const;

 private:
  std::vector<std::pair<std::int32_t, int>> depths_;  // behind each line that changes it
};

// The text that says why the server cannot call the sub as a formula; 0 when it can.
messages::TextNumber WhyNoFormula(platform::CodeModule& module, const SubLocation& sub,
                                  const ConditionalBlocks& blocks);

// The text that says what a member is.
messages::TextNumber KindText(platform::CodeModule& module, const platform::Member& member);

// Whether the member serves as the declaration of an alias of its name.
inline bool DeclaresAlias(const platform::Member& member) {
  return member.type == platform::MemberType::kVariable &&
         member.scope == platform::MemberScope::kPublic;
}

}  // namespace codegen
