// SPDX-License-Identifier: MIT
// ovformula argument ...
#include <unordered_set>

#include "cli/commands.h"
#include "cli/opened_project.h"
#include "exchange/series.h"
#include "platform/text.h"

namespace cli {

namespace {

using Use = OpenedProject::Use;

int RunList(Invocation& invocation) {
  OpenedProject session(invocation, Use::kRows);
  const auto formula = session.Formula(invocation.Argument("FORMULA"));
  RowWriter writer(invocation.console().out, invocation.ListFormat(),
                   {"ID", "ParentID", "AliasID", "VBAlias", "ItemID", "In", "Out"});
  for (const store::ArgumentRecord& argument : session.operations().ArgumentsOf(formula.id)) {
    writer.Write({std::int64_t{argument.id}, std::int64_t{argument.parent_id},
                  std::int64_t{argument.alias_id}, argument.vb_alias, argument.item_id, argument.in,
                  argument.out});
  }
  writer.Finish();
  return kDone;
}

// The names with every series in them written out.
std::vector<Given> Expanded(const std::vector<Given>& names) {
  std::vector<Given> all;
  for (const Given& name : names) {
    for (std::string& text : exchange::Expand(name.text)) {
      all.push_back({std::move(text), name.line});
    }
  }
  return all;
}

int RunAdd(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  const auto formula = session.Formula(invocation.Argument("FORMULA"));
  const std::vector<Given> names = Expanded(invocation.Arguments("ALIAS"));
  std::vector<store::ArgumentValues> values;
  for (const std::int32_t id : session.AliasIds(names)) {
    values.push_back({id, invocation.Has("--in"), invocation.Has("--out")});
  }
  const auto result = session.operations().AddArguments(formula.id, values, session.MakeOptions());
  std::unordered_set<std::string> passed;
  if (!result.success()) {
    for (const auto& argument : session.operations().ArgumentsOf(formula.id))
      passed.insert(platform::FoldCase(argument.vb_alias));
  }
  session.ReportList(result, names, [&](std::size_t i) {
    return passed.contains(platform::FoldCase(names[i].text));
  });
  if (session.dry_run()) return kDone;
  for (std::size_t i = 0; i < result.ids.size(); ++i) {
    const auto alias = session.operations().FindAlias(values[i].alias_id);
    invocation.console().out << result.ids[i] << '\t'
                             << PlainText(alias ? alias->vb_alias : names[i].text) << '\n';
  }
  return kDone;
}

int RunEdit(Invocation& invocation) {
  const auto in = invocation.Switch("--in", "--no-in"),
             out = invocation.Switch("--out", "--no-out");
  OpenedProject session(invocation, Use::kChange);
  const auto formula = session.Formula(invocation.Argument("FORMULA"));
  const auto argument = session.Argument(formula, invocation.Argument("ALIAS"));
  store::ArgumentValues values = argument;
  if (const auto alias = invocation.Option("--alias")) values.alias_id = session.Alias(*alias).id;
  values.in = in.value_or(values.in);
  values.out = out.value_or(values.out);
  session.ReportEdit(
      session.operations().EditArgument(argument.id, values, session.MakeRenameOptions()));
  return kDone;
}

int RunDelete(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  const auto formula = session.Formula(invocation.Argument("FORMULA"));
  const auto ids = session.ArgumentIds(formula, invocation.Arguments("ALIAS"));
  session.Report(session.operations().DeleteArguments(ids, session.MakeOptions()));
  return kDone;
}

}  // namespace

std::vector<CommandSpec> ArgumentCommands() {
  const ArgumentSpec project{"PROJECT.ovs", kTextArgProject};
  const ArgumentSpec formula{"FORMULA", kTextArgFormula};
  const ArgumentSpec alias{"ALIAS", kTextArgAlias};
  const ArgumentSpec aliases{"ALIAS", kTextArgAliases, true, true};
  const OptionSpec in{"--in", "", kTextOptIn}, out{"--out", "", kTextOptOut};
  return {
      {"argument list",
       kTextCommandArgumentList,
       {project, formula},
       {kJsonOption},
       {"ovformula argument list Plant.ovs FillTank"},
       RunList},
      {"argument add",
       kTextCommandArgumentAdd,
       {project, formula, aliases},
       ChangeOptions({in, out}),
       {"ovformula argument add Plant.ovs FillTank Level --in",
        "ovformula argument add Plant.ovs FillTank \"Level{1..20}\" --in",
        "ovformula argument add Plant.ovs FillTank - --in < aliases.txt"},
       RunAdd},
      {"argument edit",
       kTextCommandArgumentEdit,
       {project, formula, alias},
       RenameOptions({{"--alias", "NEW", kTextOptAlias},
                      in,
                      {"--no-in", "", kTextOptNoIn},
                      out,
                      {"--no-out", "", kTextOptNoOut}}),
       {"ovformula argument edit Plant.ovs FillTank Level --alias Level2 --no-out"},
       RunEdit},
      {"argument delete",
       kTextCommandArgumentDelete,
       {project, formula, aliases},
       ChangeOptions({}),
       {"ovformula argument delete Plant.ovs FillTank Level"},
       RunDelete},
  };
}

}  // namespace cli
