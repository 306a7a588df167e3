// SPDX-License-Identifier: MIT
// The definitions of a database, read from ADO's schema recordsets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "com/late_bound.h"
#include "platform/ado.h"

namespace com {

// All of these raise Failure. A table that is not there has no columns, indexes and rows.
std::vector<std::string> ReadTableNames(const LateBound& connection);
std::vector<platform::Connection::IndexInfo> ReadIndexes(const LateBound& connection,
                                                         std::string_view table);
std::vector<platform::Connection::ColumnInfo> ReadColumns(const LateBound& connection,
                                                          std::string_view table);
std::int32_t ReadRowCount(const LateBound& connection, std::string_view table);

}  // namespace com
