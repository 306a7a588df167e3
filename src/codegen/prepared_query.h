// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado.h"

namespace codegen {

// A query with parameters that is made once and opened again and again.
class PreparedQuery {
 public:
  PreparedQuery(platform::Connection& connection, std::string_view sql);

  // The named fields of all rows, or of the first ones.
  platform::RowBlock Read(std::vector<platform::Variant> parameters,
                          const std::vector<std::string>& fields, std::int32_t count = -1);
  // Calls `visit` with the number of each row in a block of rows, block after block.
  void ForEachRow(
      std::vector<platform::Variant> parameters, const std::vector<std::string>& fields,
      const std::function<void(const platform::RowBlock& rows, std::size_t row)>& visit);

 private:
  void Open(std::vector<platform::Variant> parameters);

  std::shared_ptr<platform::Recordset> recordset_;
};

}  // namespace codegen
