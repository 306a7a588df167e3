// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "jet/database.h"

namespace cli {

// "long", "text", "memo", ...
std::string_view ColumnTypeName(jet::ColumnType type);

// Tables with columns, indexes, relations and properties.
std::string SchemaAsText(jet::Database& database);
std::string SchemaAsJson(jet::Database& database);

}  // namespace cli
