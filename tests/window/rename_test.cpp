// SPDX-License-Identifier: MIT
// An alias of many procedures gets another name in the window, together with its uses, and all of
// it is taken back: the code is compared byte by byte.
#include <gtest/gtest.h>

#include "project/project.h"
#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using window_tests::Wait;

constexpr int kFormulas = 20;

std::string BodyOf(int number, const std::string& alias) {
  const std::string n = std::to_string(number);
  return "  'Level of " + n + "\r\n  If " + alias + " > " + n + " Then " + alias + " = Me." +
         alias + " - " + n + ": Debug.Print \"Level\"\r\n";
}

// Formulas of two classes, each with a body that uses Level.
struct ManyUses : support::SamplePlant {
  ManyUses() {
    const texts::TextTable texts(texts::Language::kEnglish);
    project::Project project(system, support::kPlantDatabase, {}, texts);
    store::Operations& operations = project.operations();
    EXPECT_TRUE(
        operations.AddAliases(std::vector<store::AliasValues>{{"Tank1.Level", "Level"}}).success());
    for (int i = 1; i <= kFormulas; ++i) {
      const std::string name = "Step" + std::to_string(i);
      const auto added = operations.AddFormula(
          {name, i % 2 ? "PumpServer.CPump" : "PumpServer.CTank", 2, 0, true, ""});
      EXPECT_TRUE(added.success());
      EXPECT_TRUE(
          operations.AddArguments(added.id(), std::vector<store::ArgumentValues>{{1, true, true}})
              .success());
      const std::string path = support::ClassPath(i % 2 ? "CPump" : "CTank");
      std::string code = system.Get(path);
      const std::string head = "Public Sub " + name + "()\r\n";
      const std::size_t place = code.find(head);
      EXPECT_NE(place, std::string::npos) << name;
      system.Put(path, code.insert(place + head.size(), BodyOf(i, "Level")));
    }
  }
  std::string AllCode() { return Code("CPump") + Code("CTank"); }
};

TEST(RenameTest, AnAliasOfTwentyBodiesIsRenamedAndTakenBack) {
  ManyUses plant;
  const std::string before = plant.AllCode();
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  Input({"key --delay 60 Home Down", "key F6 sleep 0.2", "key F9 sleep 0.8",
         "key --delay 80 Tab Tab ctrl+a", "type --delay 40 Height", "key Return sleep 0.9"});
  Wait::For([&] { return plant.AllCode() != before; });
  const std::string after = plant.AllCode();
  for (int i = 1; i <= kFormulas; ++i)
    EXPECT_NE(after.find(BodyOf(i, "Height")), std::string::npos) << i;
  EXPECT_EQ(plant.Rows("TvbfAlias", {"VBAlias"}), std::vector<std::string>{"Height"});
  EXPECT_EQ(after.size(), before.size() + std::size_t{kFormulas} * 4 + 2) << "nothing else";

  Input({"key alt+F6 key ctrl+z sleep 0.5"});
  Wait::For([&] { return plant.AllCode() != after; });
  EXPECT_EQ(plant.AllCode(), before);
  EXPECT_EQ(plant.Rows("TvbfAlias", {"VBAlias"}), std::vector<std::string>{"Level"});
}

}  // namespace
