// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "store/operations.h"

namespace store {

// Proposes aliases for many items, each free in the project and of those proposed or taken before.
// Items may be equal: what was found taken for one is not tried again for the next.
class AliasProposals {
 public:
  explicit AliasProposals(Operations& operations) : operations_(operations) {}

  // The proposal is taken. Raises platform::Error when the database fails.
  std::string Propose(std::string_view item);
  void Take(std::string_view alias);

 private:
  Operations& operations_;
  std::unordered_set<std::string> taken_;         // in lower case
  std::unordered_map<std::string, int> numbers_;  // by name: the number to try next
};

}  // namespace store
