// SPDX-License-Identifier: MIT
// What the generator asks of the project database. Every question is answered by index look-ups
// where the database has the index, by a walk where it has not.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "codegen/prepared_query.h"
#include "platform/ado.h"

namespace codegen {

class FormulaRows {
 public:
  explicit FormulaRows(std::shared_ptr<platform::Connection> connection);

  struct Use {
    std::int32_t formula_id = 0;
    std::string name;
    std::string prog_id;
  };
  struct Alias {
    std::string item_id;
    std::string vb_alias;
  };

  // The aliases of the arguments of the formula of that name in that class.
  std::vector<std::string> ArgumentsOf(std::string_view name, std::string_view prog_id);
  // The aliases of all arguments of the formulas that use the alias, by formula ID.
  std::unordered_map<std::int32_t, std::vector<std::string>> ReadArgumentsOfUsers(
      std::int32_t alias_id);
  // One entry for each argument that uses the alias.
  std::vector<Use> UsesOf(std::int32_t alias_id);
  // Whether an argument of the class's formulas uses the alias; one argument of the formula
  // `excluded_id` does not count.
  bool IsUsedInClass(std::string_view prog_id, std::int32_t alias_id, std::int32_t excluded_id = 0);
  bool HasFormulas(std::string_view prog_id);
  std::optional<Alias> FindAlias(std::int32_t id);
  // ID of the alias of that name.
  std::optional<std::int32_t> FindAliasId(std::string_view vb_alias);

 private:
  std::shared_ptr<platform::Connection> connection_;
  PreparedQuery arguments_;
  PreparedQuery arguments_of_users_;
  PreparedQuery uses_;
  PreparedQuery uses_in_class_;
  PreparedQuery formulas_;
  PreparedQuery alias_by_id_;
  PreparedQuery alias_by_name_;
};

}  // namespace codegen
