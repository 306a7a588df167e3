// SPDX-License-Identifier: MIT
// Another program changes the project while its window is open.
#include <gtest/gtest.h>
#include <wx/infobar.h>

#include "tests/window/desktop_program.h"
#include "workbench/project.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using window_tests::Wait;

wxInfoBar* Notice(const DesktopProgram& program) {
  for (wxWindow* child : program.window().GetChildren()) {
    if (auto* bar = dynamic_cast<wxInfoBar*>(child)) return bar;
  }
  return nullptr;
}

void AddElsewhere(files::FileSystem& system, const std::string& name) {
  const texts::TextTable texts(texts::Language::kEnglish);
  workbench::Project project(system, support::kPlantDatabase, {}, texts);
  const auto result = project.operations().AddFormula({name, "PumpServer.CPump", 0, 0, true, ""});
  ASSERT_TRUE(result.success()) << result.message << result.detail;
}

TEST(ForeignChange, IsNoticedAndTakenOverWhenTheUserWantsIt) {
  support::SamplePlant plant;
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  Input({"key --delay 80 Home Down Down", "key F8 sleep 0.8", "type --delay 40 Own",
         "key --delay 80 Tab Down Return"});
  EXPECT_EQ(program.state().project, support::kPlantDatabase);
  EXPECT_FALSE(Notice(program)->IsShown()) << "an own change is none";

  AddElsewhere(plant.system, "Foreign");
  Wait::For([&] { return Notice(program)->IsShown(); });
  const std::vector<std::string> before = program.FormulaNodes();
  EXPECT_EQ(before, std::vector<std::string>{"Own"}) << "the view is the user's until they choose";
  wxCommandEvent refresh(wxEVT_BUTTON, wxID_REFRESH);
  Notice(program)->GetEventHandler()->ProcessEvent(refresh);
  Wait::For([&] { return program.FormulaNodes().size() == 2; });
  EXPECT_EQ(program.FormulaNodes(), (std::vector<std::string>{"Own", "Foreign"}));
  EXPECT_FALSE(Notice(program)->IsShown());
}

}  // namespace
