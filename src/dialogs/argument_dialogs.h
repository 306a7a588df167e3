// SPDX-License-Identifier: MIT
// Arguments and aliases through their dialogs. What cannot be stored is shown again with what was
// entered.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "dialogs/dialog_context.h"
#include "dialogs/item_notes.h"

namespace dialogs {

// New argument of the formula, or a series of them; the ID of the first, or 0 when none was
// created.
std::int32_t AddArgument(const DialogContext& context, std::int32_t formula_id);

// Whether the argument was changed. False too when there is none of that ID.
bool EditArgument(const DialogContext& context, std::int32_t argument_id);

// In and Out of several arguments in one operation. Whether it was done.
bool EditArguments(const DialogContext& context, const std::vector<std::int32_t>& ids);

// ID of the new alias, of the first one of a series, or 0.
std::int32_t AddAlias(const DialogContext& context);

// Whether the alias was changed; nothing happens when there is no current alias (0).
bool EditAlias(const DialogContext& context, std::int32_t alias_id);

// Lets the user pick an alias from the list of all.
std::optional<std::int32_t> ChooseAlias(const DialogContext& context, std::int32_t current);

// Asks for several aliases and gives them to a formula as one operation; null notes: nothing is
// known of items. How many it has more.
std::size_t AddArguments(const DialogContext& context, std::int32_t formula_id, ItemNotes* notes);

}  // namespace dialogs
