// SPDX-License-Identifier: MIT
// A list from a file into the project, by the menu and the preview.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/window/desktop_program.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;
using Lines = std::vector<std::string>;

// A file that the file dialog sees, and the program on its own files.
class List {
 public:
  List(files::MemoryFileSystem& system, const std::string& text)
      : path_((std::filesystem::temp_directory_path() / "ov-import-test.csv").string()) {
    std::ofstream(path_, std::ios::binary) << text;
    system.CreateDirectories(system.Folder(path_));
    system.Put(path_, text);
  }
  ~List() { std::remove(path_.c_str()); }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

class ImportTest : public ::testing::TestWithParam<texts::Language> {
 protected:
  bool German() const { return GetParam() == texts::Language::kGerman; }
  Lines Aliases() { return plant.Rows("TvbfAlias", {"ID", "ItemID", "VBAlias"}); }
  Lines Formulas() { return plant.Rows("TvbfFormulas", {"ID", "Name", "ProgID"}); }
  Lines Arguments() { return plant.Rows("TvbfParams", {"ID", "ParentID", "AliasID", "In", "Out"}); }

  support::SamplePlant plant;
};

TEST_P(ImportTest, BringsSignalsAsOneOperation) {
  DesktopProgram program(plant.system, GetParam());
  ASSERT_TRUE(program.Open());
  const List list(plant.system,
                  "Item;Alias;Formula;Class;In;Out\nTank1.Level;Level;Fill;PumpServer.CPump;x;\n"
                  "Tank1.Pump;Pump;Fill;PumpServer.CPump;;x\n");
  const std::string before = plant.Code("CPump");
  // Into the file dialog; Return in the preview carries it out.
  Input({"key alt+p sleep 0.3 key i sleep 1.2", "type --delay 20 " + list.path(),
         "key Return sleep 1.2", "key Return sleep 0.8"});
  EXPECT_EQ(Aliases(), (Lines{"1|Tank1.Level|Level", "2|Tank1.Pump|Pump"}));
  EXPECT_EQ(Formulas(), Lines{"1|Fill|PumpServer.CPump"});
  EXPECT_EQ(Arguments(), (Lines{"1|1|1|True|False", "2|1|2|False|True"}));
  EXPECT_EQ(program.FormulaNodes(), Lines{"Fill"});
  EXPECT_NE(plant.Code("CPump").find("Public Sub Fill()"), std::string::npos);
  EXPECT_NE(program.Status().find(German() ? "3 neu" : "3 new"), std::string::npos)
      << program.Status();
  Input({"key ctrl+z sleep 0.5"});
  EXPECT_EQ(Formulas(), Lines{}) << "one step back takes all of it back";
  EXPECT_EQ(Aliases(), Lines{});
  EXPECT_EQ(plant.Code("CPump"), before);
}

INSTANTIATE_TEST_SUITE_P(Languages, ImportTest,
                         ::testing::Values(texts::Language::kGerman, texts::Language::kEnglish),
                         [](const auto& test) {
                           return test.param == texts::Language::kGerman ? "German" : "English";
                         });

}  // namespace
