// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "cli/command_texts.h"
#include "cli/console.h"
#include "cli/parser.h"
#include "cli/row_writer.h"
#include "messages/text_number.h"
#include "texts/text_table.h"

namespace cli {

// A wrong call: the command line answers with the message, the way to the help, and code 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A request that cannot be carried out: the message on standard error, and the code.
class CommandError : public std::runtime_error {
 public:
  CommandError(ExitCode code, const std::string& message)
      : std::runtime_error(message), code_(code) {}
  ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

// Raised where Ctrl+C is noticed; ends the call with code 130.
class InterruptedError : public CommandError {
 public:
  InterruptedError() : CommandError(kInterrupted, {}) {}
};

// A word of the call, or a line of standard input and its number there.
struct Given {
  std::string text;
  std::size_t line = 0;  // 0 for a word of the call
};

// One call of a command: its arguments and options, and where its output goes.
class Invocation {
 public:
  Invocation(Console& console, const CommandSpec& command, const texts::TextTable& table,
             Values values)
      : console_(console), command_(command), texts_(table), values_(std::move(values)) {}

  Console& console() { return console_; }
  const CommandSpec& command() const { return command_; }
  const texts::TextTable& texts() const { return texts_; }
  std::string Text(messages::TextNumber number,
                   std::initializer_list<texts::TextTable::Replacement> values = {}) const {
    return texts_.Text(number, values);
  }

  // Value of an argument, "" when it was left out.
  std::string Argument(std::string_view name) const;
  // All values of a repeatable argument; "-" is replaced by the lines of standard input.
  std::vector<Given> Arguments(std::string_view name);
  // Standard input up to its end. Raises when it cannot be read.
  std::string InputText();
  // Its lines without the empty ones.
  std::vector<Given> InputLines();
  // The text with the place of what it is about in front.
  std::string AtLine(std::size_t line, const std::string& text) const;
  bool Has(std::string_view option) const;
  // Last value of an option; nothing when it was not given.
  std::optional<std::string> Option(std::string_view option) const;
  std::vector<std::string> Options(std::string_view option) const;
  // The same for a file that is written: raises UsageError for a word that is an option of the
  // command, for then the file was forgotten.
  std::optional<std::string> OutputFileOption(std::string_view option) const;
  // A whole number; raises UsageError for anything else.
  std::optional<std::int32_t> NumberOption(std::string_view option) const;
  // Raises UsageError when both are given.
  void Exclude(std::string_view first, std::string_view second) const;
  // true for the first, false for the second, nothing for neither; UsageError for both.
  std::optional<bool> Switch(std::string_view on, std::string_view off) const;

  // How lists are written: --json, a terminal, or plain.
  RowFormat ListFormat() const;
  // One line each on standard error.
  void Warn(std::string_view text);
  bool Interrupted() const;

 private:
  Console& console_;
  const CommandSpec& command_;
  const texts::TextTable& texts_;
  Values values_;
};

}  // namespace cli
