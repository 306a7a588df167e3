// SPDX-License-Identifier: MIT
// The commands by area; command_table.cpp puts them into one table.
#pragma once

#include "cli/command.h"
#include "cli/command_texts.h"

namespace cli {

// Options that many commands share.
inline constexpr OptionSpec kJsonOption{"--json", "", kTextOptJson};

std::vector<CommandSpec> ProjectCommands();  // open, new, class list, report, recover
std::vector<CommandSpec> FormulaCommands();
std::vector<CommandSpec> ArgumentCommands();
std::vector<CommandSpec> AliasCommands();
std::vector<CommandSpec> CheckCommands();
std::vector<CommandSpec> CodeCommands();  // find, graph
CommandSpec GraphCommand();
std::vector<CommandSpec> ExchangeCommands();  // export, import
CommandSpec FormulaCopyCommand();             // stands with the formulas
std::vector<CommandSpec> DatabaseCommands();
std::vector<CommandSpec> VisualBasicCommands();
std::vector<CommandSpec> HistoryCommands();
std::vector<CommandSpec> HelpCommands();

}  // namespace cli
