// SPDX-License-Identifier: MIT
#include "cli/parser.h"

#include <algorithm>
#include <array>

#include "cli/command_texts.h"
#include "cli/suggest.h"

namespace cli {

namespace {

using Words = std::vector<std::string>;

constexpr OptionSpec kLanguage{"--lang", "de|en", kTextOptLang};
constexpr OptionSpec kHelp{"--help", "", kTextOptHelp};
constexpr OptionSpec kVersion{"--version", "", kTextOptVersion};
constexpr std::array kCommon = {kLanguage, kHelp};

bool IsOption(std::string_view word) { return word.size() > 1 && word.starts_with('-'); }

// Reads options of that table, one at a time.
class OptionReader {
 public:
  OptionReader(std::vector<OptionSpec> options, Values& values)
      : options_(std::move(options)), values_(values) {}

  // Takes the option at `word` and its value, and moves on behind them.
  std::optional<Complaint> Take(Words::const_iterator& word, Words::const_iterator end) {
    const std::string given = *word++;
    const auto equals = given.find('=');
    const std::string name = given == "-h" ? "--help" : given.substr(0, equals);
    const auto option = std::find_if(options_.begin(), options_.end(),
                                     [&](const OptionSpec& known) { return known.name == name; });
    if (option == options_.end()) return Unknown(given, name);
    const bool inline_value = equals != std::string::npos;
    if (option->value.empty()) {
      if (inline_value) return Complaint{kTextOptionTakesNoValue, name, {}};
      values_[name] = {""};
      return std::nullopt;
    }
    if (HasOptionalValue(*option)) {
      values_[name].push_back(inline_value ? given.substr(equals + 1) : "");
      return std::nullopt;
    }
    if (!inline_value && word == end) return Complaint{kTextOptionNeedsValue, name, {}};
    values_[name].push_back(inline_value ? given.substr(equals + 1) : *word++);
    return std::nullopt;
  }

 private:
  Complaint Unknown(const std::string& given, const std::string& name) const {
    Words names;
    for (const OptionSpec& option : options_) names.emplace_back(option.name);
    const std::string near = Nearest(name, names);
    return {near.empty() ? kTextUnknownOption : kTextUnknownOptionNear, given, near};
  }

  std::vector<OptionSpec> options_;
  Values& values_;
};

// Gives the words to the arguments in their order; a repeatable argument, the last one, takes the
// rest.
std::optional<Complaint> AssignArguments(const CommandSpec& command, const Words& words,
                                         Values& values) {
  auto word = words.begin();
  for (const ArgumentSpec& argument : command.arguments) {
    if (word == words.end()) {
      if (!argument.required) break;
      return Complaint{kTextMissingArgument, std::string(argument.name), {}};
    }
    const auto end = argument.repeatable ? words.end() : word + 1;
    values[std::string(argument.name)].assign(word, end);
    word = end;
  }
  if (word == words.end()) return std::nullopt;
  return Complaint{kTextSurplusArgument, *word, {}};
}

}  // namespace

std::span<const OptionSpec> CommonOptions() { return kCommon; }

Call ParseCall(const CommandSpec& command, const Words& words) {
  Call call;
  std::vector<OptionSpec> options(kCommon.begin(), kCommon.end());
  options.insert(options.end(), command.options.begin(), command.options.end());
  OptionReader reader(std::move(options), call.values);
  Words arguments;
  bool options_ended = false;
  for (auto word = words.begin(); word != words.end();) {
    if (options_ended || !IsOption(*word)) {
      arguments.push_back(*word++);
    } else if (*word == "--") {
      options_ended = true;
      ++word;
    } else if (auto complaint = reader.Take(word, words.end()); !call.complaint) {
      call.complaint = std::move(complaint);
    }
  }
  auto complaint = AssignArguments(command, arguments, call.values);
  if (!call.complaint) call.complaint = std::move(complaint);
  return call;
}

std::optional<Complaint> FindEmptyValue(const CommandSpec& command, const Values& values) {
  const auto is_empty = [&](std::string_view name) {
    const auto found = values.find(name);
    return found != values.end() && std::ranges::count(found->second, std::string()) > 0;
  };
  for (const ArgumentSpec& argument : command.arguments) {
    if (is_empty(argument.name)) return Complaint{kTextValueEmpty, std::string(argument.name), {}};
  }
  for (const OptionSpec& option : command.options) {
    const bool needs_text =
        !option.value.empty() && !HasOptionalValue(option) && !option.may_be_empty;
    if (needs_text && is_empty(option.name))
      return Complaint{kTextValueEmpty, std::string(option.name), {}};
  }
  return std::nullopt;
}

bool Changes(const CommandSpec& command, const Call& call) {
  const auto has = [&](std::string_view name) {
    return std::any_of(command.options.begin(), command.options.end(),
                       [&](const OptionSpec& option) { return option.name == name; });
  };
  constexpr std::string_view kDryRun = "--dry-run";
  if (!command.changes_by.empty() && !call.values.contains(command.changes_by)) return false;
  return has(kDryRun) && !call.values.contains(kDryRun);
}

std::optional<Complaint> TakeCommonOptions(Words& words, Values& values) {
  OptionReader reader({kLanguage, kHelp, kVersion}, values);
  std::optional<Complaint> complaint;
  auto word = words.cbegin();
  while (word != words.cend() && IsOption(*word) && *word != "--" && !complaint) {
    complaint = reader.Take(word, words.cend());
  }
  words.erase(words.cbegin(), word);
  return complaint;
}

}  // namespace cli
