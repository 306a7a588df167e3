// SPDX-License-Identifier: MIT
#include "dialogs/alias_rules.h"

#include <string_view>

#include "store/operation_texts.h"
#include "store/rules.h"

namespace dialogs {

std::optional<FieldRefusal> RefuseAlias(const DialogContext& context,
                                        const store::AliasValues& values, std::int32_t alias_id) {
  const store::OperationResult check = context.operations.CheckAlias(values, alias_id);
  if (check.success()) return std::nullopt;
  const bool item =
      check.message.number() == store::kTextItemMalformed || store::IsBlank(values.item_id);
  return FieldRefusal{check.message, check.detail,
                      item ? FieldRefusal::Field::kItem : FieldRefusal::Field::kAlias};
}

}  // namespace dialogs
