// SPDX-License-Identifier: MIT
#include "project/data_flow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "project/data_flow_layout.h"
#include "project/data_flow_picture.h"
#include "project/data_flow_table.h"
#include "project/filter_program.h"
#include "tests/support/formula_project.h"

namespace project {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kClass = "PumpServer.CPump";

// "Formula access alias (source)" of each edge, and the items with their writers.
std::string ListFlow(const DataFlow& flow) {
  std::string list;
  for (const DataFlow::Edge& edge : flow.edges) {
    list += flow.formulas[edge.formula].record.name + (edge.reads ? " r" : " ") +
            (edge.writes ? "w " : " ") + edge.alias + (edge.from_code ? "" : " by argument") +
            (edge.is_argument ? "" : " no argument") + '\n';
  }
  for (const DataFlow::Item& item : flow.items) {
    list += item.item_id + ": " + std::to_string(item.writers) + '\n';
  }
  return list;
}

// Fill (before the cycle) calls a procedure that writes Level; Watch (asynchronous, disabled) reads
// it; Report's code cannot tell; Blank has no procedure, Fresh an empty one. Level and Height are
// the same item.
class DataFlowTest : public testing::Test {
 protected:
  DataFlowTest() {
    const std::int32_t level = project_.AddAlias("Tank1.Level", "Level");
    const std::int32_t flow = project_.AddAlias("Tank1.Flow", "Flow");
    const std::int32_t height = project_.AddAlias("Tank1.Level", "Height");
    project_.AddAlias("Unused", "Unused");
    Add({"Fill", kClass, 2}, {{level, true, true}, {flow, true, false}});
    Add({"Watch", kClass, 7, 500, false}, {{level, true, false}});
    Add({"Report", kClass, 3}, {{flow, true, true}, {height, false, true}});
    Add({"Blank", kClass, 0}, {{flow, false, true}});
    Add({"Fresh", kClass, 0}, {{flow, true, false}});
    std::string code = project_.Code("CPump");
    Put(code, "Fresh", "  'to be written _\r\n  soon\r\n");
    Put(code, "Fill", "  Raise Flow\r\n");
    Put(code, "Watch", "  If Level > 3 Then Beep: Height = 1: Unused = 1\r\n");
    Put(code, "Report", "  CallByName Me, \"Flow\": Height = 3\r\n");
    code += "Private Sub Raise(ByVal by As Double)\r\n  Level = Level + by\r\nEnd Sub\r\n";
    project_.PutCode("CPump", code.replace(code.find("Public Sub Blank"), 16, "Private Sub No"));
  }

  void Add(const store::FormulaValues& values, std::vector<store::ArgumentValues> arguments) {
    const auto formula = project_.operations().AddFormula(values);
    ASSERT_TRUE(formula.success()) << support::ToText(formula);
    const auto added = project_.operations().AddArguments(formula.id(), arguments);
    ASSERT_TRUE(added.success()) << support::ToText(added);
  }
  static void Put(std::string& code, const std::string& name, const std::string& body) {
    const std::string head = "Public Sub " + name + "()\r\n";
    code.insert(code.find(head) + head.size(), body);
  }
  std::int32_t Id(const std::string& formula) {
    return project_.operations().FindFormulasByName(formula).front().id;
  }
  DataFlow Read() { return ReadDataFlow(project_.operations(), project_.open->environment.get()); }

