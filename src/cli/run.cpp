// SPDX-License-Identifier: MIT
#include "cli/run.h"

#include <algorithm>
#include <exception>
#include <new>
#include <optional>

#include "cli/command.h"
#include "cli/error_report.h"
#include "cli/help.h"
#include "cli/invocation.h"
#include "cli/parser.h"
#include "cli/suggest.h"
#include "cli/version.h"
#include "platform/text.h"
#include "workbench/language.h"

namespace cli {

namespace {

using Words = std::vector<std::string>;

// Takes "--lang X" or "--lang=X" out of the words in front of "--"; the last one counts.
std::optional<std::string> TakeLanguage(Words& words) {
  std::optional<std::string> language;
  for (auto word = words.begin(); word != words.end() && *word != "--";) {
    if (word->starts_with("--lang=")) {
      language = word->substr(7);
      word = words.erase(word);
    } else if (*word == "--lang") {
      word = words.erase(word);
      language.emplace();
      if (word == words.end()) break;
      language = *word;
      word = words.erase(word);
    } else {
      ++word;
    }
  }
  return language;
}

bool IsDatabaseName(const std::string& word) {
  return word.size() > 4 && platform::EqualsIgnoringCase(word.substr(word.size() - 4), ".ovs");
}

// The command that the first words name; they are taken off. "ovformula PROJECT.ovs" opens it.
const CommandSpec* TakeCommand(Words& words) {
  if (IsDatabaseName(words.front())) return FindCommand("open");
  if (const CommandSpec* command = FindCommand(words.front())) {
    words.erase(words.begin());
    return command;
  }
  if (words.size() < 2) return nullptr;
  const CommandSpec* command = FindCommand(words[0] + " " + words[1]);
  if (command) words.erase(words.begin(), words.begin() + 2);
  return command;
}

// The commands that begin with the word, such as those of "formula"; "" when there are none.
std::string GroupHelp(const std::string& word, const texts::TextTable& texts) {
  std::string text;
  for (const CommandSpec& command : Commands()) {
    if (command.path.starts_with(word + " ")) {
      text += "  " + Synopsis(command) + "\n      " + texts.Text(command.text) + "\n";
    }
  }
  return text;
}

// Names the command that was probably meant.
void ReportUnknown(const std::string& word, Console& console, const texts::TextTable& texts) {
  std::vector<std::string> paths;
  for (const CommandSpec& command : Commands()) {
    paths.emplace_back(command.path);
    paths.emplace_back(command.path.substr(0, command.path.find(' ')));
  }
  const std::string near = Nearest(word, paths);
  ReportError(console, texts,
              texts.Text(near.empty() ? kTextUnknownCommand : kTextUnknownCommandNear,
                         {{"<Word>", word}, {"<Near>", near}}));
}

int UnknownCommand(const Words& words, Console& console, const texts::TextTable& texts) {
  const std::string group = GroupHelp(words.front(), texts);
  if (!group.empty()) {
    const bool wanted = words.size() > 1 && (words[1] == "--help" || words[1] == "-h");
    if (!wanted && words.size() > 1) ReportUnknown(words[0] + " " + words[1], console, texts);
    (wanted ? console.out : console.err) << texts.Text(kTextUsage) << '\n' << group;
    return wanted ? kDone : kUsage;
  }
  ReportUnknown(words[0], console, texts);
  console.err << texts.Text(kTextTryHelp, {{"<Command>", "ovformula"}}) << '\n';
  return kUsage;
}

bool AsksForHelp(const Words& words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  return std::any_of(words.begin(), end,
                     [](const auto& word) { return word == "--help" || word == "-h"; });
}

int RunCommand(const CommandSpec& command, const Words& words, Console& console,
               const texts::TextTable& texts) {
  if (AsksForHelp(words)) {
    console.out << CommandHelp(command, texts);
    return kDone;
  }
  Invocation invocation(console, command, texts);
  try {
    ParseArguments(words, invocation);
    return command.run(invocation);
  } catch (const UsageError& error) {
    ReportError(console, texts, error.what());
    console.err << texts.Text(kTextTryHelp,
                              {{"<Command>", "ovformula " + std::string(command.path)}})
                << '\n';
    return kUsage;
  } catch (...) {
    return ReportException(console, texts, std::current_exception());
  }
}

}  // namespace

int Run(const std::vector<std::string>& arguments, Console& console) {
  Words words = arguments;
  if (!words.empty() && words.front() == "--version") {
    console.out << "ovformula " << kVersion << '\n';
    return kDone;
  }
  const auto language = TakeLanguage(words);
  const texts::TextTable texts(
      workbench::ChooseLanguage(language.value_or(""), console.files, console.environment));
  if (language && !workbench::ParseLanguage(*language)) {
    ReportError(console, texts, texts.Text(kTextUnknownLanguage, {{"<Word>", *language}}));
    return kUsage;
  }
  if (words.empty()) {
    console.err << Overview(texts);
    return kUsage;
  }
  if (words.front() == "--help" || words.front() == "-h") {
    console.out << Overview(texts);
    return kDone;
  }
  Words rest = words;
  if (rest.front() == "--") rest.erase(rest.begin());
  const CommandSpec* command = rest.empty() ? nullptr : TakeCommand(rest);
  if (!command) return UnknownCommand(words, console, texts);
  return RunCommand(*command, rest, console, texts);
}

}  // namespace cli
