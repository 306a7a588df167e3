// SPDX-License-Identifier: MIT
#include "dialogs/alias_rules.h"

#include <string_view>

#include "dialogs/outcome.h"
#include "store/operation_texts.h"

namespace dialogs {

namespace {

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string::npos; }

}  // namespace

std::optional<Refusal> RefuseAlias(const DialogContext& context, const store::AliasValues& values,
                                   std::int32_t alias_id) {
  const store::OperationResult check = context.operations.CheckAlias(values, alias_id);
  if (check.success()) return std::nullopt;
  const Refusal::Field field =
      IsBlank(values.item_id) ? Refusal::Field::kItem : Refusal::Field::kAlias;
  if (check.text_id != store::kTextAliasTaken) return Refusal{check.message, check.detail, field};
  return Refusal{context.Text(store::kTextAliasMalformed), Explanation(check), field};
}

}  // namespace dialogs