  support::FormulaProject project_{{{"CApart", ""}, {"CPump", ""}, {"CTank", ""}}};
};

TEST_F(DataFlowTest, ComesFromTheCodeAndWhereThatCannotTellFromTheArguments) {
  const std::string kEdges =
      "Fill rw Level\n"
      "Fill r Flow\n"
      "Watch w Height no argument\n"
      "Watch r Level\n"
      "Report w Height by argument\n"
      "Report rw Flow by argument\n"
      "Blank w Flow by argument\n"
      "Fresh r Flow by argument\n";
  EXPECT_EQ(ListFlow(Read()), kEdges + "Tank1.Level: 2\nTank1.Flow: 2\nUnused: 0\n");
  // Without code the arguments alone say it.
  EXPECT_EQ(ListFlow(ReadDataFlow(project_.operations(), nullptr)),
            "Fill rw Level by argument\nFill r Flow by argument\nWatch r Level by argument\n"
            "Report w Height by argument\nReport rw Flow by argument\nBlank w Flow by argument\n"
            "Fresh r Flow by argument\n"
            "Tank1.Level: 2\nTank1.Flow: 2\nUnused: 0\n");
}

TEST_F(DataFlowTest, ShowsTheNeighbourhoodOfANode) {
  const DataFlow flow = Read();
  const FlowNodes watch = {{Id("Watch")}, {}};
  EXPECT_EQ(ListFlow(Neighbourhood(flow, watch, 0)), "");
  EXPECT_EQ(ListFlow(Neighbourhood(flow, watch, 1)),
            "Watch w Height no argument\nWatch r Level\nTank1.Level: 2\n");
  EXPECT_EQ(Neighbourhood(flow, watch, 2).formulas.size(), 3u);
  EXPECT_EQ(Neighbourhood(flow, {{}, {"Tank1.Flow"}}, 1).formulas.size(), 4u) << "who uses it";
  EXPECT_EQ(ListFlow(Neighbourhood(flow, watch, 9)), ListFlow(WithoutUnused(flow))) << "cycles end";
}

// Whatever is asked for, reading only the classes concerned must answer the same.
TEST_F(DataFlowTest, TheNeighbourhoodNeedsOnlyTheClassesConcerned) {
  project_.system.Remove(support::ClassPath("CApart"));
  const std::int32_t speed = project_.AddAlias("Pump1.Speed", "Speed");
  const std::int32_t far = project_.AddAlias("Far", "Far");
  const std::int32_t level = project_.operations().FindAliasByName("Level")->id;
  const std::string other = "PumpServer.CTank";
  Add({"Drive", other, 2}, {{speed, false, true}, {level, true, false}});
  Add({"Brake", other, 2}, {{far, true, true}});
  std::string code = project_.Code("CTank");
  Put(code, "Drive", "  Speed = Level * Helped\r\n");
  Put(code, "Brake", "  Far = Far + Speed\r\n");
  project_.PutCode("CTank", code);
  const DataFlow flow = Read();
  EXPECT_THAT(ListFlow(flow), HasSubstr("Brake r Speed no argument\n"));
  EXPECT_EQ(flow.unread.size(), 1u) << "CApart";
  std::vector<FlowNodes> all = {
      {{}, {"Tank1.Level"}}, {{}, {"Far"}}, {{}, {"Unused", "Tank1.Flow"}}};
  for (const DataFlow::Formula& formula : flow.formulas) all.push_back({{formula.record.id}, {}});
  for (const FlowNodes& nodes : all) {
    for (const std::int32_t depth : {0, 1, 2, 3}) {
      const DataFlow part =
          ReadNeighbourhood(project_.operations(), project_.open->environment.get(), nodes, depth);
      EXPECT_EQ(ListFlow(part), ListFlow(Neighbourhood(flow, nodes, depth)))
          << (nodes.formulas.empty() ? nodes.items.front() : std::to_string(nodes.formulas[0]))
          << " " << depth;
      EXPECT_TRUE(part.unread.empty());
    }
  }
}

TEST_F(DataFlowTest, IsDescribedWithCallTypesAndSeveralWriters) {
  const std::string dot = DescribeForGraphviz(Read(), project_.open->texts);
  EXPECT_THAT(dot, HasSubstr("f0 [id=\"f0\", label=\"Fill\\nPumpServer.CPump\\nbefore Cycle\""));
  EXPECT_THAT(dot, HasSubstr("asynchronous, every 500 ms\\nnot enabled\""));
  EXPECT_THAT(dot, HasSubstr("label=\"Tank1.Level\\nLevel\\nHeight\\n2 formulas write\""));
  EXPECT_THAT(dot, HasSubstr("  f0 -> i0 [dir=both, "));
  EXPECT_THAT(dot, HasSubstr("  i0 -> f1 [style=solid];"));
  const std::string table = DataFlowTable(Read(), project_.open->texts);
  EXPECT_THAT(table, HasSubstr("<tr><td>Tank1.Level</td><td><strong>2 formulas write:</strong> "
                               "PumpServer.CPump.Fill, PumpServer.CPump.Watch, "
                               "PumpServer.CPump.Report (by its argument)</td>"
                               "<td>PumpServer.CPump.Fill, PumpServer.CPump.Watch</td></tr>"));
}

// Upwards in inches becomes downwards in points; two edges between the same nodes stay apart.
TEST(DataFlowLayoutTest, TakesWhatGraphvizSaysAndNothingElse) {
  DataFlow flow;
  flow.formulas.resize(1);
  flow.items.resize(2);
  flow.edges = {{0, 0, "a", true, false}, {0, 0, "b", false, true}, {0, 1, "c", true, true}};
  const FlowLayout layout = ReadLayout(
      "graph 1 2 1.5\nnode f0 0.5 1 1 0.5 \"a b\" solid box\nnode i1 1.5 0.25 0.5 0.5 x\n"
      "node i9 1 1 1 1\nedge i0 f0 4 1 1 1 1 1 1 0 0.5 solid\n"
      "edge f0 i0 4 0 1.5 0 0 0 0 2 0 solid\nedge f0 i1 99 1 1\nedge f0 x 4 1 1\nnode\nstop",
      flow);
  EXPECT_EQ(layout.width, 144);
  EXPECT_EQ(layout.formulas[0].centre.x, 36);
  EXPECT_EQ(layout.formulas[0].centre.y, 36);
  EXPECT_EQ(layout.items[1].centre.y, 90);
  EXPECT_EQ(layout.items[0].width, 0);
  ASSERT_EQ(layout.edges[0].size(), 4u);
  EXPECT_EQ(layout.edges[0].back().y, 72) << "it is read";
  EXPECT_EQ(layout.edges[1].back().x, 144) << "it is written";
  EXPECT_EQ(layout.edges[2].size(), 1u);
}

TEST(DataFlowPictureTest, NamesCanDoNothingButBeShown) {
  DataFlow flow;
  DataFlow::Formula formula;
  formula.record.name = "\"]; evil [label=\"";
  formula.record.prog_id = "a\\N\\\"\n}\x01\xFF";
  flow.formulas.push_back(formula);
  flow.items.push_back({"</svg><script>&amp;\\", {"\\\""}});
  flow.edges.push_back({0, 0, "x", true, true});
  const texts::TextTable texts(texts::Language::kGerman);
  const std::string dot = DescribeForGraphviz(flow, texts);
  EXPECT_THAT(dot, HasSubstr("label=\"&quot;]; evil [label=&quot;\\na\\\\N\\\\&quot; }\xEF\xBF\xBD"
                             "\xEF\xBF\xBD\\nvor Initialisierung\""));
  EXPECT_THAT(dot, HasSubstr("label=\"&lt;/svg&gt;&lt;script&gt;&amp;amp;\\\\\\n\\\\&quot;\""));
  EXPECT_TRUE(NodeOfElement("f12")->is_formula);
  EXPECT_EQ(NodeOfElement("i7")->index, 7u);
  for (const char* id : {"", "f", "x1", "i1x", "f-1"}) EXPECT_FALSE(NodeOfElement(id)) << id;
  std::string svg;
  try {
    svg = LayOut(dot);
  } catch (const platform::Error& error) {
    GTEST_SKIP() << error.what();
  }
  EXPECT_THAT(svg, HasSubstr("<svg"));
  EXPECT_THAT(svg, HasSubstr("&lt;script&gt;&amp;amp;\\"));
  EXPECT_THAT(svg, Not(HasSubstr("<script")));
  const std::string page = DataFlowPage(flow, svg, "<Plant>", texts);
  EXPECT_THAT(page, HasSubstr("<h1>&lt;Plant&gt;</h1>"));
  EXPECT_THAT(page, Not(HasSubstr("<?xml")));
}

TEST(FilterProgramTest, PassesTextThroughAndEnds) {
  const auto go_on = [] { return true; };
  const std::string large(1 << 20, 'x');
  EXPECT_EQ(RunFilter("no-such-program-here", {}, "", go_on).outcome, FilterOutcome::kMissing);
#ifndef _WIN32
  const FilterResult same = RunFilter("cat", {}, large, go_on);
  EXPECT_EQ(same.outcome, FilterOutcome::kDone);
  EXPECT_EQ(same.output, large);
  EXPECT_EQ(RunFilter("false", {}, large, go_on).outcome, FilterOutcome::kFailed);
  EXPECT_EQ(RunFilter("sleep", {"60"}, "", [] { return false; }).outcome, FilterOutcome::kStopped);
#endif
}

}  // namespace
}  // namespace project
