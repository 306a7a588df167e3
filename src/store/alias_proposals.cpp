// SPDX-License-Identifier: MIT
#include "store/alias_proposals.h"

#include "codegen/identifier.h"
#include "platform/text.h"

namespace store {

std::string AliasProposals::Propose(std::string_view item) {
  const std::string name = codegen::CleanIdentifier(item);
  std::string proposed = codegen::FirstFreeName(
      name,
      [this](const std::string& candidate) {
        return taken_.contains(platform::FoldCase(candidate)) ||
               operations_.FindAliasByName(candidate);
      },
      numbers_[platform::FoldCase(name)]);
  Take(proposed);
  return proposed;
}

void AliasProposals::Take(std::string_view alias) { taken_.insert(platform::FoldCase(alias)); }

}  // namespace store
