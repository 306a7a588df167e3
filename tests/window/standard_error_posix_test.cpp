// SPDX-License-Identifier: MIT
// What the program writes to the terminal that it was started from: nothing, whatever it shows.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>
#include <unistd.h>
#include <wx/utils.h>

#include "tests/support/sample_plant.h"
#include "tests/window/input.h"
#include "tests/window/project_folder_posix.h"

namespace {

using window_tests::PlayInput;
using window_tests::ProjectFolder;

// The program on the folder's project, with its standard error in a file there.
class Process {
 public:
  explicit Process(const ProjectFolder& folder) : errors_(folder.path() + "/errors") {
    child_ = fork();
    if (child_ != 0) return;
    setenv("HOME", folder.path().c_str(), 1);
    for (const char* place : {"XDG_CONFIG_HOME", "XDG_STATE_HOME"}) unsetenv(place);
    dup2(open(errors_.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600), STDERR_FILENO);
    execl(OV_DESKTOP_PROGRAM, "ovformula-desktop", "--lang", "en", folder.Database().c_str(),
          nullptr);
    _exit(1);
  }
  ~Process() {
    if (child_ == 0) return;
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // How it ended, as wait tells it.
  int End() {
    int status = 0;
    waitpid(std::exchange(child_, 0), &status, 0);
    return status;
  }
  std::string Errors() const { return files::ReadFile(files::RealFileSystem(), errors_); }

 private:
  std::string errors_;
  pid_t child_ = 0;
};

std::string ActiveWindow() {
  FILE* pipe = popen("xdotool getactivewindow getwindowname 2>/dev/null", "r");
  std::string title;
  char buffer[256];
  while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe))
    title.append(buffer, count);
  pclose(pipe);
  return title;
}

// Whether a window whose title begins so becomes the active one; of the program's own window it is
// the file in the middle of its title.
bool Appears(const std::string& title) {
  constexpr int kTries = 100, kPauseMs = 100;
  for (int i = 0; i < kTries; ++i) {
    const std::string active = ActiveWindow();
    if (active.starts_with(title) || active.find(" – " + title + " – ") != std::string::npos)
      return true;
    wxMilliSleep(kPauseMs);
  }
  return false;
}

TEST(StandardError, StaysEmptyInTheMainJob) {
  struct Step {
    std::vector<std::string> keys;  // that open a window
    const char* window;
    std::vector<std::string> end;  // keys in it
  };
  const std::vector<std::string> escape = {"key Escape"};
  const Step steps[] = {
      {{"key --delay 80 Home Down", "key F8"},
       "New alias",
       {"type --delay 40 Tank1.Level", "key --delay 80 Tab Tab", "type --delay 40 Level",
        "key Return"}},
      {{"key F6", "key F9"}, "Alias Level", escape},
      {{"key alt+F6", "key --delay 80 Home Down Down", "key F8"},
       "New formula",
       {"type --delay 40 Fill", "key --delay 80 Tab Down Return"}},
      {{"key F8"}, "New argument", {"type --delay 40 Level", "key Return"}},
      {{"key shift+F8"}, "Add arguments", escape},
      {{"key F9"}, "Argument", escape},
      {{"key ctrl+Delete"}, "OrvanaStudio", escape},
      {{"key ctrl+p"}, "Go to", escape},
      {{"key --delay 100 alt+e Up", "key Return"}, "Options", escape},
      {{"key --delay 100 alt+v Up", "key Return"}, "Program options", escape},
      {{"key --delay 100 alt+h Up Up", "key Return"}, "Keyboard", escape},
      {{"key F1"}, "Help", {"key alt+F4"}},
  };
  const ProjectFolder folder(support::SamplePlant().system.Snapshot());
  Process program(folder);
  ASSERT_TRUE(Appears("Plant.ovs"));
  wxMilliSleep(1000);  // the project is opened when the window is there
  for (const Step& step : steps) {
    PlayInput(step.keys);
    ASSERT_TRUE(Appears(step.window)) << step.keys.back() << " shows " << ActiveWindow();
    wxMilliSleep(300);  // its first field takes the keyboard
    PlayInput(step.end);
    ASSERT_TRUE(Appears("Plant.ovs")) << step.window << " is still open";
  }
  PlayInput({"key ctrl+f", "key Escape", "key ctrl+shift+f", "key Escape", "key alt+F4"});
  EXPECT_EQ(program.End(), 0);
  EXPECT_EQ(program.Errors(), "");
  EXPECT_NE((folder.Read("CPump.cls") + folder.Read("CTank.cls")).find("Public Sub Fill()"),
            std::string::npos);
}

}  // namespace
