// SPDX-License-Identifier: MIT
// ovformula graph.
#include "cli/commands.h"
#include "cli/opened_project.h"
#include "cli/place_list.h"
#include "platform/prog_id.h"
#include "platform/text.h"
#include "project/data_flow.h"
#include "project/data_flow_picture.h"

namespace cli {

namespace {

using project::DataFlow;
using Use = OpenedProject::Use;

// More than Graphviz lays out in reasonable time.
constexpr std::size_t kMostEdges = 3000;
constexpr std::int32_t kUsualDepth = 2;

enum class Format { kList, kDot, kSvg, kHtml };

Format FormatOption(Invocation& invocation) {
  const auto format = invocation.Option("--format");
  if (!format) return Format::kList;
  if (*format == "dot") return Format::kDot;
  if (*format == "svg") return Format::kSvg;
  if (*format == "html") return Format::kHtml;
  throw UsageError(invocation.Text(
      kTextBadChoice,
      {{"<Option>", "--format"}, {"<Word>", *format}, {"<Choices>", "dot, svg, html"}}));
}

// What was chosen; everything unless something was.
std::optional<project::FlowNodes> ChosenNodes(Invocation& invocation, OpenedProject& session) {
  project::FlowNodes nodes;
  if (const auto name = invocation.Option("--formula")) {
    nodes.formulas.push_back(session.Formula(*name).id);
  } else if (const auto alias = invocation.Option("--alias")) {
    nodes.items.push_back(session.Alias(*alias).item_id);
  } else if (const auto prog_id = invocation.Option("--class")) {
    session.operations().ForEachFormula([&](const store::FormulaRecord& formula) {
      if (platform::ProgId(formula.prog_id).IsNamed(*prog_id)) nodes.formulas.push_back(formula.id);
    });
  } else {
    return std::nullopt;
  }
  return nodes;
}

DataFlow Read(Invocation& invocation, OpenedProject& session, std::int32_t depth) {
  const auto nodes = ChosenNodes(invocation, session);
  Progress progress(invocation);
  const auto show = [&](std::size_t done, std::size_t total) {
    progress.Show(done, total);
    if (invocation.Interrupted()) throw InterruptedError();
  };
  platform::VBE* vbe = session.project().vb().get();
  DataFlow flow = nodes ? project::ReadNeighbourhood(session.operations(), vbe, *nodes, depth, show)
                        : WithoutUnused(project::ReadDataFlow(session.operations(), vbe, show));
  progress.End();
  return flow;
}

void WriteList(Invocation& invocation, const DataFlow& flow) {
  RowWriter writer(invocation.console().out, invocation.ListFormat(),
                   {"ID", "Name", "ProgID", "Type", "ScanTime", "Enabled", "VBAlias", "ItemID",
                    "Access", "Source", "Writers"});
  for (const DataFlow::Edge& edge : flow.edges) {
    const store::FormulaRecord& formula = flow.formulas[edge.formula].record;
    const DataFlow::Item& item = flow.items[edge.item];
    writer.Write({std::int64_t{formula.id}, formula.name, formula.prog_id,
                  std::int64_t{formula.type}, std::int64_t{formula.scan_time}, formula.enabled,
                  edge.alias, item.item_id,
                  std::string(edge.reads && edge.writes ? "both"
                              : edge.writes             ? "write"
                                                        : "read"),
                  std::string(edge.from_code ? "code" : "argument"),
                  static_cast<std::int64_t>(item.writers)});
  }
  writer.Finish();
}

std::string Picture(Invocation& invocation, const DataFlow& flow) {
  if (flow.edges.size() > kMostEdges) {
    throw CommandError(kRefused, invocation.Text(kTextGraphTooLarge,
                                                 {{"<Count>", std::to_string(flow.edges.size())}}));
  }
  try {
    std::string svg = project::LayOut(project::DescribeForGraphviz(flow, invocation.texts()),
                                      [&] { return !invocation.Interrupted(); });
    if (invocation.Interrupted()) throw InterruptedError();
    return svg;
  } catch (const platform::Error& error) {
    throw CommandError(kRefused, invocation.texts().Sentence(error));
  }
}

int RunGraph(Invocation& invocation) {
  invocation.Exclude("--formula", "--alias");
  invocation.Exclude("--formula", "--class");
  invocation.Exclude("--alias", "--class");
  invocation.Exclude("--json", "--format");
  const Format format = FormatOption(invocation);
  const std::int32_t depth = invocation.NumberOption("--depth").value_or(kUsualDepth);
  OpenedProject session(invocation, Use::kCode);
  const DataFlow flow = Read(invocation, session, depth);
  WarnOfUnread(invocation, flow.unread);
  std::ostream& out = invocation.console().out;
  switch (format) {
    case Format::kList:
      WriteList(invocation, flow);
      break;
    case Format::kDot:
      out << project::DescribeForGraphviz(flow, invocation.texts());
      break;
    case Format::kSvg:
      out << Picture(invocation, flow);
      break;
    case Format::kHtml:
      out << project::DataFlowPage(flow, Picture(invocation, flow), session.project().name(),
                                   invocation.texts());
      break;
  }
  return session.TellMissingRows();
}

}  // namespace

CommandSpec GraphCommand() {
  return {"graph",
          kTextCommandGraph,
          {{"PROJECT.ovs", kTextArgProject}},
          CodeOptions({{"--formula", "FORMULA", kTextOptGraphFormula},
                       {"--alias", "ALIAS", kTextOptGraphAlias},
                       {"--class", "CLASS", kTextOptGraphClass},
                       {"--depth", "N", kTextOptDepth},
                       {"--format", "FORMAT", kTextOptGraphFormat},
                       kJsonOption}),
          {"ovformula graph Plant.ovs --formula FillTank --format svg > FillTank.svg",
           "ovformula graph Plant.ovs --alias Level --depth 1 --json"},
          RunGraph};
}

}  // namespace cli
