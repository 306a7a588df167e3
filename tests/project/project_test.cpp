// SPDX-License-Identifier: MIT
#include "project/project.h"

#include <gtest/gtest.h>

#include <string>

#include "files/memory_file_system.h"
#include "project/new_project.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/sample_plant.h"
#include "tests/support/sentence.h"

namespace project {
namespace {

constexpr const char* kOddPath = "/p/odd;Mode=Read 'n' \"quoted\".ovs";

TEST(Project, IsMadeAndOpenedUnderAnyFileName) {
  files::MemoryFileSystem system;
  system.CreateDirectories("/p");
  MakeProject(system, kOddPath, {});
  EXPECT_TRUE(system.Exists(kOddPath));
  const texts::TextTable texts(texts::Language::kEnglish);
  Project project(system, kOddPath, {}, texts);
  const store::AliasValues values[] = {{"Tank.Level", "Level"}};
  EXPECT_TRUE(project.operations().AddAliases(values).success()) << "opened for writing";
}

TEST(Project, SaysWhatTheDatabaseLacksAndNewAddsIt) {
  files::MemoryFileSystem system;
  const char* const path = "/p.ovs";
  {
    recordset::JetConnection connection(system);
    connection.Create(store::ProjectConnectionString(path));
    connection.CreateTable("Other", {{"Note", platform::DataType::kVarWChar, 50, false}}, {});
  }
  const texts::TextTable texts(texts::Language::kEnglish);
  for (const bool read_only : {true, false}) {
    ProjectOptions options;
    options.read_only = read_only;
    try {
      Project project(system, path, options, texts);
      ADD_FAILURE() << "opened without its tables";
    } catch (const platform::Error& error) {
      EXPECT_EQ(error.number(), platform::kErrNoSuchTable);
      EXPECT_TRUE(error.description().starts_with("/p.ovs: ")) << error.description();
      const std::string said = support::Sentence(error.message());
      EXPECT_NE(said.find("TvbfFormulas, TvbfAlias, TvbfParams"), std::string::npos);
      EXPECT_NE(said.find("--into"), std::string::npos);
    }
  }
  NewProjectOptions into;
  into.into = true;
  const auto before = system.Snapshot();
  EXPECT_EQ(PlanProject(system, path, into).added,
            (std::vector<std::string>{"TvbfFormulas", "TvbfAlias", "TvbfParams"}));
  EXPECT_EQ(system.Snapshot(), before);
  MakeProject(system, path, into);
  Project project(system, path, {}, texts);
  EXPECT_EQ(project.operations().Count().formulas, 0);
  EXPECT_EQ(project.connection()->TableNames().front(), "Other");
}

// What a killed program left is put right by whoever opens the database, if the code was read
// before.
TEST(Project, ShowsRowsAndCodeInStepAfterAnInterruptedOperation) {
  const texts::TextTable texts(texts::Language::kEnglish);
  bool fired = true;
  int repaired = 0;
  for (int n = 1; fired; ++n) {
    support::SamplePlant plant;
    files::FailingFileSystem failing(plant.system);
    try {
      Project project(failing, support::kPlantDatabase, {}, texts);
      failing.Arm({{files::Operation::kWrite, files::Operation::kRename, files::Operation::kSync},
                   n,
                   files::Fault::Length::kCrash});
      project.operations().AddFormula({"Fill", "PumpServer.CPump", 0, 0, true, ""});
    } catch (const std::exception&) {
    }
    fired = failing.fired();
    const auto before = plant.system.Snapshot();
    ProjectOptions later;
    later.open_database = false;
    Project project(plant.system, support::kPlantDatabase, later, texts);
    project.connection()->Open(store::ProjectConnectionString(support::kPlantDatabase));
    repaired += plant.system.Snapshot() != before;
    const auto pump = project.vb()->FindProject("PumpServer")->FindComponent("CPump");
    const std::string code = pump->Module()->Lines(1, pump->Module()->CountOfLines());
    const bool has_row = !plant.Rows("TvbfFormulas", {"Name"}).empty();
    EXPECT_EQ(code.find("Sub Fill") != std::string::npos, has_row) << n;
  }
  EXPECT_GT(repaired, 0);
}

}  // namespace
}  // namespace project
