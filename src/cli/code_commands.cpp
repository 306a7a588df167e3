// SPDX-License-Identifier: MIT
// ovformula find.
#include <set>

#include "cli/commands.h"
#include "cli/opened_project.h"
#include "cli/place_list.h"

namespace cli {

namespace {

using Use = OpenedProject::Use;

int Replace(Invocation& invocation, const std::string& replacement,
            const vbcode::SearchOptions& search) {
  OpenedProject session(invocation, Use::kChange);
  const auto found = session.operations().FindInCode(invocation.Argument("TEXT"), search);
  WarnOfUnread(invocation, found.unread);
  session.Report(
      session.operations().ReplaceInCode(found.places, replacement, session.MakeOptions()));
  if (session.dry_run()) return kDone;
  std::set<std::string> files;
  for (const codegen::CodePlace& place : found.places) files.insert(place.file);
  invocation.console().err << invocation.Text(kTextReplaced,
                                              {{"<Count>", std::to_string(found.places.size())},
                                               {"<Files>", std::to_string(files.size())}})
                           << '\n';
  return kDone;
}

int RunFind(Invocation& invocation) {
  invocation.Exclude("--json", "--replace");
  const vbcode::SearchOptions search = {invocation.Has("--word"), invocation.Has("--case")};
  if (const auto replacement = invocation.Option("--replace")) {
    return Replace(invocation, *replacement, search);
  }
  OpenedProject session(invocation, Use::kCode);
  WritePlaces(invocation, session.operations().FindInCode(invocation.Argument("TEXT"), search));
  return kDone;
}

}  // namespace

std::vector<CommandSpec> CodeCommands() {
  const ArgumentSpec project{"PROJECT.ovs", kTextArgProject};
  return {
      {"find",
       kTextCommandFind,
       {project, {"TEXT", kTextArgText}},
       OpenOptions({{"--word", "", kTextOptWord},
                    {"--case", "", kTextOptCase},
                    {"--replace", "NEW", kTextOptReplace, false, true},
                    {"--dry-run", "", kTextOptDryRun},
                    kJsonOption}),
       {"ovformula find Plant.ovs mLimits --word",
        "ovformula find Plant.ovs Hight --replace Height --dry-run"},
       RunFind,
       "--replace"},
      GraphCommand(),
  };
}

}  // namespace cli
