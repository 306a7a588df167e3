// SPDX-License-Identifier: MIT
// Fuzz target: any bytes as an item catalogue. Every item can be read and is found, by its name
// and by its parts.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/text.h"
#include "project/item_catalogue.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLookedAt = 50;
  auto catalogue = project::ItemCatalogue::Parse({reinterpret_cast<const char*>(data), size});
  Require(catalogue.size() <= size + 1);
  Require(catalogue.Search("", size + 1).size() == catalogue.size());
  for (std::size_t i = 0; i < std::min(catalogue.size(), kLookedAt); ++i) {
    const auto item = catalogue.At(i);
    Require(!item.name.empty());
    const auto found = catalogue.Find(item.name);
    Require(found && *found <= i);
    Require(platform::FoldCase(catalogue.At(*found).name) == platform::FoldCase(item.name));
    const auto holds = catalogue.Search(item.name, catalogue.size());
    Require(std::ranges::find(holds, i) != holds.end());
  }
  Require(catalogue.problems().size() <= project::ItemCatalogue::kMaxProblems);
  Require(catalogue.problems().size() <= catalogue.problem_count());
  return 0;
}
