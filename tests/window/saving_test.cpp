// SPDX-License-Identifier: MIT
// What the window saves where the user says: never in place of a file of the project, and of
// another one only when he was asked. The file dialog sees other files than the program.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "project/project.h"
#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;

class SavingTest : public ::testing::Test {
 protected:
  SavingTest() {
    plant.system.CreateDirectories("/tmp");
    plant.system.Put("/plant/items.csv", "item,type\nTank1.Level,Double\n");
    const texts::TextTable texts(texts::Language::kEnglish);
    project::Project project(plant.system, support::kPlantDatabase, {}, texts);
    const store::AliasValues values[] = {{"Tank1.Level", "Level"}};
    EXPECT_TRUE(project.operations().AddAliases(values).success());
  }

  // Exports everything there; Return to what the program says or asks.
  static void Export(const std::string& path) {
    Input({"key alt+p sleep 0.3 key e sleep 1.2", "type --delay 20 " + path, "key Return sleep 1.2",
           "key Return sleep 0.8"});
  }

  support::SamplePlant plant;
};

TEST_F(SavingTest, ExportsNothingInPlaceOfHistoryAndItems) {
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  for (const std::string own : {"/plant/Plant.history", "/plant/items.csv"}) {
    SCOPED_TRACE(own);
    const std::string before = plant.system.Get(own);
    plant.system.MakeLink(own, "/tmp/ov-saving-test.csv");
    Export("/tmp/ov-saving-test.csv");
    EXPECT_EQ(plant.system.Get(own), before);
    plant.system.Remove("/tmp/ov-saving-test.csv");
  }
}

TEST_F(SavingTest, AsksAboutTheFileThatANameWithoutExtensionMeans) {
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  plant.system.Put("/tmp/ov-saving-test.json", "mine");
  Export("/tmp/ov-saving-test");
  EXPECT_EQ(plant.system.Get("/tmp/ov-saving-test.json"), "mine");
  plant.system.Remove("/tmp/ov-saving-test.json");
  Export("/tmp/ov-saving-test");
  EXPECT_NE(plant.system.Get("/tmp/ov-saving-test.json").find("Tank1.Level"), std::string::npos);
}

}  // namespace
