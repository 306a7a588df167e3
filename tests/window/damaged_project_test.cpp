// SPDX-License-Identifier: MIT
// A database of which a part cannot be read any more.
#include <gtest/gtest.h>

#include <cstring>

#include "jet/database.h"
#include "project/backups.h"
#include "project/project.h"
#include "project/state_files.h"
#include "tests/window/desktop_program.h"
#include "tests/window/said.h"

namespace {

using support::kPlantDatabase;
using window_tests::DesktopProgram;
using window_tests::Input;
using window_tests::Said;
using window_tests::Wait;

void Fill(files::FileSystem& system) {
  const texts::TextTable texts(texts::Language::kEnglish);
  project::Project project(system, kPlantDatabase, {}, texts);
  const store::AliasValues aliases[] = {{"Tank.Level", "Level"}};
  ASSERT_TRUE(project.operations().AddAliases(aliases).success());
  ASSERT_TRUE(project.operations().AddFormula({"Kept", "PumpServer.CPump"}).success());
}

// Spoils the directory of every page that holds rows of the table.
void Damage(files::MemoryFileSystem& system, const std::string& table) {
  constexpr std::size_t kPage = 4096, kOwner = 4, kRowCount = 12;
  std::uint32_t definition = 0;
  for (const auto& info : jet::Database::Open(system, kPlantDatabase)->Tables(false)) {
    if (info.name == table) definition = info.definition_page;
  }
  ASSERT_NE(definition, 0u);
  std::string bytes = system.Get(kPlantDatabase);
  for (std::size_t page = 0; page < bytes.size(); page += kPage) {
    std::uint32_t owner = 0;
    std::memcpy(&owner, &bytes[page + kOwner], sizeof owner);
    if (bytes[page] == 1 && owner == definition)
      bytes.replace(page + kRowCount, 4, "\xFF\xFF\xFF\xFF");
  }
  system.Put(kPlantDatabase, bytes);
}

class DamagedProject : public testing::Test {
 protected:
  DamagedProject() {
    Fill(plant_.system);
    good_ = plant_.system.Get(kPlantDatabase);
    backups_ = project::ProjectStateFolder(plant_.system, "/home/state", "backups", kPlantDatabase);
    project::Backups(plant_.system, backups_).MakeDaily("2026-11-20", {kPlantDatabase});
  }

  // Opens the project while the keys are typed.
  bool Open(DesktopProgram& program, const std::string& keys) {
    bool open = false, done = false;
    program.window().CallAfter([&] {
      open = program.window().OpenProject(kPlantDatabase);
      done = true;
    });
    Input({"sleep 1", keys});
    Wait::For([&] { return done; });
    return open;
  }

  support::SamplePlant plant_;
  std::string good_;
  std::string backups_;
};

TEST_F(DamagedProject, SaysSoAndOffersABackup) {
  Damage(plant_.system, "TvbfFormulas");
  const std::string damaged = plant_.system.Get(kPlantDatabase);
  DesktopProgram program(plant_.system, texts::Language::kEnglish);
  Said said;
  EXPECT_FALSE(Open(program, "key Return sleep 0.8 key Return"));
  ASSERT_EQ(said.texts.size(), 2u);
  EXPECT_NE(said.texts[0].find("Plant.ovs"), std::string::npos) << said.texts[0];
  EXPECT_NE(said.texts[1].find("2026-11-20"), std::string::npos) << said.texts[1];
  EXPECT_EQ(plant_.system.Get(kPlantDatabase), damaged);

  EXPECT_TRUE(Open(program, "key Return sleep 0.8 key alt+y"));
  EXPECT_EQ(plant_.system.Get(kPlantDatabase), good_);
  EXPECT_EQ(program.FormulaNodes(), std::vector<std::string>{"Kept"});
  const auto backups = project::Backups(plant_.system, backups_).List();
  ASSERT_EQ(backups.size(), 2u);
  EXPECT_EQ(plant_.system.Get(backups[0].folder + "/0.bak"), damaged);
}

TEST_F(DamagedProject, IsRestoredFromTheMenuAlsoAfterAFailedTry) {
  Damage(plant_.system, "TvbfFormulas");
  DesktopProgram program(plant_.system, texts::Language::kEnglish);
  EXPECT_FALSE(Open(program, "key Return sleep 0.8 key Return"));
  {
    const auto other = jet::Database::Open(plant_.system, kPlantDatabase);
    Said said;
    program.Choose("2026-11-20");
    Input({"sleep 0.8 key alt+y", "sleep 0.8 key Return", "sleep 0.8 key Return"});
    ASSERT_GE(said.texts.size(), 2u);
    EXPECT_NE(said.texts[1].find("open in another window"), std::string::npos) << said.texts[1];
    EXPECT_NE(plant_.system.Get(kPlantDatabase), good_);
  }
  program.Choose("2026-11-20");
  Input({"sleep 0.8 key alt+y"});
  EXPECT_EQ(plant_.system.Get(kPlantDatabase), good_);
  EXPECT_EQ(program.FormulaNodes(), std::vector<std::string>{"Kept"});
}

TEST_F(DamagedProject, SaysThatTheAliasesCannotBeRead) {
  Damage(plant_.system, "TvbfAlias");
  DesktopProgram program(plant_.system, texts::Language::kEnglish);
  Said said;
  ASSERT_TRUE(program.Open());
  Input({"key --delay 80 Home Down sleep 1.5 key Return"});
  ASSERT_EQ(said.texts.size(), 1u);
  EXPECT_NE(said.texts[0].find("data page counts more rows"), std::string::npos) << said.texts[0];
}

}  // namespace
