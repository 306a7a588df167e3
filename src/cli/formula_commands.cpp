// SPDX-License-Identifier: MIT
// ovformula formula ...
#include <algorithm>

#include "cli/commands.h"
#include "cli/opened_project.h"
#include "cli/place_list.h"
#include "exchange/cell_values.h"
#include "exchange/exchange_texts.h"
#include "exchange/series.h"
#include "platform/prog_id.h"
#include "platform/text.h"
#include "store/project_rows.h"

namespace cli {

namespace {

using store::FormulaRecord;
using store::FormulaValues;
using Use = OpenedProject::Use;

const std::vector<std::string> kColumns = {"ID",       "Name",    "ProgID", "Type",
                                           "ScanTime", "Enabled", "Comment"};

std::vector<Cell> FormulaCells(const FormulaRecord& formula) {
  return {std::int64_t{formula.id},
          formula.name,
          formula.prog_id,
          std::int64_t{formula.type},
          std::int64_t{formula.scan_time},
          formula.enabled,
          formula.comment_is_null ? Cell() : Cell(formula.comment)};
}

std::optional<std::int32_t> TypeOption(Invocation& invocation) {
  const auto given = invocation.Option("--type");
  if (!given) return std::nullopt;
  if (const auto type = exchange::ParseCallType(*given)) return type;
  const texts::TextTable english(texts::Language::kEnglish);
  std::string choices;
  for (std::int32_t type = 0; type < store::kCallTypes; ++type) {
    choices += (type == 0 ? "" : ", ") + english.Text(store::kFirstCallTypeText + type);
  }
  throw UsageError(invocation.Text(kTextUnknownType, {{"<Word>", *given}, {"<Choices>", choices}}));
}

std::string OnlyClass(Invocation& invocation, OpenedProject& session) {
  const auto classes = session.operations().Classes().classes;
  if (classes.size() == 1) return classes.front().prog_id;
  if (classes.empty()) throw CommandError(kRefused, invocation.Text(kTextNoClasses));
  std::string choices;
  for (const auto& entry : classes) choices += (choices.empty() ? "" : ", ") + entry.prog_id;
  throw CommandError(kRefused, invocation.Text(kTextClassNeeded, {{"<Choices>", choices}}));
}

void ReadValues(Invocation& invocation, OpenedProject& session, FormulaValues& values) {
  if (const auto name = invocation.Option("--name")) values.name = *name;
  if (const auto prog_id = invocation.Option("--class")) values.prog_id = session.Class(*prog_id);
  if (const auto type = TypeOption(invocation)) values.type = *type;
  if (const auto scan_time = invocation.NumberOption("--scan-time")) values.scan_time = *scan_time;
  if (const auto enabled = invocation.Switch("--enabled", "--disabled")) values.enabled = *enabled;
  if (const auto comment = invocation.Option("--comment")) values.comment = *comment;
}

int RunList(Invocation& invocation) {
  const auto type = TypeOption(invocation);
  const auto prog_id = invocation.Option("--class");
  OpenedProject session(invocation, Use::kRows);
  RowWriter writer(invocation.console().out, invocation.ListFormat(), kColumns);
  session.operations().ForEachFormula([&](const FormulaRecord& formula) {
    if (type && formula.type != *type) return;
    if (prog_id && !platform::ProgId(formula.prog_id).IsNamed(*prog_id)) return;
    writer.Write(FormulaCells(formula));
  });
  writer.Finish();
  return session.TellMissingRows({store::kFormulasTable});
}

std::string ArgumentJson(const store::ArgumentRecord& argument) {
  return JsonObject({{"ID", std::to_string(argument.id)},
                     {"ParentID", std::to_string(argument.parent_id)},
                     {"AliasID", std::to_string(argument.alias_id)},
                     {"VBAlias", JsonString(argument.vb_alias)},
                     {"ItemID", JsonString(argument.item_id)},
                     {"In", argument.in ? "true" : "false"},
                     {"Out", argument.out ? "true" : "false"}});
}

int RunShow(Invocation& invocation) {
  OpenedProject session(invocation, Use::kRows);
  const FormulaRecord formula = session.Formula(invocation.Argument("FORMULA"));
  const auto arguments = session.operations().ArgumentsOf(formula.id);
  const auto cells = FormulaCells(formula);
  std::ostream& out = invocation.console().out;
  if (invocation.Has("--json")) {
    std::vector<std::pair<std::string, std::string>> members;
    for (std::size_t i = 0; i < cells.size(); ++i)
      members.emplace_back(kColumns[i], JsonText(cells[i]));
    std::string list;
    for (const auto& argument : arguments)
      list += (list.empty() ? "" : ", ") + ArgumentJson(argument);
    members.emplace_back("arguments", "[" + list + "]");
    out << JsonObject(members) << '\n';
    return kDone;
  }
  for (std::size_t i = 0; i < cells.size(); ++i)
    out << kColumns[i] << '\t' << PlainText(cells[i]) << '\n';
  for (const auto& argument : arguments) {
    out << "Argument\t" << PlainText(argument.vb_alias) << '\t' << PlainText(argument.item_id)
        << (argument.in ? "\tIn" : "\t") << (argument.out ? "\tOut" : "\t") << '\n';
  }
  return kDone;
}

FormulaValues WithName(FormulaValues values, const std::string& name) {
  values.name = name;
  return values;
}

store::OperationResult AddSeries(store::Operations& operations, const FormulaValues& values,
                                 const std::vector<std::string>& names) {
  std::vector<std::int32_t> ids;
  for (const std::string& name : names) {
    store::OperationResult result = operations.AddFormula(WithName(values, name));
    if (!result.success()) return result;
    ids.push_back(result.id());
  }
  store::OperationResult all;
  all.ids = std::move(ids);
  return all;
}

int RunAdd(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  FormulaValues values;
  ReadValues(invocation, session, values);
  if (!invocation.Has("--class")) values.prog_id = OnlyClass(invocation, session);
  if (!invocation.Has("--name")) values.name = session.operations().ProposeFormulaName();
  const std::vector<std::string> names = exchange::Expand(values.name);
  store::Operations& operations = session.operations();
  const auto result =
      names.size() == 1
          ? operations.AddFormula(WithName(values, names[0]), session.MakeOptions())
          : operations.AsOne(
                {{exchange::kTextSeriesTitle}, {{"<Name>", values.name}}},
                [&] { return AddSeries(operations, values, names); }, session.MakeOptions());
  session.Report(result);
  if (session.dry_run()) return kDone;
  for (std::size_t i = 0; i < result.ids.size(); ++i) {
    invocation.console().out << result.ids[i] << '\t' << PlainText(names[i]) << '\n';
  }
  return kDone;
}

int RunEdit(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  const FormulaRecord formula = session.Formula(invocation.Argument("FORMULA"));
  FormulaValues values = formula;
  ReadValues(invocation, session, values);
  auto options = session.MakeRenameOptions<store::EditFormulaOptions>();
  options.with_code = invocation.Has("--with-code");
  session.ReportEdit(session.operations().EditFormula(formula.id, values, options));
  return kDone;
}

int RunDelete(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  const auto ids = session.FormulaIds(invocation.Arguments("FORMULA"));
  session.Report(session.operations().DeleteFormulas(ids, session.MakeOptions()));
  return kDone;
}

int RunCode(Invocation& invocation) {
  OpenedProject session(invocation, Use::kCode);
  const FormulaRecord formula = session.Formula(invocation.Argument("FORMULA"));
  std::string text = session.project().code().FunctionText(formula.prog_id, formula.name, true);
  if (text.empty()) {
    throw CommandError(kRefused, invocation.Text(kTextNoCode, {{"<Class>", formula.prog_id},
                                                               {"<Name>", formula.name}}));
  }
  std::erase(text, '\r');
  invocation.console().out << text << '\n';
  return kDone;
}

// With and without --code, as for an alias: nothing but code calls a formula by its name.
int RunUses(Invocation& invocation) {
  OpenedProject session(invocation, Use::kCode);
  const FormulaRecord formula = session.Formula(invocation.Argument("FORMULA"));
  WritePlaces(invocation, session.operations().CodeUsesOfFormula(formula.id));
  return kDone;
}

std::vector<OptionSpec> ValueOptions() {
  return {{"--name", "NAME", kTextOptName},
          {"--class", "CLASS", kTextOptClass},
          {"--type", "TYPE", kTextOptType},
          {"--scan-time", "MS", kTextOptScanTime},
          {"--enabled", "", kTextOptEnabled},
          {"--disabled", "", kTextOptDisabled},
          {"--comment", "TEXT", kTextOptComment, false, true}};
}

std::vector<OptionSpec> EditOptions() {
  std::vector<OptionSpec> options = ValueOptions();
  options.push_back({"--with-code", "", kTextOptWithCode});
  return RenameOptions(options);
}

}  // namespace

std::vector<CommandSpec> FormulaCommands() {
  const ArgumentSpec project{"PROJECT.ovs", kTextArgProject};
  const ArgumentSpec formula{"FORMULA", kTextArgFormula};
  return {
      {"formula list",
       kTextCommandFormulaList,
       {project},
       {{"--class", "CLASS", kTextOptFilterClass},
        {"--type", "TYPE", kTextOptFilterType},
        kJsonOption},
       {"ovformula formula list Plant.ovs",
        "ovformula formula list Plant.ovs --type asynchronous --json"},
       RunList},
      {"formula show",
       kTextCommandFormulaShow,
       {project, formula},
       {kJsonOption},
       {"ovformula formula show Plant.ovs FillTank --json"},
       RunShow},
      {"formula add",
       kTextCommandFormulaAdd,
       {project},
       ChangeOptions(ValueOptions()),
       {"ovformula formula add Plant.ovs --name FillTank --class PumpServer.CPump",
        "ovformula formula add Plant.ovs --name \"FillTank{1..20}\"",
        "ovformula formula add Plant.ovs --type asynchronous --scan-time 500"},
       RunAdd},
      {"formula edit",
       kTextCommandFormulaEdit,
       {project, formula},
       EditOptions(),
       {"ovformula formula edit Plant.ovs FillTank --name EmptyTank",
        "ovformula formula edit Plant.ovs FillTank --class CTank --with-code --dry-run"},
       RunEdit},
      {"formula delete",
       kTextCommandFormulaDelete,
       {project, {"FORMULA", kTextArgFormulas, true, true}},
       ChangeOptions({}),
       {"ovformula formula delete Plant.ovs FillTank",
        "ovformula formula delete Plant.ovs - < names.txt"},
       RunDelete},
      {"formula code",
       kTextCommandFormulaCode,
       {project, formula},
       CodeOptions({}),
       {"ovformula formula code Plant.ovs FillTank"},
       RunCode},
      {"formula uses",
       kTextCommandFormulaUses,
       {project, formula},
       CodeOptions({{"--code", "", kTextOptCode}, kJsonOption}),
       {"ovformula formula uses Plant.ovs FillTank --code"},
       RunUses},
      FormulaCopyCommand(),
  };
}

}  // namespace cli
