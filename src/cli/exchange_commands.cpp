// SPDX-License-Identifier: MIT
// ovformula export, import and formula copy.
#include <algorithm>
#include <memory>
#include <optional>

#include "cli/commands.h"
#include "cli/exchange_texts.h"
#include "cli/opened_project.h"
#include "exchange/contents.h"
#include "exchange/export_text.h"
#include "exchange/formula_copy.h"
#include "exchange/import_plan.h"
#include "exchange/refused_lines.h"
#include "files/file_system.h"
#include "files/replace_file.h"
#include "project/made_files.h"
#include "project/report_file.h"
#include "store/project_rows.h"

namespace cli {

namespace {

using exchange::ImportPlan;
using Use = OpenedProject::Use;

// The word that an option names, by its place in `choices`.
std::optional<std::size_t> ChoiceOption(const Invocation& invocation, std::string_view option,
                                        std::initializer_list<std::string_view> choices) {
  const auto given = invocation.Option(option);
  if (!given) return std::nullopt;
  const auto* found = std::ranges::find(choices, *given);
  if (found != choices.end()) return static_cast<std::size_t>(found - choices.begin());
  std::string list;
  for (const std::string_view choice : choices)
    list += (list.empty() ? "" : ", ") + std::string(choice);
  throw UsageError(invocation.Text(
      kTextBadChoice, {{"<Option>", option}, {"<Word>", *given}, {"<Choices>", list}}));
}

// --- export ---

int RunExport(Invocation& invocation) {
  invocation.Exclude("--aliases", "--formulas");
  const bool aliases = invocation.Has("--aliases"), formulas = invocation.Has("--formulas");
  const bool whole = !aliases && !formulas;
  const bool csv =
      ChoiceOption(invocation, "--format", {"csv", "json"}).value_or(whole ? 1 : 0) == 0;
  if (csv && whole) throw UsageError(invocation.Text(kTextOneTable));
  OpenedProject session(invocation, Use::kRows);
  std::ostream& out = invocation.console().out;
  const auto write = [&](std::string_view text) {
    out << text;
    if (session.Interrupted()) throw InterruptedError();
  };
  const auto tell_gaps = [&] {
    // A formula lists its arguments by their aliases.
    return aliases ? session.TellMissingRows({store::kAliasTable}) : session.TellMissingRows();
  };
  if (!csv) {
    exchange::ExportJson(session.operations(), {whole || aliases, whole || formulas}, write);
    return tell_gaps();
  }
  const auto kind = aliases ? exchange::TableKind::kAliases : exchange::TableKind::kFormulas;
  const std::size_t unreadable = exchange::ExportCsv(session.operations(), kind, write);
  if (unreadable > 0) {
    invocation.Warn(invocation.Text(kTextControlCells, {{"<Count>", std::to_string(unreadable)}}));
  }
  return tell_gaps();
}

// --- What import and copy share ---

std::string_view ActionName(exchange::RowAction action) {
  switch (action) {
    case exchange::RowAction::kNew:
      return "new";
    case exchange::RowAction::kChanged:
      return "changed";
    case exchange::RowAction::kUnchanged:
      return "unchanged";
    case exchange::RowAction::kRefused:
      break;
  }
  return "refused";
}

std::string ReasonOf(const Invocation& invocation, const ImportPlan::Line& line) {
  return invocation.texts().Sentence(exchange::AtPlace(line.place, line.reason));
}

// What a dry run shows of each line.
void PrintLines(Invocation& invocation, const ImportPlan& plan) {
  RowWriter writer(invocation.console().out, invocation.ListFormat(),
                   {"Action", "Line", "Name", "Detail", "Reason"});
  for (std::size_t i = 0; i < plan.LineCount(); ++i) {
    if (invocation.Interrupted()) throw InterruptedError();
    const ImportPlan::Line line = plan.LineAt(i);
    writer.Write({std::string(ActionName(line.action)), std::int64_t{line.place.line}, line.name,
                  line.detail, invocation.texts().Sentence(line.reason)});
  }
  writer.Finish();
}

void PrintCounts(Invocation& invocation, const ImportPlan& plan) {
  const ImportPlan::Counts counts = plan.Count();
  invocation.console().out << "new " << counts.added << "\nchanged " << counts.changed
                           << "\nunchanged " << counts.unchanged << "\nrefused " << counts.refused
                           << '\n';
}

exchange::ImportOptions OptionsFor(Invocation& invocation) {
  exchange::ImportOptions options;
  options.existing = static_cast<exchange::ExistingPolicy>(
      ChoiceOption(invocation, "--existing", {"error", "skip", "update", "rename"}).value_or(0));
  options.create_aliases = invocation.Has("--create-aliases");
  options.prog_id = invocation.Option("--class").value_or("");
  options.with_rows_only = invocation.Has("--no-code");
  options.progress = [&](std::size_t, std::size_t) {
    if (invocation.Interrupted()) throw InterruptedError();
  };
  return options;
}

// --- import ---

std::string ReadGiven(Invocation& invocation) {
  const std::string file = invocation.Argument("FILE");
  if (file == "-") return invocation.InputText();
  return files::ReadFile(invocation.console().files, file);
}

// A file that is no list is named with what is wrong.
exchange::Contents ReadGivenList(Invocation& invocation, std::string bytes) {
  try {
    return exchange::ReadList(std::move(bytes));
  } catch (const exchange::FormatError& error) {
    const std::string file = invocation.Argument("FILE"), text = invocation.texts().Sentence(error);
    throw CommandError(kRefused, file == "-" ? text : file + ": " + text);
  }
}

// The refused lines in a file of their own, which goes again unless the import is done, and unless
// it is somebody else's by then.
class RefusedFile {
 public:
  RefusedFile(Invocation& invocation, const std::string& path)
      : made_(invocation.console().files), path_(path) {
    if (!invocation.console().files.Stamp(path)) return;
    throw CommandError(kRefused, invocation.Text(kTextRefusedFileExists, {{"<File>", path}}));
  }

