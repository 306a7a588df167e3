// SPDX-License-Identifier: MIT
// ovformula check.
#include <algorithm>
#include <array>
#include <set>
#include <sstream>

#include "check/project_parts.h"
#include "check/repair.h"
#include "cli/commands.h"
#include "cli/opened_project.h"
#include "cli/progress.h"
#include "messages/text_number.h"
#include "platform/text.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"

namespace cli {

namespace {

using check::Finding;
using check::Rule;
using check::Severity;
using Use = OpenedProject::Use;

// By check::Severity.
constexpr std::array<std::string_view, 3> kSeverities = {"error", "warning", "hint"};

std::string_view NameOf(Severity severity) {
  return kSeverities[static_cast<std::size_t>(severity)];
}

const Rule& RuleNamed(Invocation& invocation, std::string_view code) {
  if (const Rule* rule = check::FindRule(code)) return *rule;
  throw UsageError(invocation.Text(kTextUnknownRule, {{"<Code>", code}}));
}

Severity LeastSeverity(Invocation& invocation) {
  const auto given = invocation.Option("--severity");
  if (!given) return Severity::kHint;
  const auto found = std::ranges::find(kSeverities, platform::FoldCase(*given));
  if (found != kSeverities.end()) return static_cast<Severity>(found - kSeverities.begin());
  throw UsageError(invocation.Text(
      kTextBadChoice,
      {{"<Option>", "--severity"}, {"<Word>", *given}, {"<Choices>", "error, warning, hint"}}));
}

check::Options ReadOptions(Invocation& invocation) {
  check::Options options;
  options.least = LeastSeverity(invocation);
  for (std::string_view code : invocation.Options("--rule")) {
    if (code.starts_with('-')) code.remove_prefix(1);
    options.silenced.insert(&RuleNamed(invocation, code));
  }
  return options;
}

// "TABLE #ID member" or "FILE:LINE", as far as there is one.
std::string PlaceOf(const check::Where& where) {
  if (where.table.empty()) {
    return where.line > 0 ? where.file + ':' + std::to_string(where.line) : where.file;
  }
  std::string place = where.table;
  if (where.id != 0) place += " #" + std::to_string(where.id);
  return where.member.empty() ? place : place + ' ' + where.member;
}

Cell TextOrNull(const std::string& text) { return text.empty() ? Cell() : Cell(text); }
Cell NumberOrNull(std::int32_t number) { return number == 0 ? Cell() : Cell(std::int64_t{number}); }

std::vector<Cell> JsonCells(const Finding& finding, const texts::TextTable& texts) {
  const check::Where& where = finding.where;
  return {std::string(NameOf(finding.rule->severity)),
          std::string(finding.rule->code),
          TextOrNull(where.table),
          NumberOrNull(where.id),
          TextOrNull(where.member),
          TextOrNull(where.file),
          NumberOrNull(where.line),
          texts.Sentence(finding.message),
          texts.Sentence(finding.Remedy()),
          finding.IsRepairable()};
}

// The findings as a list, and their counts for people; the exit code that belongs to them.
int Print(Invocation& invocation, const std::vector<Finding>& findings) {
  const RowFormat format = invocation.ListFormat();
  const bool json = format == RowFormat::kJson;
  RowWriter writer(invocation.console().out, format,
                   json
                       ? std::vector<std::string>{"Severity", "Code", "Table", "ID", "Member",
                                                  "File", "Line", "Message", "Remedy", "Repairable"}
                       : std::vector<std::string>{"Severity", "Code", "Place", "Message"});
  std::array<std::size_t, 3> counts = {};
  for (const Finding& finding : findings) {
    ++counts[static_cast<std::size_t>(finding.rule->severity)];
    if (json) {
      writer.Write(JsonCells(finding, invocation.texts()));
    } else {
      writer.Write({std::string(NameOf(finding.rule->severity)), std::string(finding.rule->code),
                    PlaceOf(finding.where), invocation.texts().Sentence(finding.message)});
    }
  }
  writer.Finish();
  invocation.console().err << (findings.empty()
                                   ? invocation.Text(kTextInStep)
                                   : invocation.Text(kTextFindings,
                                                     {{"<Errors>", std::to_string(counts[0])},
                                                      {"<Warnings>", std::to_string(counts[1])},
                                                      {"<Hints>", std::to_string(counts[2])}}))
                           << '\n';
  return findings.empty() ? kDone : kRefused;
}

// A project without its tables cannot be opened as one.
std::vector<Finding> FindMissing(Invocation& invocation) {
  recordset::JetConnection connection(invocation.console().files);
  connection.Open(
      store::ProjectConnectionString(invocation.Argument("PROJECT.ovs"), store::Access::kRead));
  std::vector<Finding> missing = check::FindMissing(connection);
  std::erase_if(missing,
                [](const Finding& finding) { return finding.rule != &check::rule::kNoColumn; });
  return missing;
}

// The rules that --repair names; all without a name.
std::set<const Rule*> RulesToRepair(Invocation& invocation) {
  std::set<const Rule*> rules;
  for (const std::string& codes : invocation.Options("--repair")) {
    std::istringstream words(codes);
    bool names_one = false;
    for (std::string code; std::getline(words, code, ',');) {
      if (code.empty()) continue;
      rules.insert(&RuleNamed(invocation, code));
      names_one = true;
    }
    // Not all of them because a list of codes came out without any.
    if (!codes.empty() && !names_one) RuleNamed(invocation, codes);
  }
  return rules;
}

int Repair(Invocation& invocation, OpenedProject& session, const check::Parts& parts,
           std::vector<Finding> findings, const check::Options& options, Progress& progress) {
  const std::set<const Rule*> rules = RulesToRepair(invocation);
  const auto all = findings;
  std::erase_if(findings, [&](const Finding& finding) {
    return !finding.IsRepairable() || (!rules.empty() && !rules.contains(finding.rule));
  });
  if (findings.empty()) return Print(invocation, all);
  const check::RepairResult result = check::Repair(parts, findings, options, session.MakeOptions());
  progress.End();
  session.Report(result.operation);
  const messages::TextNumber text = session.dry_run() ? kTextWouldBeMended : kTextMended;
  for (const Finding& finding : result.mended) {
    invocation.console().err << invocation.Text(
                                    text,
                                    {{"<Code>", finding.rule->code},
                                     {"<Place>", PlaceOf(finding.where)},
                                     {"<Text>", invocation.texts().Sentence(finding.message)}})
                             << '\n';
  }
  if (session.dry_run()) return result.left.empty() ? kDone : kRefused;
  return Print(invocation, result.left);
}

int RunCheck(Invocation& invocation) {
  check::Options options = ReadOptions(invocation);
  const bool repair = invocation.Has("--repair");
  if (repair) RulesToRepair(invocation);
  const std::vector<Finding> missing = FindMissing(invocation);
  if (!missing.empty()) return Print(invocation, missing);
  OpenedProject session(invocation, repair ? Use::kChange : Use::kCode, false);
  Progress progress(invocation);
  options.progress = [&](std::size_t done, std::size_t total) {
    progress.Show(done, total);
    if (invocation.Interrupted()) throw InterruptedError();
  };
  const check::Parts parts = check::PartsOf(session.project(), options.progress);
  auto findings = check::Find(parts, options);
  progress.End();
  if (repair) return Repair(invocation, session, parts, std::move(findings), options, progress);
  return Print(invocation, findings);
}

}  // namespace

std::vector<CommandSpec> CheckCommands() {
  const ArgumentSpec project{"PROJECT.ovs", kTextArgProject};
  return {
      {"check",
       kTextCommandCheck,
       {project},
       ChangeOptions({{"--repair", "[=CODES]", kTextOptRepair},
                      {"--severity", "SEVERITY", kTextOptSeverity},
                      {"--rule", "-CODE", kTextOptRule, true},
                      kJsonOption}),
       {"ovformula check Plant.ovs", "ovformula check Plant.ovs --severity warning --rule -DCL006",
        "ovformula check Plant.ovs --repair=HDR001,HDR002 --dry-run"},
       RunCheck,
       "--repair"},
  };
}

}  // namespace cli
