// SPDX-License-Identifier: MIT
// The program is killed at points of the saving of an edit. What it leaves is the state before the
// edit or the one after it, and the next start works.
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "files/replace_file.h"
#include "tests/support/failing_file_system.h"
#include "tests/window/desktop_program.h"
#include "tests/window/project_folder_posix.h"
#include "wx/convert.h"

namespace {

using files::Operation;
using window_tests::Input;
using window_tests::ProjectFolder;
using window_tests::Snapshot;
using window_tests::Wait;

constexpr const char* kFolder = "OV_TEST_FOLDER";  // of the project, for the program that dies
constexpr const char* kStep = "OV_TEST_STEP";      // the change of a file that it dies at; 0: none
constexpr const char* kCount = "steps";            // file that tells how many there are

// What the environment says; empty when it says nothing.
std::string Given(const char* name) {
  const char* value = getenv(name);
  return value ? value : "";
}

struct State {
  std::string database, code;
  friend bool operator==(const State&, const State&) = default;
};

State StateOf(const ProjectFolder& folder) {
  return {folder.Read("Plant.ovs"), folder.Read("CPump.cls")};
}

// Runs one of the programs below, which may die; its exit status as wait gives it.
int RunProgram(const ProjectFolder& folder, int step, const char* name) {
  const pid_t child = fork();
  if (child == 0) {
    unsetenv("GTEST_TOTAL_SHARDS");
    unsetenv("GTEST_SHARD_INDEX");
    setenv(kFolder, folder.path().c_str(), 1);
    setenv(kStep, std::to_string(step).c_str(), 1);
    const std::string filter = std::string("--gtest_filter=KilledProgram.DISABLED_") + name;
    execl("/proc/self/exe", "window_tests", "--gtest_also_run_disabled_tests", filter.c_str(),
          nullptr);
    _exit(1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

// Ends the program as soon as nothing that it writes arrives any more.
class Killer : public wxTimer {
 public:
  explicit Killer(const files::FailingFileSystem& system) : system_(system) { Start(5); }

 private:
  void Notify() override {
    if (system_.fired()) kill(getpid(), SIGKILL);
  }
  const files::FailingFileSystem& system_;
};

// The program, which does what the keys say from the folder of formulas on and may die over it.
void RunAndDie(const std::vector<std::string>& keys) {
  const std::string folder = Given(kFolder);
  ASSERT_FALSE(folder.empty()) << "is run by the other test";
  const int step = std::atoi(Given(kStep).c_str());
  files::FailingFileSystem system(files::RealFileSystem());
  const Killer killer(system);
  window_tests::DesktopProgram program(system, texts::Language::kEnglish, folder + "/home");
  ASSERT_TRUE(program.Open(folder + "/Plant.ovs"));
  Input({"key --delay 80 Home Down Down"});
  system.Arm({.kinds = {Operation::kWrite, Operation::kTruncate, Operation::kSync,
                        Operation::kRename, Operation::kRemove, Operation::kSyncDirectory},
              .n = step == 0 ? 1000000 : step,
              .length = files::Fault::Length::kCrash,
              .short_writes = true});
  Input(keys);
  files::ReplaceFile(files::RealFileSystem(), folder + "/" + kCount,
                     std::to_string(system.count()));
}

TEST(KilledProgram, DISABLED_MakesAFormula) {
  RunAndDie({"key F8 sleep 0.8", "type --delay 40 Fill", "key --delay 80 Tab Down Return"});
}

// 1,000 signals of a formula, through the preview.
TEST(KilledProgram, DISABLED_PastesAList) {
  wx::ToClipboard("item,alias,formula,class,in\nT.{1..1000},T_{1..1000},Fill,CPump,x\n");
  RunAndDie({"key ctrl+v sleep 1.5", "key Return sleep 3"});
}

class KilledAt : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Programs, KilledAt, testing::Values("MakesAFormula", "PastesAList"));

TEST_P(KilledAt, LeavesWholeFilesAndStartsAgain) {
  const Snapshot files = support::SamplePlant().system.Snapshot();
  const ProjectFolder untouched(files), changed(files);
  const State before = StateOf(untouched);
  const int status = RunProgram(changed, 0, GetParam());
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  const State after = StateOf(changed);
  ASSERT_NE(after.database, before.database);
  ASSERT_NE(after.code.find("Public Sub Fill()"), std::string::npos);
  const int steps = std::stoi(changed.Read(kCount));
  ASSERT_GT(steps, 4);

  std::set<int> points = {1, steps / 3, 2 * steps / 3, steps};
  if (getenv("OV_LONG")) {
    for (int step = 1; step <= steps; ++step) points.insert(step);
  }
  for (const int point : points) {
    SCOPED_TRACE("killed at change " + std::to_string(point) + " of " + std::to_string(steps));
    const ProjectFolder folder(files);
    const int end = RunProgram(folder, point, GetParam());
    ASSERT_TRUE(WIFSIGNALED(end) && WTERMSIG(end) == SIGKILL);
    window_tests::DesktopProgram program(files::RealFileSystem(), texts::Language::kEnglish,
                                         folder.path() + "/home");
    ASSERT_TRUE(program.Open(folder.Database()));
    const State found = StateOf(folder);
    EXPECT_TRUE(found == before || found == after)
        << "the code holds the formula: " << (found.code == after.code);
    EXPECT_TRUE(point > 1 || found == before);
  }
}

TEST(KilledProgram, DISABLED_TypesCode) {
  const std::string folder = Given(kFolder);
  ASSERT_FALSE(folder.empty()) << "is run by the other test";
  window_tests::DesktopProgram program(files::RealFileSystem(), texts::Language::kEnglish,
                                       folder + "/home");
  ASSERT_TRUE(program.Open(folder + "/Plant.ovs"));
  Input({"key --delay 80 Home Down Down", "key F8 sleep 0.8", "type --delay 40 Fill",
         "key --delay 80 Tab Down Return", "key alt+F6"});
  program.GoToCode();
  Input({"key ctrl+End", "type --delay 40 \"'precious\""});
  const auto kept = [&] {
    for (const auto& file : std::filesystem::recursive_directory_iterator(folder + "/home")) {
      if (file.path().extension() != ".code") continue;
      return files::ReadFile(files::RealFileSystem(), file.path()).ends_with("'precious");
    }
    return false;
  };
  Wait::For(kept);
  kill(getpid(), SIGKILL);
}

TEST(KilledProgram, UnsavedCodeIsBroughtBack) {
  const ProjectFolder folder(support::SamplePlant().system.Snapshot());
  const int end = RunProgram(folder, 0, "TypesCode");
  ASSERT_TRUE(WIFSIGNALED(end) && WTERMSIG(end) == SIGKILL);
  EXPECT_EQ(folder.Read("CPump.cls").find("precious"), std::string::npos) << "nobody saved it";
  window_tests::DesktopProgram program(files::RealFileSystem(), texts::Language::kEnglish,
                                       folder.path() + "/home");
  bool open = false;
  program.window().CallAfter([&] { open = program.window().OpenProject(folder.Database()); });
  Input({"sleep 1.5 key alt+b"});
  ASSERT_TRUE(open);
  Wait::For([&] { return program.Code().GetModify(); });
  EXPECT_NE(program.Code().Text().find("'precious"), std::string::npos);
  EXPECT_EQ(folder.Read("CPump.cls").find("precious"), std::string::npos);
  Input({"key ctrl+s"});
  EXPECT_NE(folder.Read("CPump.cls").find("'precious"), std::string::npos);
  for (const auto& file : std::filesystem::recursive_directory_iterator(folder.path() + "/home"))
    EXPECT_NE(file.path().extension(), ".code") << file.path();
}

}  // namespace
