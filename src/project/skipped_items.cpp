// SPDX-License-Identifier: MIT
#include "project/skipped_items.h"

#include <algorithm>

#include "project/item_texts.h"

namespace project {

namespace {

constexpr std::size_t kListed = 5;

messages::TextNumber TextOf(ItemCatalogue::Problem::Kind kind) {
  using Kind = ItemCatalogue::Problem::Kind;
  switch (kind) {
    case Kind::kNoName:
      return kTextItemNoName;
    case Kind::kUnknownType:
      return kTextItemUnknownType;
    case Kind::kOpenQuote:
      return kTextItemOpenQuote;
    case Kind::kTooLong:
      break;
  }
  return kTextItemTooLong;
}

}  // namespace

std::vector<std::string> SkippedItems(const ItemCatalogue& catalogue, const std::string& file,
                                      const texts::TextTable& texts) {
  const std::size_t listed = std::min(kListed, catalogue.problems().size());
  std::vector<std::string> messages;
  for (std::size_t i = 0; i < listed; ++i) {
    const ItemCatalogue::Problem& problem = catalogue.problems()[i];
    messages.push_back(texts.Text(
        TextOf(problem.kind),
        {{"<File>", file}, {"<Line>", std::to_string(problem.line)}, {"<Text>", problem.text}}));
  }
  if (catalogue.problem_count() > listed) {
    const std::string more = std::to_string(catalogue.problem_count() - listed);
    messages.push_back(texts.Text(kTextItemMoreSkipped, {{"<File>", file}, {"<Count>", more}}));
  }
  return messages;
}

}  // namespace project
