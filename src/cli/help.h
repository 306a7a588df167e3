// SPDX-License-Identifier: MIT
// What the table of commands says to people and shells.
#pragma once

#include <string>
#include <string_view>

#include "cli/command.h"
#include "texts/text_table.h"

namespace cli {

// All commands, a line each.
std::string Overview(const texts::TextTable& texts);
// One command: call, arguments, options, examples.
std::string CommandHelp(const CommandSpec& command, const texts::TextTable& texts);
// The commands of a group such as "formula"; "" when there is none.
std::string GroupHelp(std::string_view group, const texts::TextTable& texts);
// "ovformula formula add PROJECT.ovs [--name NAME] ...".
std::string Synopsis(const CommandSpec& command);

// The manual page in man's macro language.
std::string ManualPage(const texts::TextTable& texts, std::string_view version);

// The completion script of a shell: "bash", "zsh" or "fish"; "" for another.
std::string Completion(std::string_view shell);

}  // namespace cli
