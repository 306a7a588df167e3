// SPDX-License-Identifier: MIT
// Another program changes the project while its window is open.
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/stattext.h>

#include "desktop/check_pane.h"
#include "desktop/notice_bar.h"
#include "project/project.h"
#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using window_tests::Wait;

desktop::NoticeBar* Notice(const DesktopProgram& program) {
  for (wxWindow* child : program.window().GetChildren()) {
    if (auto* bar = dynamic_cast<desktop::NoticeBar*>(child)) return bar;
  }
  return nullptr;
}

// Clicks the n-th button of the notice.
void ClickNotice(const DesktopProgram& program, int n) {
  for (wxWindow* child : Notice(program)->GetChildren().GetFirst()->GetData()->GetChildren()) {
    if (!dynamic_cast<wxButton*>(child) || n-- > 0) continue;
    const wxRect place = child->GetScreenRect();
    return Input({"mousemove " + std::to_string(place.x + place.width / 2) + " " +
                  std::to_string(place.y + place.height / 2) + " click 1"});
  }
  FAIL() << "no such button";
}

void AddElsewhere(files::FileSystem& system, const std::string& name) {
  const texts::TextTable texts(texts::Language::kEnglish);
  project::Project project(system, support::kPlantDatabase, {}, texts);
  const auto result = project.operations().AddFormula({name, "PumpServer.CPump", 0, 0, true, ""});
  ASSERT_TRUE(result.success()) << texts.Sentence(result.message) << texts.Sentence(result.detail);
}

TEST(ForeignChange, IsNoticedAndTakenOverWhenTheUserWantsIt) {
  support::SamplePlant plant;
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  Input({"key --delay 80 Home Down Down", "key F8 sleep 0.8", "type --delay 40 Own",
         "key --delay 80 Tab Down Return"});
  EXPECT_EQ(program.state().project, support::kPlantDatabase);
  EXPECT_FALSE(Notice(program)->IsShown()) << "an own change is none";

  const wxPoint table = program.Grid().GetScreenPosition();
  const wxPoint code = program.Code().GetScreenPosition();
  AddElsewhere(plant.system, "Foreign");
  Wait::For([&] { return Notice(program)->IsShown(); });
  EXPECT_EQ(program.Grid().GetScreenPosition(), table) << "what may be clicked stays in place";
  EXPECT_EQ(program.Code().GetScreenPosition(), code);
  EXPECT_EQ(program.FormulaNodes(), std::vector<std::string>{"Own"})
      << "the view is the user's until they choose";
  ClickNotice(program, 1);
  EXPECT_FALSE(Notice(program)->IsShown());
  EXPECT_EQ(program.FormulaNodes().size(), 1u) << "put off";

  AddElsewhere(plant.system, "Another");
  Wait::For([&] { return Notice(program)->IsShown(); });
  ClickNotice(program, 0);
  Wait::For([&] { return program.FormulaNodes().size() == 3; });
  EXPECT_EQ(program.FormulaNodes(), (std::vector<std::string>{"Own", "Foreign", "Another"}));
  EXPECT_FALSE(Notice(program)->IsShown());
}

void Exchange(support::SamplePlant& plant, const std::string& from, const std::string& to) {
  std::string text = plant.system.Get(support::ClassPath("CPump"));
  const std::size_t at = text.find(from);
  ASSERT_NE(at, std::string::npos) << text;
  plant.system.Put(support::ClassPath("CPump"), text.replace(at, from.size(), to));
}

// What other programs changed while no window was open is looked at by the next one.
// A share that is gone for a moment, or a class that is put back as it was.
TEST(ForeignChange, WhatIsBackAsItWasIsTalkedOfNoMore) {
  support::SamplePlant plant;
  AddElsewhere(plant.system, "Fill");
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  const std::string file = support::ClassPath("CPump");
  plant.system.Rename(file, file + ".gone");
  Wait::For([&] { return Notice(program)->IsShown(); });
  plant.system.Rename(file + ".gone", file);
  Wait::For([&] { return !Notice(program)->IsShown(); });
  EXPECT_FALSE(Notice(program)->IsShown());
}

