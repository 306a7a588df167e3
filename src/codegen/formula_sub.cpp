// SPDX-License-Identifier: MIT
#include "codegen/formula_sub.h"

#include <algorithm>
#include <optional>

#include "codegen/code_texts.h"
#include "codegen/declaration.h"
#include "codegen/source_line.h"
#include "platform/text.h"

namespace codegen {

ConditionalBlocks::ConditionalBlocks(std::string_view text, std::int32_t first_line) {
  int depth = 0;
  bool continues = false;
  for (std::int32_t number = first_line; !text.empty(); ++number) {
    const std::string_view line = text.substr(0, text.find("\r\n"));
    text.remove_prefix(std::min(line.size() + 2, text.size()));
    if (!continues && IsDirective(line)) {
      const std::string word = platform::FoldCase(TrimBlanks(TrimBlanks(line).substr(1)));
      const int change = word.starts_with("if") ? 1 : word.starts_with("end") ? -1 : 0;
      depth += change;
      if (change != 0) depths_.emplace_back(number, depth);
    }
    continues = IsContinued(line);
  }
}

bool ConditionalBlocks::Hold(std::int32_t line) const {
  const auto behind =
      std::ranges::lower_bound(depths_, line, {}, &std::pair<std::int32_t, int>::first);
  return behind != depths_.begin() && std::prev(behind)->second > 0;
}

messages::TextNumber WhyNoFormula(platform::CodeModule& module, const SubLocation& sub,
                                  const ConditionalBlocks& blocks) {
  const std::optional<SubDeclaration> declaration = ParseSub(DeclarationLines(module, sub));
  if (!declaration || !declaration->parameters.empty()) return kTextHasParameters;
  if (!declaration->is_public) return kTextNotPublic;
  return blocks.Hold(sub.body_line) ? kTextInConditionalBlock : messages::kNoText;
}

messages::TextNumber KindText(platform::CodeModule& module, const platform::Member& member) {
  switch (member.type) {
    case platform::MemberType::kProperty:
      return kTextProperty;
    case platform::MemberType::kVariable:
      return kTextVariable;
    case platform::MemberType::kEvent:
      return kTextEvent;
    case platform::MemberType::kConst:
      return kTextConstant;
    case platform::MemberType::kMethod:
      break;
  }
  if (FindSub(module, member.name)) return kTextSub;
  const bool is_declared = member.code_location <= module.CountOfDeclarationLines();
  return is_declared ? kTextExternalProcedure : kTextFunction;
}

}  // namespace codegen
