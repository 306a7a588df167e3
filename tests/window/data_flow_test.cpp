// SPDX-License-Identifier: MIT
// The data flow in the window: picture and list, by mouse and by keys.
#include <gtest/gtest.h>
#include <wx/choice.h>

#include "desktop/flow_canvas.h"
#include "desktop/flow_pane.h"
#include "project/project.h"
#include "tests/window/desktop_program.h"
#include "tests/window/rows_of.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using window_tests::Wait;

// Fill and Drain write Level; Fill reads Flow, Watch writes it and reads Far.
struct FlowPlant : support::SamplePlant {
  FlowPlant() {
    const texts::TextTable texts(texts::Language::kEnglish);
    project::Project project(system, support::kPlantDatabase, {}, texts);
    store::Operations& operations = project.operations();
    EXPECT_TRUE(operations
                    .AddAliases(std::vector<store::AliasValues>{
                        {"Tank1.Level", "Level"}, {"Tank1.Flow", "Flow"}, {"Far", "Far"}})
                    .success());
    const auto add = [&](const char* name, const char* prog_id, std::int32_t type,
                         std::vector<store::ArgumentValues> arguments) {
      const auto formula = operations.AddFormula({name, prog_id, type, 500, true, ""});
      EXPECT_TRUE(formula.success());
      EXPECT_TRUE(operations.AddArguments(formula.id(), arguments).success());
    };
    add("Fill", "PumpServer.CPump", store::kBeforeCycle, {{1, true, true}, {2, true, false}});
    add("Drain", "PumpServer.CTank", store::kAsynchronous, {{1, false, true}});
    add("Watch", "PumpServer.CTank", store::kAfterCycle, {{2, false, true}, {3, true, false}});
  }
};

class DataFlowWindowTest : public ::testing::Test {
 protected:
  DataFlowWindowTest() {
    EXPECT_TRUE(program.Open());
    Input({"key --delay 60 Home Down Down Down"});  // Fill
    program.Choose("Data Flow...");
    Wait::For([&] { return pane().IsShown() && !Rows().empty(); });
  }
  desktop::FlowPane& pane() const { return *FindChild<desktop::FlowPane>(program.window()); }
  std::vector<std::string> Rows() const {
    return window_tests::RowsOf(*FindChild<desktop::PlaceTable>(pane()));
  }
  std::string Selected() const {
    const auto* tree = FindChild<desktop::ProjectTree>(program.window());
    return tree->Tree()->Find(tree->SelectedKey())->text;
  }
  // Moves the mouse to the place of a node, or some pixels beside it.
  std::string To(const project::PictureNode& node, const wxPoint& beside = {}) {
    const wxPoint at = pane().canvas().ClientToScreen(pane().canvas().PlaceOf(node) + beside);
    return "mousemove " + std::to_string(at.x) + " " + std::to_string(at.y) + " sleep 0.2 ";
  }

  FlowPlant plant;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
};

TEST_F(DataFlowWindowTest, ShowsWhatIsAroundTheSelectionAndGoesThere) {
  const std::vector<std::string> two_steps = {
      "Tank1.Level|Level|reads and writes (by its argument)|PumpServer.CPump.Fill|before Cycle|"
      "2 formulas write",
      "Tank1.Flow|Flow|reads (by its argument)|PumpServer.CPump.Fill|before Cycle|",
      "Tank1.Level|Level|writes (by its argument)|PumpServer.CTank.Drain|"
      "asynchronous, every 500 ms|2 formulas write",
      "Tank1.Flow|Flow|writes (by its argument)|PumpServer.CTank.Watch|after Cycle|"};
  EXPECT_EQ(Rows(), two_steps);
  EXPECT_EQ(Selected(), "Fill");

  // By keys: the list's other end, and the depth.
  Input({"key --delay 60 Down Down Return sleep 1"});
  EXPECT_EQ(Selected(), "Drain");
  Wait::For([&] { return Rows().size() == 2; });
  EXPECT_EQ(Rows().front(), two_steps.front());
  auto& depth = *FindChild<wxChoice>(pane());
  depth.SetFocus();
  Input({"key --delay 100 Down sleep 0.5"});
  EXPECT_EQ(depth.GetStringSelection(), "3");
  EXPECT_EQ(Rows(), std::vector<std::string>({two_steps[0], two_steps[1], two_steps[2]}));
}

TEST_F(DataFlowWindowTest, ThePictureIsMovedZoomedAndClicked) {
  desktop::FlowCanvas& canvas = pane().canvas();
  if (!canvas.HasPicture()) GTEST_SKIP() << "no Graphviz here";
  const project::PictureNode drain = {true, 1};
  const wxPoint before = canvas.PlaceOf(drain);
  const project::PictureNode level = {false, 0};
  Input({To(level) + "mousedown 1 sleep 0.2 " + To(level, {20, 10}) + To(level, {40, 25}) +
         "mouseup 1 sleep 0.2"});
  EXPECT_EQ(canvas.PlaceOf(drain), before + wxPoint(40, 25));
  EXPECT_EQ(Selected(), "Fill") << "dragging is no click";
  const double zoom = canvas.Zoom();
  Input({To(drain) + "click 4 sleep 0.2"});
  EXPECT_GT(canvas.Zoom(), zoom);
  const wxPoint zoomed = canvas.PlaceOf(drain) - before;
  EXPECT_NEAR(zoomed.x, 40, 1) << "what is under the mouse stays";
  Input({"key minus key Left key 0 sleep 0.2"});
  EXPECT_EQ(canvas.PlaceOf(drain), before);

  Input({To(drain) + "click 1 sleep 0.6"});
  EXPECT_EQ(Selected(), "Drain");
  EXPECT_EQ(Rows().size(), 2u) << "the picture went along";
  Input({To(level) + "click 1 sleep 0.6"});
  EXPECT_EQ(Selected(), "Alias Identifier");
  EXPECT_EQ(Rows().size(), 3u) << "who uses Level, and what is two steps away";
}

// The file dialog sees other files than the program, which finds a link to a class there.
TEST_F(DataFlowWindowTest, SavesNoPictureInPlaceOfAClass) {
  const std::string before = plant.system.Get(support::ClassPath("CPump"));
  plant.system.CreateDirectories("/tmp");
  plant.system.MakeLink(support::ClassPath("CPump"), "/tmp/ov-flow-test.svg");
  const auto save_as = [&](const std::string& path) {
    program.window().CallAfter([this] { pane().on_save(); });
    Input({"sleep 1.2", "type --delay 20 " + path, "key Return sleep 1.2", "key Return sleep 0.8"});
  };
  save_as("/tmp/ov-flow-test.svg");
  EXPECT_TRUE(plant.system.Get(support::ClassPath("CPump")) == before);
  save_as("/tmp/ov-flow-other");
  EXPECT_NE(plant.system.Get("/tmp/ov-flow-other.svg").find("<svg"), std::string::npos);
}

}  // namespace
