// SPDX-License-Identifier: MIT
// The options of the program, which are there without a project, too.
#include <gtest/gtest.h>

#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;

TEST(WorkbenchOptions, AreKeptForTheNextStart) {
  support::SamplePlant plant;
  {
    DesktopProgram program{plant.system, texts::Language::kEnglish};
    program.Choose("Program Options...");
    Input({"sleep 0.8", "key alt+l Down sleep 0.2", "key Up sleep 0.2", "key alt+h", "key alt+b",
           "key Return sleep 0.5"});
    EXPECT_EQ(program.Status(), "Saved. The next start shows the change.");
    program.Choose("Program Options...");
    Input({"sleep 0.8", "key alt+h", "key Escape sleep 0.5"});
  }
  const std::string kept = plant.system.Get("/home/config/registry.ini");
  EXPECT_NE(kept.find("History=0"), std::string::npos) << kept;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  EXPECT_FALSE(program.state().with_backups);
}

}  // namespace
