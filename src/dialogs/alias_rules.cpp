// SPDX-License-Identifier: MIT
#include "dialogs/alias_rules.h"

#include <string_view>

#include "store/operation_texts.h"

namespace dialogs {

namespace {

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string::npos; }

}  // namespace

std::optional<FieldRefusal> RefuseAlias(const DialogContext& context,
                                        const store::AliasValues& values, std::int32_t alias_id) {
  const store::OperationResult check = context.operations.CheckAlias(values, alias_id);
  if (check.success()) return std::nullopt;
  const bool item = check.message.number() == store::kTextItemMalformed || IsBlank(values.item_id);
  return FieldRefusal{check.message, check.detail,
                      item ? FieldRefusal::Field::kItem : FieldRefusal::Field::kAlias};
}

}  // namespace dialogs
