// SPDX-License-Identifier: MIT
// What the window says when something outside of it is missing or in use: over the window, with
// the reason and what can be done.
#include <gtest/gtest.h>
#include <wx/html/htmlwin.h>

#include <cstdlib>
#include <span>

#include "helpwindow/help_frame.h"
#include "project/project.h"
#include "tests/window/desktop_program.h"
#include "tests/window/said.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::FindChild;
using window_tests::Input;
using window_tests::Said;
using window_tests::Wait;

// A program on PLANT7 that locks the whole database.
class Locker {
 public:
  explicit Locker(files::FileSystem& system)
      : users_(system.Open("/plant/Plant.ldb", files::OpenMode::kCreateOrOpen)),
        database_(system.Open(support::kPlantDatabase, files::OpenMode::kReadWrite)) {
    constexpr std::uint64_t kFirstUser = 0x10000001, kBehindAllPages = 0x80000000;
    const std::string record =
        std::string("PLANT7") + std::string(26, '\0') + "Admin" + std::string(27, '\0');
    users_->WriteAt(0, std::as_bytes(std::span(record)));
    EXPECT_TRUE(users_->TryLock(kFirstUser, 1, files::LockMode::kExclusive));
    EXPECT_TRUE(database_->TryLock(kBehindAllPages, 0x1000, files::LockMode::kExclusive));
  }

 private:
  std::unique_ptr<files::RandomAccessFile> users_;
  std::unique_ptr<files::RandomAccessFile> database_;
};

TEST(WindowNotices, ALockedProjectIsSaidOverTheWindow) {
  support::SamplePlant plant;
  const Locker other(plant.system);
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  Said said;
  bool open = true, done = false;
  program.window().CallAfter([&] {
    open = program.window().OpenProject(support::kPlantDatabase);
    done = true;
  });
  Input({"sleep 1.2 key Return sleep 0.6 key Escape"});
  Wait::For([&] { return done; });
  EXPECT_FALSE(open);
  ASSERT_FALSE(said.texts.empty());
  EXPECT_NE(said.texts[0].find("PLANT7"), std::string::npos) << said.texts[0];
  EXPECT_EQ(said.texts[0].find("255"), std::string::npos) << said.texts[0];
  const std::size_t detail = said.texts[0].find('\n');
  EXPECT_EQ(said.texts[0].substr(0, detail).find("-21"), std::string::npos) << said.texts[0];
  EXPECT_NE(said.texts[0].find("-21", detail), std::string::npos) << said.texts[0];
  EXPECT_EQ(said.parents[0], &program.window());
}

// Whether this system shows pages, which a test must not do.
bool HasBrowser() {
  return std::system(
             "grep -qs text/html /usr/share/applications/*.desktop "
             "~/.local/share/applications/*.desktop || command -v xdg-open >/dev/null") == 0;
}

TEST(WindowNotices, AReportThatNothingShowsIsSavedElsewhere) {
  if (HasBrowser()) GTEST_SKIP() << "there is a program that would show it";
  support::SamplePlant plant;
  plant.system.CreateDirectories("/tmp");
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  Said said;
  program.Choose("Report");
  Input({"sleep 1.5 key alt+a sleep 1.2 key ctrl+a", "type --delay 40 /tmp/Plant.html",
         "key Return"});
  ASSERT_GE(said.texts.size(), 1u);
  EXPECT_NE(said.texts[0].find("/home/state/report.html"), std::string::npos) << said.texts[0];
  EXPECT_EQ(plant.system.Get("/tmp/Plant.html"), plant.system.Get("/home/state/report.html"));
  EXPECT_NE(program.Status().find("/tmp/Plant.html"), std::string::npos) << program.Status();
}

// Reads the help as soon as it is open, and closes it.
class HelpReader : public wxTimer {
 public:
  HelpReader() { Start(100); }
  std::string page;

 private:
  void Notify() override {
    for (wxWindow* window : wxTopLevelWindows) {
      auto* help = dynamic_cast<helpwindow::HelpFrame*>(window);
      if (!help || !help->IsActive()) continue;
      page = FindChild<wxHtmlWindow>(*help)->ToText().utf8_string();
      help->Close();
      return Stop();
    }
  }
};

// Help on the item chooser, while it and the dialog below it wait.
TEST(WindowNotices, F1InTheItemChooserIsAboutIt) {
  support::SamplePlant plant;
  plant.system.Put("/plant/items.csv", "item,type,comment\nTank1.Level,Double,\n");
  DesktopProgram program(plant.system, texts::Language::kEnglish);
  ASSERT_TRUE(program.Open());
  HelpReader help;
  Input({"key --delay 60 Home Down", "key F8 sleep 0.8", "key Tab key space sleep 0.8",
         "key F1 sleep 1.2", "key Escape sleep 0.6 key Escape"});
  EXPECT_EQ(help.page.find("The dialog Choose item"), help.page.find("The dialog")) << help.page;
  EXPECT_FALSE(help.page.empty());
}

}  // namespace
