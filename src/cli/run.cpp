// SPDX-License-Identifier: MIT
#include "cli/run.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <utility>

#include "cli/command.h"
#include "cli/error_report.h"
#include "cli/help.h"
#include "cli/invocation.h"
#include "cli/parser.h"
#include "cli/suggest.h"
#include "cli/version.h"
#include "cli/visible_text.h"
#include "files/real_file_system.h"
#include "platform/text.h"
#include "project/language.h"

namespace cli {

namespace {

using Words = std::vector<std::string>;

bool IsDatabaseName(const std::string& word) {
  return word.size() > 4 && platform::EqualsIgnoringCase(word.substr(word.size() - 4), ".ovs");
}

// The command that the first words name; they are taken off. "ovformula PROJECT.ovs" opens it.
const CommandSpec* TakeCommand(Words& words, Values& common) {
  if (IsDatabaseName(words.front())) return FindCommand("open");
  if (words.size() > 1) {
    if (const CommandSpec* command = FindCommand(words[0] + " " + words[1])) {
      words.erase(words.begin(), words.begin() + 2);
      return command;
    }
  }
  if (const CommandSpec* command = FindCommand(words.front())) {
    words.erase(words.begin());
    return command;
  }
  const std::string group = words.front();
  words.erase(words.begin());
  const bool wrong = TakeCommonOptions(words, common).has_value();
  if (wrong || words.empty() || !FindCommand(group + " " + words.front())) {
    words.insert(words.begin(), group);
    return nullptr;
  }
  const CommandSpec* command = FindCommand(group + " " + words.front());
  words.erase(words.begin());
  return command;
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

int UnknownCommand(const Words& words, bool help, Console& console, const texts::TextTable& texts) {
  const std::string group = GroupHelp(words.front(), texts);
  if (!group.empty()) {
    const auto second = std::find_if(words.begin() + 1, words.end(),
                                     [](const auto& word) { return !word.starts_with('-'); });
    help = help && second == words.end();
    if (second != words.end()) ReportUnknown(words[0] + " " + *second, console, texts);
    (help ? console.out : console.err) << group;
    return help ? kDone : kUsage;
  }
  ReportUnknown(words[0], console, texts);
  console.err << texts.Text(kTextTryHelp, {{"<Command>", "ovformula"}}) << '\n';
  return kUsage;
}

int ReportUsage(const std::string& text, const std::string& command, Console& console,
                const texts::TextTable& texts) {
  ReportError(console, texts, text);
  console.err << texts.Text(kTextTryHelp, {{"<Command>", command}}) << '\n';
  return kUsage;
}

std::string Sentence(const Complaint& complaint, const texts::TextTable& texts) {
  return texts.Text(complaint.text, {{"<Word>", complaint.word}, {"<Near>", complaint.near}});
}

int RunCommand(const CommandSpec& command, Call call, Console& console,
               const texts::TextTable& texts) {
  if (call.values.contains("--help")) {
    console.out << CommandHelp(command, texts);
    return kDone;
  }
  const std::string name = "ovformula " + std::string(command.path);
  if (!call.complaint) call.complaint = FindEmptyValue(command, call.values);
  if (call.complaint) {
    return ReportUsage(Sentence(*call.complaint, texts), name, console, texts);
  }
  Invocation invocation(console, command, texts, std::move(call.values));
  try {
    return command.run(invocation);
  } catch (const UsageError& error) {
    return ReportUsage(error.what(), name, console, texts);
  } catch (...) {
    return ReportException(console, texts, std::current_exception());
  }
}

// A call whose words are taken apart as far as that goes.
struct Line {
  Words words;  // without the common options in front
  Values common;
  std::optional<Complaint> complaint;  // about the options in front
  const CommandSpec* command = nullptr;
  Call call;
};

Line TakeApart(const Words& arguments) {
  Line line;
  line.words = arguments;
  line.complaint = TakeCommonOptions(line.words, line.common);
  Words rest = line.words;
  const bool options_ended = !rest.empty() && rest.front() == "--";
  if (options_ended) rest.erase(rest.begin());
  if (line.complaint || rest.empty()) return line;
  line.command = TakeCommand(rest, line.common);
  if (!line.command) {
    line.words = std::move(rest);
    return line;
  }
  if (options_ended) rest.insert(rest.begin(), "--");
  line.call = ParseCall(*line.command, rest);
  line.call.values.merge(Values(line.common));
  return line;
}

// What a reader did not get must not look like success. A change that was made stays.
int FinishOutput(const Line& line, int code, Console& console, const texts::TextTable& texts) {
  console.out.flush();
  if (console.out) return code;
  try {
    files::os::RaiseSystem(
        console.out_failure ? *console.out_failure : std::make_error_code(std::errc::io_error),
        texts.Text(kTextStandardOutput), files::message::kCannotBeWritten);
  } catch (...) {
    ReportException(console, texts, std::current_exception());
  }
  const bool changed = code == kDone && line.command && Changes(*line.command, line.call);
  if (changed) console.err << texts.Text(kTextChangedAllTheSame) << '\n';
  return code == kDone ? kFile : code;
}

int RunInLanguage(const Line& line, Console& console, const texts::TextTable& texts) {
  if (line.complaint) {
    return ReportUsage(Sentence(*line.complaint, texts), "ovformula", console, texts);
  }
  if (line.common.contains("--version")) {
    console.out << "ovformula " << kVersion << '\n';
    return kDone;
  }
  if (line.command) return RunCommand(*line.command, line.call, console, texts);
  const bool help = line.common.contains("--help");
  if (!line.words.empty() && !line.words.front().empty() && line.words.front() != "--")
    return UnknownCommand(line.words, help, console, texts);
  (help ? console.out : console.err) << Overview(texts);
  return help ? kDone : kUsage;
}

// Runs the call in the language that it names or the user has.
int RunLine(const Line& line, Console& console) {
  const Values& values = line.command ? line.call.values : line.common;
  const auto found = values.find("--lang");
  const std::string language = found == values.end() ? "" : found->second.back();
  const texts::TextTable texts(
      project::ChooseLanguage(language, console.files, console.environment));
  if (found != values.end() && !project::ParseLanguage(language)) {
    ReportError(console, texts, texts.Text(kTextUnknownLanguage, {{"<Word>", language}}));
    return kUsage;
  }
  const int code = RunInLanguage(line, console, texts);
  return FinishOutput(line, code, console, texts);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, Console& console) {
  VisibleBuffer visible_out(console.out), visible_err(console.err);
  std::ostream out(&visible_out), err(&visible_err);
  err.setf(std::ios::unitbuf);
  Console shown{console.in,
                console.out_is_terminal ? out : console.out,
                err,
                console.status,
                console.files,
                console.out_is_terminal,
                console.err_is_terminal,
                console.environment,
                console.program_folder,
                console.interrupted,
                console.in_failure,
                console.out_failure};
  err.tie(&shown.out);
  return RunLine(TakeApart(arguments), shown);
}

}  // namespace cli
