// SPDX-License-Identifier: MIT
#include "cli/parser.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/suggest.h"

namespace cli {

namespace {

constexpr int kManyValues = 1 << 20;

// A word that no option or argument takes.
[[noreturn]] void RaiseExtra(const std::string& word, const Invocation& invocation) {
  if (!word.starts_with('-')) {
    throw UsageError(invocation.Text(kTextSurplusArgument, {{"<Word>", word}}));
  }
  std::vector<std::string> names = {"--help", "--lang"};
  for (const OptionSpec& option : invocation.command().options) names.emplace_back(option.name);
  const std::string nearest = Nearest(word.substr(0, word.find('=')), names);
  throw UsageError(invocation.Text(nearest.empty() ? kTextUnknownOption : kTextUnknownOptionNear,
                                   {{"<Word>", word}, {"<Near>", nearest}}));
}

// The option that stands last without its value.
std::string OptionWithoutValue(const std::vector<std::string>& words, const CommandSpec& command) {
  for (auto word = words.rbegin(); word != words.rend(); ++word) {
    for (const OptionSpec& option : command.options) {
      if (!option.value.empty() && option.name == *word) return *word;
    }
  }
  return words.empty() ? std::string() : words.back();
}

// Gives the words to the arguments in their order; a repeatable argument, the last one, takes the
// rest.
void AssignArguments(const std::vector<std::string>& words, const Invocation& invocation,
                     Invocation::Values& values) {
  auto word = words.begin();
  for (const ArgumentSpec& argument : invocation.command().arguments) {
    std::vector<std::string>& taken = values[std::string(argument.name)];
    while (word != words.end() && (taken.empty() || argument.repeatable)) taken.push_back(*word++);
    if (argument.required && taken.empty()) {
      throw UsageError(invocation.Text(kTextMissingArgument, {{"<Word>", argument.name}}));
    }
  }
  if (word != words.end()) RaiseExtra(*word, invocation);
}

}  // namespace

void ParseArguments(const std::vector<std::string>& words, Invocation& invocation) {
  const CommandSpec& command = invocation.command();
  CLI::App app;
  app.set_help_flag();
  app.allow_extras();
  Invocation::Values values;
  std::vector<std::pair<std::string, CLI::Option*>> flags;
  std::vector<std::string> positionals;
  app.add_option("arguments", positionals)->expected(0, kManyValues);
  for (const OptionSpec& option : command.options) {
    const std::string name(option.name);
    if (option.value.empty()) {
      flags.emplace_back(name, app.add_flag(name));
    } else {
      app.add_option(name, values[name])
          ->expected(1)
          ->allow_extra_args(false)
          ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }
  }
  try {
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::ArgumentMismatch&) {
    throw UsageError(
        invocation.Text(kTextOptionNeedsValue, {{"<Word>", OptionWithoutValue(words, command)}}));
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  const auto extras = app.remaining();
  if (!extras.empty()) RaiseExtra(extras.front(), invocation);
  AssignArguments(positionals, invocation, values);
  for (const auto& [name, option] : flags) {
    if (option->count() > 0) values[name] = {""};
  }
  std::erase_if(values, [](const auto& entry) { return entry.second.empty(); });
  invocation.SetValues(std::move(values));
}

}  // namespace cli
