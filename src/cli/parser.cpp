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

}  // namespace

void ParseArguments(const std::vector<std::string>& words, Invocation& invocation) {
  const CommandSpec& command = invocation.command();
  CLI::App app;
  app.set_help_flag();
  app.allow_extras();
  Invocation::Values values;
  std::vector<std::pair<std::string, CLI::Option*>> flags;
  for (const ArgumentSpec& argument : command.arguments) {
    const std::string name(argument.name);
    // Positional names of the library are identifiers; ours are shown to people.
    app.add_option("argument" + std::to_string(values.size()), values[name])
        ->expected(1, argument.repeatable ? kManyValues : 1);
  }
  for (const OptionSpec& option : command.options) {
    const std::string name(option.name);
    if (option.value.empty()) {
      flags.emplace_back(name, app.add_flag(name));
    } else {
      app.add_option(name, values[name])
          ->expected(1)
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
  for (const ArgumentSpec& argument : command.arguments) {
    if (argument.required && values.find(argument.name)->second.empty()) {
      throw UsageError(invocation.Text(kTextMissingArgument, {{"<Word>", argument.name}}));
    }
  }
  for (const auto& [name, option] : flags) {
    if (option->count() > 0) values[name] = {""};
  }
  std::erase_if(values, [](const auto& entry) { return entry.second.empty(); });
  invocation.SetValues(std::move(values));
}

}  // namespace cli