TEST(ForeignChange, OffersTheCheckWhereSomethingIsOutOfStep) {
  constexpr auto kKind = desktop::NoticeBar::Kind::kOutOfStep;
  support::SamplePlant plant;
  AddElsewhere(plant.system, "Fill");
  {
    DesktopProgram program(plant.system, texts::Language::kEnglish);
    ASSERT_TRUE(program.Open());
    Input({"key --delay 80 Home Down Down", "key F8 sleep 0.8", "type --delay 40 Own",
           "key --delay 80 Tab Down Return"});
    Input({"sleep 2.5"});
    EXPECT_FALSE(Notice(program)->Tells(kKind)) << "seen for the first time, then an own change";
  }
  Exchange(plant, "Public Sub Own()\r\n", "Public Sub Own()\r\n  ' mine\r\n");
  {
    DesktopProgram program(plant.system, texts::Language::kEnglish);
    ASSERT_TRUE(program.Open());
    Input({"sleep 2.5"});
    EXPECT_FALSE(Notice(program)->Tells(kKind)) << "what engineers do";
  }
  Exchange(plant, "'Arguments:\r\n", "'Arguments:\r\n'\tLevel\r\n");
  {
    DesktopProgram program(plant.system, texts::Language::kEnglish);
    ASSERT_TRUE(program.Open());
    Wait::For([&] { return Notice(program)->Tells(kKind); });
    const std::string told =
        window_tests::FindChild<wxStaticText>(*Notice(program))->GetLabelText().utf8_string();
    EXPECT_NE(told.find("CPump.cls"), std::string::npos) << told;
    EXPECT_NE(told.find("errors: 0, warnings: 1"), std::string::npos) << told;
    ClickNotice(program, 1);
    EXPECT_FALSE(Notice(program)->IsShown());
  }
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  Wait::For([&] { return Notice(program)->Tells(kKind); });  // it was put off
  ClickNotice(program, 0);
  auto& pane = *window_tests::FindChild<desktop::CheckPane>(program.window());
  Wait::For([&] { return pane.IsShown(); });
  EXPECT_FALSE(Notice(program)->Tells(kKind));
  // While the window is open.
  Exchange(plant, "'\tLevel\r\n", "");
  Input({"sleep 2.5"});
  EXPECT_FALSE(Notice(program)->Tells(kKind)) << "mended by hand";
  Exchange(plant, "Public Sub Fill()", "Private Sub Fill()");
  Wait::For([&] { return Notice(program)->Tells(kKind); });
}

// A project that can only be read, or that has no code, says so from the start.
TEST(Notices, TellTheStateOfTheProject) {
  support::SamplePlant plant;
  AddElsewhere(plant.system, "Fill");
  plant.system.Remove(support::kProjectPath);
  {
    DesktopProgram program(plant.system, texts::Language::kEnglish);
    ASSERT_TRUE(program.Open());
    EXPECT_TRUE(Notice(program)->Tells(desktop::NoticeBar::Kind::kNoCode));
    EXPECT_FALSE(Notice(program)->Tells(desktop::NoticeBar::Kind::kReadOnly));
    Input({"key --delay 60 Home Down Down Down"});
    const auto* title = window_tests::FindChild<wxStaticText>(*program.Code().GetParent());
    EXPECT_NE(title->GetLabelText().Find("PumpServer.CPump"), wxNOT_FOUND);
    ClickNotice(program, 1);
    EXPECT_FALSE(Notice(program)->IsShown());
  }
  plant.system.SetReadOnly(support::kPlantDatabase, true);
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  EXPECT_TRUE(Notice(program)->Tells(desktop::NoticeBar::Kind::kReadOnly));
}

}  // namespace
