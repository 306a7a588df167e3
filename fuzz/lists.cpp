// SPDX-License-Identifier: MIT
// Fuzz target: any bytes as a list. It is read or refused with its place; the lines that are
// refused can be written and are a list again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "exchange/contents.h"
#include "exchange/refused_lines.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void RequireList(const std::string& bytes) {
  const exchange::Contents contents = exchange::ReadList(bytes);
  std::vector<exchange::RefusedLine> lines;
  for (const exchange::Problem& problem : contents.problems) {
    Require(problem.place.line > 0 && !problem.reason.empty());
    lines.push_back({problem.place, "refused"});
  }
  for (const exchange::FormulaRow& row : contents.formulas) {
    for (const exchange::ArgumentRow& argument : row.arguments) {
      Require(argument.alias_row == exchange::ArgumentRow::kNoRow ||
              argument.alias_row < contents.aliases.size());
    }
  }
  const exchange::Contents again =
      exchange::ReadList(exchange::WriteRefusedLines(bytes, lines, "Reason"));
  Require(again.problems.empty() == contents.problems.empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  try {
    RequireList(bytes);
  } catch (const exchange::FormatError& error) {
    Require(!error.message().empty());
  }
  try {
    exchange::ReadAliases(bytes);
  } catch (const exchange::FormatError&) {
  }
  return 0;
}
