// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "dialogs/dialog_context.h"
#include "store/formula_records.h"

namespace dialogs {

struct FieldRefusal {
  messages::Message prompt;
  messages::Message detail;
  enum class Field { kItem, kAlias } field = Field::kAlias;
};

// Why an alias cannot be stored under these values; nothing when it can. `alias_id` is the alias
// that is edited, 0 for a new one.
std::optional<FieldRefusal> RefuseAlias(const DialogContext& context,
                                        const store::AliasValues& values, std::int32_t alias_id);

}  // namespace dialogs
