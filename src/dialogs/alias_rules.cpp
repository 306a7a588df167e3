// SPDX-License-Identifier: MIT
#include "dialogs/alias_rules.h"

#include <string_view>

namespace dialogs {

namespace {

constexpr std::int32_t kFieldsEmpty = 450;
constexpr std::int32_t kNotConforming = 451;

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string::npos; }

}  // namespace

std::optional<Refusal> RefuseAlias(const Surroundings& surroundings,
                                   const store::AliasValues& values, std::int32_t alias_id) {
  if (IsBlank(values.item_id)) {
    return Refusal{surroundings.Text(kFieldsEmpty), {}, Refusal::Field::kItem};
  }
  if (IsBlank(values.vb_alias)) return Refusal{surroundings.Text(kFieldsEmpty), {}};
  const bool conforms =
      surroundings.operations.ProposeAlias(values.vb_alias, alias_id) == values.vb_alias;
  const store::OperationResult check = surroundings.operations.CheckAlias(values, alias_id);
  if (conforms && check.success()) return std::nullopt;
  std::string detail = check.message;
  if (!check.detail.empty()) detail += "\n" + check.detail;
  return Refusal{surroundings.Text(kNotConforming), detail};
}

}  // namespace dialogs
