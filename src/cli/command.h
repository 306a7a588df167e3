// SPDX-License-Identifier: MIT
// The table of commands: what the command line offers, said once. Parser, help, manual page,
// completion and suggestions are made from it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "messages/text_number.h"

namespace cli {

class Invocation;

// Exit codes, relied on by scripts.
enum ExitCode {
  kDone = 0,
  kRefused = 1,  // refused, unknown name, or findings
  kUsage = 2,
  kFile = 3,  // a file that cannot be opened, read or written, is locked or damaged
  kInterrupted = 130,
};

struct ArgumentSpec {
  std::string_view name;      // as shown, "PROJECT.ovs"
  messages::TextNumber text;  // number of the explanation
  bool required = true;
  bool repeatable = false;  // takes the rest; "-" reads names from standard input
};

struct OptionSpec {
  std::string_view name;   // "--scan-time"
  std::string_view value;  // "MS"; empty for a switch; "[=CODES]" may be left out
  messages::TextNumber text;
  bool repeatable = false;
  bool may_be_empty = false;  // the value
};

struct CommandSpec {
  std::string_view path;      // "formula add"
  messages::TextNumber text;  // one line: what it does
  std::vector<ArgumentSpec> arguments;
  std::vector<OptionSpec> options;
  std::vector<std::string_view> examples;
  int (*run)(Invocation&);           // returns an ExitCode
  std::string_view changes_by = {};  // the option without which it only looks, if there is one
};

// Whether a value may, and then only behind "=", be given.
inline bool HasOptionalValue(const OptionSpec& option) { return option.value.starts_with('['); }

// The option as help shows it.
inline std::string OptionForm(const OptionSpec& option) {
  const bool apart = !option.value.empty() && !HasOptionalValue(option);
  return std::string(option.name) + (apart ? " " : "") + std::string(option.value);
}

// All commands, in the order of the help.
std::span<const CommandSpec> Commands();

// The command of that path; null when there is none.
const CommandSpec* FindCommand(std::string_view path);

}  // namespace cli
