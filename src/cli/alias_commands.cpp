// SPDX-License-Identifier: MIT
// ovformula alias ...
#include <unordered_set>

#include "cli/commands.h"
#include "cli/opened_project.h"
#include "cli/place_list.h"
#include "exchange/series_columns.h"
#include "platform/text.h"
#include "store/alias_proposals.h"
#include "store/project_rows.h"

namespace cli {

namespace {

using Use = OpenedProject::Use;

int RunList(Invocation& invocation) {
  OpenedProject session(invocation, Use::kRows);
  RowWriter writer(invocation.console().out, invocation.ListFormat(), {"ID", "ItemID", "VBAlias"});
  session.operations().ForEachAlias([&](const store::AliasRecord& alias) {
    writer.Write({std::int64_t{alias.id}, alias.item_id, alias.vb_alias});
  });
  writer.Finish();
  return session.TellMissingRows({store::kAliasTable});
}

// Aliases that are to be added, as they were given; without an alias one is to be proposed.
struct AliasList {
  std::vector<store::AliasValues> values;
  std::vector<Given> given;  // goes with the values
};

exchange::Contents GivenContents(Invocation& invocation) {
  const std::string item = invocation.Argument("ITEM");
  if (item == "-") return exchange::ReadAliases(invocation.InputText());
  exchange::Contents contents;
  const auto keep = [&](std::string text) { return contents.Keep(std::move(text)); };
  if (!exchange::AppendAliases(keep(item), keep(invocation.Argument("ALIAS")), {}, contents)) {
    throw CommandError(kRefused, invocation.Text(exchange::kTextSeriesLengths));
  }
  return contents;
}

AliasList GivenAliases(Invocation& invocation) {
  const exchange::Contents contents = GivenContents(invocation);
  for (const exchange::Problem& problem : contents.problems) {
    throw CommandError(
        kRefused, invocation.texts().Sentence(exchange::AtPlace(problem.place, problem.reason)));
  }
  AliasList list;
  for (const exchange::AliasRow& row : contents.aliases) {
    list.values.push_back({std::string(row.item), std::string(row.alias)});
    list.given.push_back({std::string(row.item), row.place.line});
  }
  return list;
}

// Proposes the aliases that are missing, each free of those before it.
void Propose(OpenedProject& session, std::vector<store::AliasValues>& values) {
  store::AliasProposals proposals(session.operations());
  for (store::AliasValues& alias : values) {
    if (session.Interrupted()) throw InterruptedError();
    if (alias.vb_alias.empty()) {
      alias.vb_alias = proposals.Propose(alias.item_id);
    } else {
      proposals.Take(alias.vb_alias);
    }
  }
}

int RunAdd(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  auto [values, given] = GivenAliases(invocation);
  if (!invocation.Has("ALIAS")) Propose(session, values);
  const auto result = session.operations().AddAliases(values, session.MakeOptions());
  std::unordered_set<std::string> before;
  session.ReportList(result, given, [&, &values = values](std::size_t i) {
    return !before.insert(platform::FoldCase(values[i].vb_alias)).second ||
           !session.operations().CheckAlias(values[i]).success();
  });
  if (session.dry_run()) return kDone;
  for (std::size_t i = 0; i < result.ids.size(); ++i) {
    invocation.console().out << result.ids[i] << '\t' << PlainText(values[i].vb_alias) << '\n';
  }
  return kDone;
}

int RunEdit(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  const auto alias = session.Alias(invocation.Argument("ALIAS"));
  store::AliasValues values = alias;
  if (const auto item = invocation.Option("--item")) values.item_id = *item;
  if (const auto name = invocation.Option("--alias")) values.vb_alias = *name;
  session.ReportEdit(session.operations().EditAlias(alias.id, values, session.MakeRenameOptions()));
  return kDone;
}

int RunDelete(Invocation& invocation) {
  OpenedProject session(invocation, Use::kChange);
  const auto names = invocation.Arguments("ALIAS");
  const auto ids = session.AliasIds(names);
  session.ReportList(
      session.operations().DeleteAliases(ids, session.MakeOptions()), names, [&](std::size_t i) {
        return !session.operations().UsesOfAlias(session.Alias(names[i].text).id).empty();
      });
  return kDone;
}

int RunCodeUses(Invocation& invocation) {
  OpenedProject session(invocation, Use::kCode);
  const auto alias = session.Alias(invocation.Argument("ALIAS"));
  WritePlaces(invocation, session.operations().CodeUsesOfAlias(alias.id));
  return kDone;
}

int RunUses(Invocation& invocation) {
  if (invocation.Has("--code")) return RunCodeUses(invocation);
  OpenedProject session(invocation, Use::kRows);
  const auto alias = session.Alias(invocation.Argument("ALIAS"));
  RowWriter writer(invocation.console().out, invocation.ListFormat(), {"ID", "Name", "ProgID"});
  for (const store::FormulaRecord& formula : session.operations().UsesOfAlias(alias.id)) {
    writer.Write({std::int64_t{formula.id}, formula.name, formula.prog_id});
  }
  writer.Finish();
  return kDone;
}

}  // namespace

std::vector<CommandSpec> AliasCommands() {
  const ArgumentSpec project{"PROJECT.ovs", kTextArgProject};
  const ArgumentSpec alias{"ALIAS", kTextArgAlias};
  return {
      {"alias list",
       kTextCommandAliasList,
       {project},
       {kJsonOption},
       {"ovformula alias list Plant.ovs"},
       RunList},
      {"alias add",
       kTextCommandAliasAdd,
       {project, {"ITEM", kTextArgItem}, {"ALIAS", kTextArgNewAlias, false}},
       ChangeOptions({}),
       {"ovformula alias add Plant.ovs Tank1.Level Level",
        "ovformula alias add Plant.ovs \"Tank{1..20}.Level\" \"Level{1..20}\"",
        "ovformula alias add Plant.ovs - < items.txt"},
       RunAdd},
      {"alias edit",
       kTextCommandAliasEdit,
       {project, alias},
       RenameOptions({{"--item", "ITEM", kTextOptItem}, {"--alias", "NEW", kTextOptAlias}}),
       {"ovformula alias edit Plant.ovs Level --alias TankLevel",
        "ovformula alias edit Plant.ovs Level --alias TankLevel --with-uses --dry-run"},
       RunEdit},
      {"alias delete",
       kTextCommandAliasDelete,
       {project, {"ALIAS", kTextArgAliases, true, true}},
       ChangeOptions({}),
       {"ovformula alias delete Plant.ovs Level"},
       RunDelete},
      {"alias uses",
       kTextCommandAliasUses,
       {project, alias},
       CodeOptions({{"--code", "", kTextOptCode}, kJsonOption}),
       {"ovformula alias uses Plant.ovs Level", "ovformula alias uses Plant.ovs Level --code"},
       RunUses},
  };
}

}  // namespace cli
