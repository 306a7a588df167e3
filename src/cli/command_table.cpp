// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>

#include "cli/commands.h"

namespace cli {

namespace {

std::vector<CommandSpec> MakeTable() {
  std::vector<CommandSpec> table;
  for (auto* area : {ProjectCommands, FormulaCommands, ArgumentCommands, AliasCommands,
                     CheckCommands, HistoryCommands, CodeCommands, ExchangeCommands,
                     DatabaseCommands, VisualBasicCommands, HelpCommands}) {
    auto commands = area();
    std::move(commands.begin(), commands.end(), std::back_inserter(table));
  }
  return table;
}

}  // namespace

std::span<const CommandSpec> Commands() {
  static const std::vector<CommandSpec> table = MakeTable();
  return table;
}

const CommandSpec* FindCommand(std::string_view path) {
  const auto commands = Commands();
  const auto found = std::find_if(commands.begin(), commands.end(),
                                  [&](const CommandSpec& command) { return command.path == path; });
  return found == commands.end() ? nullptr : &*found;
}

}  // namespace cli
