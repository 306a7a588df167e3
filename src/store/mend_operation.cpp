// SPDX-License-Identifier: MIT
#include "store/operation_context.h"
#include "store/operation_texts.h"

namespace store {

OperationResult Operations::Mend(const Mending& mending, const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult&) {
    for (const std::int32_t id : mending.arguments) rows().Remove(kArgumentsTable, id);
    for (const auto& [id, values] : mending.changed) {
      rows().Change(kArgumentsTable, id, {{"In", values.in}, {"Out", values.out}});
    }
    codegen::Touched& touched = context_->touched();
    const auto append = [](auto& to, const auto& from) {
      to.insert(to.end(), from.begin(), from.end());
    };
    append(touched.formulas, mending.code.formulas);
    append(touched.arguments, mending.code.arguments);
    append(touched.aliases, mending.code.aliases);
    append(touched.declarations, mending.code.declarations);
    append(touched.headers, mending.code.headers);
  });
}

}  // namespace store
