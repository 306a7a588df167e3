// SPDX-License-Identifier: MIT
// Properties of a table and its columns, column LvProp of the catalog (docs/jet4.md, 16).
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "jet/database.h"

namespace jet {

// The properties in their order; nothing when the bytes are no property list.
std::optional<std::vector<Property>> DecodeProperties(std::span<const std::byte> bytes);

}  // namespace jet
