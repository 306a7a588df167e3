// SPDX-License-Identifier: MIT
#include "codegen/formula_rows.h"

#include <utility>

namespace codegen {
namespace {

constexpr std::string_view kArguments =
    "SELECT TvbfFormulas.Name, TvbfFormulas.ProgID, TvbfAlias.VBAlias "
    "FROM (TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID) "
    "INNER JOIN TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID "
    "WHERE (Name = ?) AND (ProgID = ?)";
constexpr std::string_view kUses =
    "SELECT TvbfFormulas.ID, TvbfFormulas.Name, TvbfFormulas.ProgID "
    "FROM TvbfParams INNER JOIN TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID "
    "WHERE TvbfParams.AliasID = ?";
constexpr std::string_view kArgumentsOfUsers =
    "SELECT Uses.ParentID, TvbfAlias.VBAlias "
    "FROM (TvbfParams AS Uses INNER JOIN TvbfParams AS Arguments "
    "ON Uses.ParentID = Arguments.ParentID) "
    "INNER JOIN TvbfAlias ON Arguments.AliasID = TvbfAlias.ID "
    "WHERE Uses.AliasID = ?";
constexpr std::string_view kUsesInClass =
    "SELECT TvbfFormulas.ID "
    "FROM TvbfParams INNER JOIN TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID "
    "WHERE (TvbfParams.AliasID = ?) AND (TvbfFormulas.ProgID = ?)";

}  // namespace

FormulaRows::FormulaRows(std::shared_ptr<platform::Connection> connection)
    : connection_(std::move(connection)),
      arguments_(*connection_, kArguments),
      arguments_of_users_(*connection_, kArgumentsOfUsers),
      uses_(*connection_, kUses),
      uses_in_class_(*connection_, kUsesInClass),
      formulas_(*connection_, "SELECT ID FROM TvbfFormulas WHERE ProgID = ?"),
      alias_by_id_(*connection_, "SELECT ItemID, VBAlias FROM TvbfAlias WHERE ID = ?"),
      alias_by_name_(*connection_, "SELECT ID FROM TvbfAlias WHERE VBAlias = ?") {}

std::vector<std::string> FormulaRows::ArgumentsOf(std::string_view name, std::string_view prog_id) {
  const platform::RowBlock rows = arguments_.Read({name, prog_id}, {"VBAlias"});
  std::vector<std::string> aliases;
  aliases.reserve(rows.RowCount());
  for (std::size_t i = 0; i < rows.RowCount(); ++i) aliases.push_back(rows.At(0, i).ToText());
  return aliases;
}

std::unordered_map<std::int32_t, std::vector<std::string>> FormulaRows::ReadArgumentsOfUsers(
    std::int32_t alias_id) {
  std::unordered_map<std::int32_t, std::vector<std::string>> arguments;
  arguments_of_users_.ForEachRow(
      {alias_id}, {"ParentID", "VBAlias"}, [&](const platform::RowBlock& rows, std::size_t row) {
        arguments[rows.At(0, row).ToLong()].push_back(rows.At(1, row).ToText());
      });
  return arguments;
}

std::vector<FormulaRows::Use> FormulaRows::UsesOf(std::int32_t alias_id) {
  const platform::RowBlock rows = uses_.Read({alias_id}, {"ID", "Name", "ProgID"});
  std::vector<Use> uses;
  uses.reserve(rows.RowCount());
  for (std::size_t i = 0; i < rows.RowCount(); ++i) {
    uses.push_back({rows.At(0, i).ToLong(), rows.At(1, i).ToText(), rows.At(2, i).ToText()});
  }
  return uses;
}

bool FormulaRows::IsUsedInClass(std::string_view prog_id, std::int32_t alias_id,
                                std::int32_t excluded_id) {
  const platform::RowBlock rows = uses_in_class_.Read({alias_id, prog_id}, {"ID"}, 2);
  return rows.RowCount() > 1 || (rows.RowCount() == 1 && rows.At(0, 0).ToLong() != excluded_id);
}

bool FormulaRows::HasFormulas(std::string_view prog_id) {
  return formulas_.Read({prog_id}, {"ID"}, 1).RowCount() > 0;
}

std::optional<FormulaRows::Alias> FormulaRows::FindAlias(std::int32_t id) {
  const platform::RowBlock rows = alias_by_id_.Read({id}, {"ItemID", "VBAlias"}, 1);
  if (rows.RowCount() == 0) return std::nullopt;
  return Alias{rows.At(0, 0).ToText(), rows.At(1, 0).ToText()};
}

std::optional<std::int32_t> FormulaRows::FindAliasId(std::string_view vb_alias) {
  const platform::RowBlock rows = alias_by_name_.Read({vb_alias}, {"ID"}, 1);
  if (rows.RowCount() == 0) return std::nullopt;
  return rows.At(0, 0).ToLong();
}

}  // namespace codegen