  void Write(const std::string& text) { made_.Make(path_, text); }
  void Keep() { made_.Keep(); }

 private:
  project::MadeFiles made_;
  std::string path_;
};

// Also one that is not there yet, as a history is not before the first change.
void RefuseFileOfProject(Invocation& invocation, project::Project& project,
                         const std::string& path) {
  const auto own = project::FilesOfProject(project);
  const auto place = project::LookAtReportPlace(invocation.console().files, path, own);
  if (place != project::ReportPlace::kProject) return;
  throw CommandError(kRefused, invocation.Text(kTextOutputOfProject,
                                               {{"<File>", path}, {"<Option>", "--skip-refused"}}));
}

void WriteRefused(Invocation& invocation, const std::vector<ImportPlan::Line>& refused,
                  std::string bytes, RefusedFile& file) {
  std::vector<exchange::RefusedLine> lines;
  lines.reserve(refused.size());
  for (const ImportPlan::Line& line : refused) {
    lines.push_back({line.place, invocation.texts().Sentence(line.reason)});
  }
  file.Write(exchange::WriteRefusedLines(std::move(bytes), lines, invocation.Text(kTextReason)));
}

int RunImport(Invocation& invocation) {
  const exchange::ImportOptions options = OptionsFor(invocation);
  const auto skip = invocation.OutputFileOption("--skip-refused");
  std::optional<RefusedFile> refused_file;
  if (skip) refused_file.emplace(invocation, *skip);
  std::string bytes = ReadGiven(invocation);
  std::string original = skip ? bytes : std::string();
  const exchange::Contents contents = ReadGivenList(invocation, std::move(bytes));
  OpenedProject session(invocation, Use::kChange);
  if (skip) RefuseFileOfProject(invocation, session.project(), *skip);
  ImportPlan plan = exchange::PlanImport(contents, session.operations(), options);
  if (!contents.ignored.empty()) {
    std::string names;
    for (const std::string& name : contents.ignored) names += (names.empty() ? "" : ", ") + name;
    invocation.Warn(invocation.Text(kTextIgnoredColumns, {{"<Names>", names}}));
  }
  const std::vector<ImportPlan::Line> refused = plan.Refused();
  for (const ImportPlan::Line& line : refused) {
    invocation.console().err << ReasonOf(invocation, line) << '\n';
  }
  if (session.dry_run()) PrintLines(invocation, plan);
  if (!refused.empty() && !skip) {
    PrintCounts(invocation, plan);
    throw CommandError(kRefused, invocation.Text(kTextRefusedLines,
                                                 {{"<Count>", std::to_string(refused.size())}}));
  }
  if (!refused.empty() && !session.dry_run()) {
    WriteRefused(invocation, refused, std::move(original), *refused_file);
  }
  session.Report(
      exchange::Import(plan, session.operations(),
                       {{exchange::kTextImportTitle}, {{"<Name>", invocation.Argument("FILE")}}},
                       session.MakeOptions()));
  if (refused_file) refused_file->Keep();
  PrintCounts(invocation, plan);
  return kDone;
}

// --- formula copy ---

std::vector<exchange::Replacement> ReplacementOptions(const Invocation& invocation) {
  std::vector<exchange::Replacement> replacements;
  for (const std::string& pair : invocation.Options("--replace")) {
    const std::size_t sign = pair.find('=');
    if (sign == std::string::npos || sign == 0) {
      throw UsageError(invocation.Text(kTextNoPair, {{"<Word>", pair}}));
    }
    replacements.push_back({pair.substr(0, sign), pair.substr(sign + 1)});
  }
  return replacements;
}

exchange::CopySource SourceOf(Invocation& invocation, OpenedProject& project) {
  exchange::CopySource source;
  source.formula = project.Formula(invocation.Argument("FORMULA"));
  source.arguments = project.operations().ArgumentsOf(source.formula.id);
  if (invocation.Has("--no-code")) return source;
  source.code =
      project.project().code().FunctionText(source.formula.prog_id, source.formula.name, false);
  if (source.code.empty()) {
    invocation.Warn(invocation.Text(
        kTextNoCode, {{"<Class>", source.formula.prog_id}, {"<Name>", source.formula.name}}));
  }
  return source;
}

int RunCopy(Invocation& invocation) {
  exchange::CopyRequest request;
  request.name = invocation.Option("--name").value_or("");
  request.replacements = ReplacementOptions(invocation);
  const auto other = invocation.Option("--to");
  OpenedProject from(invocation, other ? Use::kCode : Use::kChange);
  std::unique_ptr<OpenedProject> opened;
  if (other) {
    opened = std::make_unique<OpenedProject>(invocation, Use::kChange, *other,
                                             invocation.Options("--to-vbp"));
  }
  OpenedProject& to = opened ? *opened : from;
  exchange::CopySource source = SourceOf(invocation, from);
  source.is_of_this_project = !other;
  exchange::ImportOptions options = OptionsFor(invocation);
  if (const auto prog_id = invocation.Option("--class")) request.prog_id = to.Class(*prog_id);
  exchange::CopyPlan copies = exchange::PlanCopies(source, request, to.operations(), options);
  ImportPlan& plan = copies.plan;
  for (const ImportPlan::Line& line : plan.Refused()) {
    invocation.console().err << (line.name.empty() ? "" : line.name + ": ")
                             << ReasonOf(invocation, line) << '\n';
  }
  if (plan.Count().refused > 0) {
    throw CommandError(kRefused,
                       invocation.Text(kTextRefusedCopies, {{"<Name>", source.formula.name}}));
  }
  to.Report(exchange::Import(plan, to.operations(),
                             {{exchange::kTextCopyTitle}, {{"<Name>", source.formula.name}}},
                             to.MakeOptions()));
  if (to.dry_run()) return kDone;
  for (const exchange::PlannedFormula& formula : plan.formulas()) {
    invocation.console().out << formula.id << '\t' << PlainText(formula.values.name) << '\n';
  }
  return kDone;
}

constexpr ArgumentSpec kProject{"PROJECT.ovs", kTextArgProject};
constexpr OptionSpec kExisting{"--existing", "POLICY", kTextOptExisting};

}  // namespace

std::vector<CommandSpec> ExchangeCommands() {
  return {
      {"export",
       kTextCommandExport,
       {kProject},
       {{"--aliases", "", kTextOptAliases},
        {"--formulas", "", kTextOptFormulas},
        {"--format", "FORMAT", kTextOptListFormat}},
       {"ovformula export Plant.ovs > Plant.json",
        "ovformula export Plant.ovs --formulas > formulas.csv"},
       RunExport},
      {"import",
       kTextCommandImport,
       {kProject, {"FILE", kTextArgList}},
       ChangeOptions({kExisting,
                      {"--create-aliases", "", kTextOptCreateAliases},
                      {"--skip-refused", "FILE", kTextOptSkipRefused},
                      {"--class", "CLASS", kTextOptDefaultClass}}),
       {"ovformula import Plant.ovs signals.csv --dry-run",
        "ovformula import Plant.ovs signals.csv --existing update --skip-refused mend.csv"},
       RunImport},
  };
}

CommandSpec FormulaCopyCommand() {
  return {"formula copy",
          kTextCommandCopy,
          {kProject, {"FORMULA", kTextArgFormula}},
          ChangeOptions({{"--name", "NAME", kTextOptCopyName},
                         {"--class", "CLASS", kTextOptClass},
                         {"--replace", "OLD=NEW", kTextOptReplacement, true},
                         {"--to", "OTHER.ovs", kTextOptTo},
                         {"--to-vbp", "FILE", kTextOptToVbp, true},
                         kExisting}),
          {"ovformula formula copy Plant.ovs FillTank1 --replace Tank1=Tank2",
           "ovformula formula copy Plant.ovs FillTank1 --replace \"Tank1=Tank{2..8}\" --dry-run",
           "ovformula formula copy Plant.ovs FillTank1 --to Other.ovs --class CTank"},
          RunCopy};
}

}  // namespace cli
