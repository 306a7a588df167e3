// SPDX-License-Identifier: MIT
// What the operations know of the code between declarations: uses of names, texts.
#include <string>
#include <utility>
#include <vector>

#include "store/operation_context.h"
#include "store/operation_texts.h"
#include "store/operation_titles.h"

namespace store {

codegen::FoundPlaces Operations::CodeUsesOfAlias(std::int32_t id) {
  const auto alias = rows().FindAlias(id);
  if (!alias || !context_->parts().vbe) return {};
  return codegen::UsesInCode(*context_->parts().vbe, ClassesOf(rows().UsesOfAlias(id)),
                             alias->vb_alias);
}

codegen::FoundPlaces Operations::CodeUsesOfFormula(std::int32_t id) {
  const auto formula = rows().FindFormula(id);
  if (!formula || !context_->parts().vbe) return {};
  return codegen::UsesInCode(*context_->parts().vbe, {&formula->prog_id, 1}, formula->name);
}

codegen::FoundPlaces Operations::CodeUsesOfArgument(std::int32_t id) {
  const auto argument = rows().FindArgument(id);
  const auto formula = argument ? rows().FindFormula(argument->parent_id) : std::nullopt;
  if (!formula || !context_->parts().vbe) return {};
  return codegen::UsesInProcedure(*context_->parts().vbe, formula->prog_id, formula->name,
                                  argument->vb_alias);
}

codegen::FoundPlaces Operations::FindInCode(std::string_view text,
                                            const vbcode::SearchOptions& options) {
  if (!context_->parts().vbe) return {};
  return codegen::FindInCode(*context_->parts().vbe, text, options);
}

OperationResult Operations::ReplaceInCode(std::span<const codegen::CodePlace> places,
                                          std::string_view text, const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult&) {
    context_->RequireProjects();
    context_->SetTitle({title::kReplaceInCode, {{"<Count>", places.size()}}});
    if (places.empty()) return;
    context_->touched().replacements.push_back({{places.begin(), places.end()}, std::string(text)});
  });
}

void Operations::TouchUses(const RenameOptions& options, std::vector<std::string> prog_ids,
                           std::string_view old_name, std::string_view name,
                           std::string_view procedure) {
  if (!options.with_uses) return;
  context_->touched().uses.push_back({std::move(prog_ids), std::string(old_name), std::string(name),
                                      std::string(procedure), options.in_comments,
                                      options.in_literals});
}

}  // namespace store
