// SPDX-License-Identifier: MIT
// ovformula open, new, class, report, recover.
#include "cli/commands.h"
#include "cli/desktop.h"
#include "cli/opened_project.h"
#include "cli/progress.h"
#include "files/file_identity.h"
#include "files/recovery.h"
#include "files/replace_file.h"
#include "jet/error.h"
#include "jet/lock_file.h"
#include "platform/text.h"
#include "project/new_project.h"
#include "project/report.h"
#include "project/report_file.h"
#include "project/unified_diff.h"

namespace cli {

namespace {

using Use = OpenedProject::Use;

int RunOpen(Invocation& invocation) { return OpenDesktop(invocation); }

void PrintPlan(Invocation& invocation, const project::NewProjectPlan& plan) {
  std::ostream& out = invocation.console().out;
  for (const std::string& added : plan.added) out << "+\t" << PlainText(added) << '\n';
  for (const project::NewFile& file : plan.files) {
    out << project::UnifiedDiff(file.path, "", platform::Windows1252ToUtf8(file.bytes));
  }
}

int RunNew(Invocation& invocation) {
  project::NewProjectOptions options;
  options.into = invocation.Has("--into");
  options.vb_files = invocation.Options("--vbp");
  Console& console = invocation.console();
  const std::string path = invocation.Argument("PROJECT.ovs");
  if (!options.into && console.files.Exists(path)) {
    throw CommandError(kRefused, invocation.Text(kTextFileExists, {{"<File>", path}}));
  }
  try {
    if (invocation.Has("--dry-run")) {
      PrintPlan(invocation, project::PlanProject(console.files, path, options));
      return kDone;
    }
    for (const std::string& file : project::MakeProject(console.files, path, options)) {
      console.err << invocation.Text(kTextProjectMade, {{"<File>", file}}) << '\n';
    }
  } catch (const files::Error& error) {
    if (error.kind() != files::ErrorKind::kExists) throw;
    throw CommandError(kRefused, invocation.texts().Sentence(error));
  }
  return kDone;
}

int RunClassList(Invocation& invocation) {
  OpenedProject session(invocation, Use::kCode);
  const store::ClassList list = session.operations().Classes();
  RowWriter writer(invocation.console().out, invocation.ListFormat(), {"ProgID", "File"});
  for (const store::ClassEntry& entry : list.classes) writer.Write({entry.prog_id, entry.file});
  writer.Finish();
  for (const messages::Message& warning : list.warnings)
    invocation.Warn(invocation.texts().Sentence(warning));
  return kDone;
}

// Before the work, and again before the file is written.
void CheckOutput(Invocation& invocation, project::Project& project, const std::string& output) {
  files::FileSystem& files = invocation.console().files;
  switch (project::LookAtReportPlace(files, output, project::FilesOfProject(project))) {
    case project::ReportPlace::kProject:
      throw CommandError(kRefused, invocation.Text(kTextOutputOfProject,
                                                   {{"<File>", output}, {"<Option>", "--output"}}));
    case project::ReportPlace::kOther:
      if (invocation.Has("--force")) return;
      throw CommandError(kRefused, invocation.Text(kTextOutputExists, {{"<File>", output}}));
    case project::ReportPlace::kFree:
      return;
  }
}

int RunReport(Invocation& invocation) {
  OpenedProject session(invocation, Use::kCode);
  project::Project& project = session.project();
  Console& console = invocation.console();
  const auto output = invocation.OutputFileOption("--output");
  if (output) CheckOutput(invocation, project, *output);
  Progress progress(invocation);
  const auto show = [&](std::size_t done, std::size_t total) {
    progress.Show(done, total);
    if (invocation.Interrupted()) throw InterruptedError();
    return true;
  };
  const std::string html = project::MakeReport(
      {project.path(), project.operations(), project.code(), project.items(), show},
      invocation.texts());
  progress.End();
  if (output) {
    CheckOutput(invocation, project, *output);
    files::ReplaceFile(console.files, *output, html);
  } else {
    console.out << html;
  }
  return session.TellMissingRows();
}

std::optional<files::RecoveryChoice> ChoiceOption(Invocation& invocation) {
  invocation.Exclude("--before", "--after");
  invocation.Exclude("--before", "--discard");
  invocation.Exclude("--after", "--discard");
  if (invocation.Has("--before")) return files::RecoveryChoice::kBefore;
  if (invocation.Has("--after")) return files::RecoveryChoice::kAfter;
  if (invocation.Has("--discard")) return files::RecoveryChoice::kDiscard;
  return std::nullopt;
}

void PrintWay(Invocation& invocation, std::string_view option,
              const files::RecoveryPlan::Way& way) {
  std::ostream& out = invocation.console().out;
  const auto print = [&](const messages::Message& message) {
    out << "  " << invocation.texts().Sentence(message) << '\n';
  };
  out << option << '\n';
  if (!way.possible) print(way.reason);
  for (const messages::Message& step : way.steps) print(step);
}

// Shows the plan; 1 when there is something to decide.
int ShowPlan(Invocation& invocation, const files::RecoveryPlan& plan) {
  std::ostream& out = invocation.console().out;
  if (plan.condition == files::JournalCondition::kNone) {
    out << invocation.Text(kTextNothingToRecover) << '\n';
    return kDone;
  }
  out << invocation.texts().Sentence(plan.message) << '\n';
  for (const files::RecoveryFile& file : plan.files) {
    out << invocation.texts().Sentence(file.message) << '\n';
  }
  PrintWay(invocation, "--before", plan.before);
  PrintWay(invocation, "--after", plan.after);
  PrintWay(invocation, "--discard", plan.discard);
  out << invocation.Text(kTextRecoverChoose) << '\n';
  return kRefused;
}

// Who does not know the journal would go on with what he read before.
void RefuseForeignUser(files::FileSystem& system, const std::string& path) {
  if (!system.Exists(path)) return;
  const std::string database = files::FollowLink(system, path);
  const auto file = system.Open(database, files::OpenMode::kRead);
  const messages::Message user = jet::FindForeignUser(system, database, *file);
  if (user.empty()) return;
  throw jet::Error(jet::ErrorKind::kLocked, path, {},
                   {jet::message::kOpenElsewhere, {{"<Computer>", user}}},
                   jet::message::kCloseThere);
}

int RunRecover(Invocation& invocation) {
  const auto choice = ChoiceOption(invocation);
  Console& console = invocation.console();
  const std::string path = invocation.Argument("PROJECT.ovs");
  const files::Reach reach = project::ReachOf(console.files, path, OptionsOf(invocation));
  const files::RecoveryPlan plan = files::ExamineJournal(console.files, path, reach);
  const bool nothing = plan.condition == files::JournalCondition::kNone;
  if (nothing) console.files.Open(path, files::OpenMode::kRead);  // raises where there is no file
  if (!choice || nothing) return ShowPlan(invocation, plan);
  RefuseForeignUser(console.files, path);
  files::Resolve(console.files, path, *choice, reach);
  console.out << invocation.Text(kTextRecovered) << '\n';
  return kDone;
}

}  // namespace

std::vector<CommandSpec> ProjectCommands() {
  const ArgumentSpec project{"PROJECT.ovs", kTextArgProject};
  return {
      {"open",
       kTextCommandOpen,
       {project},
       OpenOptions({}),
       {"ovformula open Plant.ovs", "ovformula Plant.ovs",
        "ovformula open Plant.ovs --code-page 1251"},
       RunOpen},
      {"new",
       kTextCommandNew,
       {project},
       {{"--into", "", kTextOptInto},
        {"--vbp", "FILE", kTextOptVbp, true},
        {"--dry-run", "", kTextOptDryRun}},
       {"ovformula new Plant.ovs", "ovformula new Plant.ovs --vbp server/PumpServer.vbp",
        "ovformula new Old.ovs --into"},
       RunNew},
      {"class list",
       kTextCommandClassList,
       {project},
       CodeOptions({kJsonOption}),
       {"ovformula class list Plant.ovs"},
       RunClassList},
      {"report",
       kTextCommandReport,
       {project},
       CodeOptions({{"--output", "FILE", kTextOptOutput}, {"--force", "", kTextOptForce}}),
       {"ovformula report Plant.ovs --output report.html"},
       RunReport},
      {"recover",
       kTextCommandRecover,
       {project},
       {{"--before", "", kTextOptBefore},
        {"--after", "", kTextOptAfter},
        {"--discard", "", kTextOptDiscard},
        {"--vbp", "FILE", kTextOptVbp, true},
        {"--allow-folder", "FOLDER", kTextOptAllowFolder, true}},
       {"ovformula recover Plant.ovs", "ovformula recover Plant.ovs --before"},
       RunRecover},
  };
}

}  // namespace cli
