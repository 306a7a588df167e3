// SPDX-License-Identifier: MIT
// The rows of the three tables, read as records and written one by one.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "codegen/prepared_query.h"
#include "platform/ado.h"
#include "store/formula_records.h"
#include "store/operation_result.h"
#include "store/record_helpers.h"
#include "store/row_change_log.h"

namespace store {

inline constexpr std::string_view kFormulasTable = "TvbfFormulas";
inline constexpr std::string_view kAliasTable = "TvbfAlias";
inline constexpr std::string_view kArgumentsTable = "TvbfParams";

// The classes of the formulas, each once.
std::vector<std::string> ClassesOf(const std::vector<FormulaRecord>& formulas);

// Everything raises platform::Error when the database fails.
class ProjectRows {
 public:
  explicit ProjectRows(std::shared_ptr<platform::Connection> connection);

  std::optional<FormulaRecord> FindFormula(std::int32_t id);
  std::vector<FormulaRecord> FindFormulasByName(std::string_view name);
  std::optional<FormulaRecord> FindFormulaInClass(std::string_view prog_id, std::string_view name);
  void ForEachFormula(const std::function<void(const FormulaRecord&)>& visit);
  void ForEachFormulaName(const std::function<void(const std::string&)>& visit);
  std::vector<FormulaRecord> UsesOfAlias(std::int32_t alias_id);

  std::optional<AliasRecord> FindAlias(std::int32_t id);
  // The same within an operation, which may ask for one again and again: read once, and again when
  // an alias changed.
  const std::optional<AliasRecord>& KnownAlias(std::int32_t id);
  std::optional<AliasRecord> FindAliasByName(std::string_view vb_alias);
  void ForEachAlias(const std::function<void(const AliasRecord&)>& visit);

  std::optional<ArgumentRecord> FindArgument(std::int32_t id);
  // IDs of the aliases that are arguments of the formula.
  std::unordered_set<std::int32_t> AliasesOf(std::int32_t formula_id);
  std::vector<ArgumentRecord> ArgumentsOf(std::int32_t formula_id);
  // Without name and item of the alias.
  void ForEachArgument(const std::function<void(const ArgumentRecord&)>& visit);

  Statistics Count();

  using Values = std::vector<std::pair<std::string, platform::Variant>>;
  // Returns the new row's ID.
  std::int32_t Add(std::string_view table, Values values);
  void Change(std::string_view table, std::int32_t id, const Values& values);
  void Remove(std::string_view table, std::int32_t id);

  // The rows that were written.
  RowChangeLog& changes() { return changes_; }
  // Closes what writing left open, and forgets what was read.
  void CloseTables() noexcept;

 private:
  // A table that rows are added to.
  struct OpenTable {
    std::shared_ptr<platform::Recordset> rows;
    std::vector<std::string> names;
    std::size_t id = 0;  // place of that field
  };
  OpenTable& TableToAddTo(std::string_view table);
  std::shared_ptr<platform::Recordset> OpenRow(std::string_view table, std::int32_t id);
  void Record(RowChange::Kind kind, std::string_view table, platform::Recordset& row,
              const std::vector<std::string>& names);

  std::vector<FormulaRecord> Formulas(codegen::PreparedQuery& query,
                                      std::vector<platform::Variant> parameters);
  std::vector<AliasRecord> Aliases(codegen::PreparedQuery& query,
                                   std::vector<platform::Variant> parameters);
  std::vector<ArgumentRecord> Arguments(codegen::PreparedQuery& query, std::int32_t id);

  std::shared_ptr<platform::Connection> connection_;
  codegen::PreparedQuery formula_by_id_;
  codegen::PreparedQuery formulas_by_name_;
  codegen::PreparedQuery formula_in_class_;
  codegen::PreparedQuery all_formulas_;
  codegen::PreparedQuery formula_names_;
  codegen::PreparedQuery uses_of_alias_;
  codegen::PreparedQuery alias_by_id_;
  codegen::PreparedQuery alias_by_name_;
  codegen::PreparedQuery all_aliases_;
  codegen::PreparedQuery argument_by_id_;
  codegen::PreparedQuery aliases_of_formula_;
  codegen::PreparedQuery arguments_of_formula_;
  codegen::PreparedQuery all_arguments_;
  // Stay open from one added row to the next.
  std::map<std::string, OpenTable, std::less<>> tables_;
  std::unordered_map<std::int32_t, std::optional<AliasRecord>> known_aliases_;
  RowChangeLog changes_;
};

}  // namespace store
