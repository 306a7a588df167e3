// SPDX-License-Identifier: MIT
// The words of a call, taken apart by the command's table. A value is what was typed, whatever it
// looks like.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "messages/text_number.h"

namespace cli {

// Values by argument or option name; a switch that was given has one empty value.
using Values = std::map<std::string, std::vector<std::string>, std::less<>>;

// What is wrong with a call: a text's number, the word it is about, and what was probably meant.
struct Complaint {
  messages::TextNumber text{};
  std::string word;
  std::string near;
};

struct Call {
  Values values;
  std::optional<Complaint> complaint;  // about the first wrong word
};

// Options that every command has: --lang and --help (also -h).
std::span<const OptionSpec> CommonOptions();

// Takes the words behind a command's path apart. An option's value is the next word or what
// stands behind "="; "--" ends the options; "-" is an argument.
Call ParseCall(const CommandSpec& command, const std::vector<std::string>& words);

// The first value that is empty and must not be.
std::optional<Complaint> FindEmptyValue(const CommandSpec& command, const Values& values);

// Whether the call changes something when it is carried out.
bool Changes(const CommandSpec& command, const Call& call);

// Takes common options and --version off the front of the words, into `values`.
std::optional<Complaint> TakeCommonOptions(std::vector<std::string>& words, Values& values);

}  // namespace cli
