// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "cli/console.h"
#include "texts/text_table.h"

namespace cli {

// One call of a command: its arguments and options, and where its output goes.
class Invocation {
 public:
  Invocation(Console& console, const CommandSpec& command, texts::Language language)
      : console_(console), command_(command), language_(language) {}

  Console& console() { return console_; }
  const CommandSpec& command() const { return command_; }
  texts::Language language() const { return language_; }
  std::string Text(int id) const;

  // Value of an argument, "" when it was left out.
  std::string Argument(std::string_view name) const;
  // All values of a repeatable argument; "-" is replaced by the lines of standard input.
  std::vector<std::string> Arguments(std::string_view name);
  bool Has(std::string_view option) const;
  // Last value of an option; nothing when it was not given.
  std::optional<std::string> Option(std::string_view option) const;
  std::vector<std::string> Options(std::string_view option) const;

  // Filled by the parser.
  std::map<std::string, std::vector<std::string>, std::less<>> values;

 private:
  Console& console_;
  const CommandSpec& command_;
  texts::Language language_;
};

// A wrong call: the command line answers with the message, the way to the help, and code 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace cli
