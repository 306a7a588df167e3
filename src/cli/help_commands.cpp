// SPDX-License-Identifier: MIT
#include "cli/commands.h"
#include "cli/help.h"
#include "cli/invocation.h"
#include "cli/version.h"

namespace cli {

namespace {

int RunHelp(Invocation& invocation) {
  std::string path;
  for (const std::string& word : invocation.Options("COMMAND"))
    path += (path.empty() ? "" : " ") + word;
  if (path.empty()) {
    invocation.console().out << Overview(invocation.texts());
    return kDone;
  }
  const CommandSpec* command = FindCommand(path);
  if (const std::string group = GroupHelp(path, invocation.texts()); !command && !group.empty()) {
    invocation.console().out << group;
    return kDone;
  }
  if (!command) throw UsageError(invocation.Text(kTextUnknownCommand, {{"<Word>", path}}));
  invocation.console().out << CommandHelp(*command, invocation.texts());
  return kDone;
}

int RunCompletion(Invocation& invocation) {
  const std::string script = Completion(invocation.Argument("SHELL"));
  if (script.empty()) {
    throw UsageError(invocation.Text(kTextBadChoice, {{"<Option>", "SHELL"},
                                                      {"<Word>", invocation.Argument("SHELL")},
                                                      {"<Choices>", "bash, zsh, fish"}}));
  }
  invocation.console().out << script;
  return kDone;
}

int RunMan(Invocation& invocation) {
  invocation.console().out << ManualPage(invocation.texts(), kVersion);
  return kDone;
}

}  // namespace

std::vector<CommandSpec> HelpCommands() {
  return {
      {"help",
       kTextCommandHelp,
       {{"COMMAND", kTextArgCommand, false, true}},
       {},
       {"ovformula help formula add"},
       RunHelp},
      {"completion",
       kTextCommandCompletion,
       {{"SHELL", kTextArgShell}},
       {},
       {"source <(ovformula completion bash)"},
       RunCompletion},
      {"man", kTextCommandMan, {}, {}, {"ovformula man | man -l -"}, RunMan},
  };
}

}  // namespace cli
