// SPDX-License-Identifier: MIT
#include "vbfiles/attribute_carrier.h"

#include "vbfiles/attribute_line.h"

namespace vbfiles {

namespace {

struct Declared {
  std::vector<std::string> names;
  std::int32_t first_line = 0;  // of the first declaring statement, 0 when there is none
};

// What the statements that begin on the lines first..last declare.
Declared DeclaredOn(const SourceIndex& index, std::int32_t first, std::int32_t last) {
  Declared declared;
  auto take = [&](const NamePlace& name, std::int32_t line) {
    if (line < first || line > last) return;
    if (declared.names.empty() || line < declared.first_line) declared.first_line = line;
    declared.names.emplace_back(index.Name(name));
  };
  for (const Declaration& declaration : index.declarations()) {
    take(declaration.name, declaration.line);
  }
  for (const Procedure& procedure : index.procedures()) take(procedure.name, procedure.body_line);
  return declared;
}

}  // namespace

AttributeCarrier::AttributeCarrier(ModuleText& text, const SourceIndex& index, std::int32_t line)
    : text_(text), index_(index), line_(line), holder_(index.LogicalLast(line)) {
  if (text_.HiddenLines(holder_).empty()) return;
  names_ = DeclaredOn(index, index.LogicalFirst(line), holder_).names;
}

void AttributeCarrier::Replaced(std::int32_t count) {
  const std::int32_t last_new = line_ + count - 1;
  const std::int32_t holder = holder_ + count - 1;
  const std::string hidden(text_.HiddenLines(holder));
  if (hidden.empty()) return;
  const Declared declared =
      DeclaredOn(index_, index_.LogicalFirst(line_), index_.LogicalLast(last_new));
  if (names_.empty() && declared.names.empty()) return;
  AttributeChange change;
  change.declared.assign(declared.names.begin(), declared.names.end());
  if (names_.size() == 1 && declared.names.size() == 1) {
    change.renamed_from = names_.front();
    change.renamed_to = declared.names.front();
  }
  const std::int32_t target =
      declared.names.empty() ? holder : index_.LogicalLast(declared.first_line);
  const std::string adjusted = AdjustAttributeLines(hidden, change, index_.page());
  if (target != holder) {
    text_.SetHiddenLines(holder, "");
    text_.SetHiddenLines(target, std::string(text_.HiddenLines(target)) + adjusted);
  } else {
    text_.SetHiddenLines(holder, adjusted);
  }
}

}  // namespace vbfiles
