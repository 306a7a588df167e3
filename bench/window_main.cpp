// SPDX-License-Identifier: MIT
// The desktop program's real window with a large project beside the same window with an empty or a
// small one: time until it is up, keys in its tables, memory. Needs a display; takes one of its own
// where there is none.
#include <wx/app.h>
#include <wx/dataview.h>
#include <wx/evtloop.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "bench/folder.h"
#include "bench/make_project.h"
#include "bench/process.h"
#include "bench/report.h"
#include "desktop/program.h"
#include "project/new_project.h"

namespace bench {
namespace {

constexpr int kRuns = 5;          // of the program, each with all its measurements
constexpr int kRounds = 5;        // of each key
constexpr double kPatience = 60;  // seconds
constexpr const char* kOverview = "overview of formulas";
constexpr const char* kOpened = "project open";  // the window is there already
constexpr double kTwoFrames = 32;                // milliseconds

std::int64_t Nanoseconds() {
  return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

wxDataViewCtrl* ShownGrid(const wxWindow& window) {
  for (wxWindow* child : window.GetChildren()) {
    auto* list = dynamic_cast<wxDataViewCtrl*>(child);
    if (list && list->IsShownOnScreen()) return list;
    if (wxDataViewCtrl* found = ShownGrid(*child)) return found;
  }
  return nullptr;
}

// --- The program that is measured ---

class MeasuredApp : public wxApp {
 public:
  // `started`: when the program was asked for, in nanoseconds.
  MeasuredApp(std::string folder, std::int64_t started, bool keys)
      : folder_(std::move(folder)), started_(started), keys_(keys) {}

  bool OnInit() override {
    program_ = std::make_unique<desktop::Program>(
        files::RealFileSystem(), project::UserFolders{folder_ + "/config", folder_ + "/state"},
        texts::Language::kEnglish);
    window_ = &program_->window();
    window_->CallAfter([this] {
      const Stopwatch opening;
      window_->OpenProject(folder_ + "/Plant.ovs");
      Settle();
      Print(kOpened, 1e3 * opening.Seconds());
      window_->CallAfter([this] { Measure(); });
    });
    return true;
  }
  int OnExit() override {
    program_.reset();
    return wxApp::OnExit();
  }

 private:
  // The window manager shows a window and gives it the keyboard when it likes to.
  void Measure() {
    const Stopwatch waited;
    while (!window_->IsActive() && waited.Seconds() < kPatience) {
      Yield(true);
      wxMilliSleep(1);
    }
    Settle();
    Print("window up", 1e-6 * static_cast<double>(Nanoseconds() - started_));
    if (keys_) MeasureKeys();
    window_->Close();
  }

  static void Print(const char* what, double figure) { std::printf("%s\t%.6g\n", what, figure); }

  // Handles all events that are there, painting included.
  void Settle() {
    Yield(true);
    window_->Update();
    while (ProcessIdle()) Yield(true);
    Yield(true);
  }
  wxDataViewCtrl& Grid() { return *ShownGrid(*window_->EditorHost()); }
  // Where the table draws itself, a window within it has the keyboard.
  bool GridHasKeyboard() {
    wxWindow* focused = wxWindow::FindFocus();
    return focused == &Grid() || Grid().IsDescendant(focused);
  }
  unsigned Rows() {
    return dynamic_cast<wxDataViewVirtualListModel*>(Grid().GetModel())->GetCount();
  }
  unsigned Current() {
    const wxDataViewItem item = Grid().GetCurrentItem();
    auto* model = dynamic_cast<wxDataViewVirtualListModel*>(Grid().GetModel());
    return item.IsOk() ? model->GetRow(item) : ~0u;
  }
  bool Do(const std::function<void()>& input, const std::function<bool()>& done) {
    input();
    const Stopwatch waited;
    while (!done()) {
      if (waited.Seconds() > kPatience) return false;
      Yield(true);
    }
    Settle();
    return true;
  }
  // Prints the milliseconds from the first input to the end of what it causes.
  void Time(const char* what, const std::function<void()>& input, const std::function<bool()>& done,
            const std::function<void()>& prepare) {
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
      prepare();
      Settle();
      const Stopwatch stopwatch;
      if (!Do(input, done)) {
        std::fprintf(stderr, "%s: nothing happens\n", what);
        exit(1);
      }
      times.push_back(1e3 * stopwatch.Seconds());
    }
    Print(what, Median(times));
  }
  void Press(int key, int modifiers = wxMOD_NONE) { keyboard_.Char(key, modifiers); }

  // From a node of the tree to the next one's table. The overview of formulas takes the editor's
  // place.
  void MeasureNodes() {
    const auto shown = [this] {
      const wxDataViewCtrl* table = ShownGrid(*window_);
      auto* model = dynamic_cast<const wxDataViewVirtualListModel*>(table->GetModel());
      return table->IsDescendant(window_->EditorHost()) ? 0u : model->GetCount();
    };
    const auto home = [this] { Do([this] { Press(WXK_HOME); }, [] { return true; }); };
    const auto aliases = [this, home] {
      home();
      Do([this] { Press(WXK_DOWN); }, [this] { return Grid().IsShownOnScreen() && Rows() > 50; });
    };
    aliases();  // the first look opens the table
    Time(
        "table of aliases", [this] { Press(WXK_DOWN); },
        [this] { return Grid().IsShownOnScreen() && Rows() > 50; }, home);
    Time(
        kOverview, [this] { Press(WXK_DOWN); }, [shown] { return shown() > 0; }, aliases);
  }

  void MeasureKeys() {
    Do([this] { Press(WXK_HOME); }, [] { return true; });
    MeasureNodes();
    Do([this] { Press(WXK_HOME); }, [] { return true; });
    Do([this] { Press(WXK_DOWN); }, [this] { return Rows() > 50; });  // the aliases
    Do([this] { Press(WXK_F6, wxMOD_ALT); }, [this] { return GridHasKeyboard(); });
    const unsigned last = Rows() - 1;
    const auto go = [this](int key, unsigned row) {
      Do([&] { Press(key); }, [&] { return Current() == row; });
    };
    const auto home = [go] { go(WXK_HOME, 0); };
    const auto end = [go, last] { go(WXK_END, last); };
    Time(
        "jump to the last row", [this] { Press(WXK_END); },
        [this, last] { return Current() == last; }, home);
    Time(
        "jump to the first row", [this] { Press(WXK_HOME); }, [this] { return Current() == 0; },
        end);
    Time(
        "five pages up from the end",
        [this] {
          for (int i = 0; i < 5; ++i) {
            const unsigned before = Current();
            Do([this] { Press(WXK_PAGEUP); }, [&] { return Current() < before || before == 0; });
          }
        },
        [] { return true; }, end);
    Time(
        "next row", [this] { Press(WXK_DOWN); }, [this] { return Current() == 1; }, home);
    Time(
        "three more rows selected",
        [this] {
          for (int i = 0; i < 3; ++i) Press(WXK_DOWN, wxMOD_SHIFT);
        },
        [this] { return Grid().GetSelectedItemsCount() == 4; }, home);
    Time(
        "all rows selected", [this] { Press('A', wxMOD_CONTROL); },
        [this, last] { return Grid().GetSelectedItemsCount() == static_cast<int>(last) + 1; },
        home);
    go(WXK_DOWN, 1);  // one row selected again
    MeasureFilter(last + 1);
  }

  void MeasureFilter(unsigned all) {
    const auto clear = [this, all] {
      if (Rows() == all) return;
      Do([this] { Press(WXK_ESCAPE); }, [this, all] { return Rows() == all; });
    };
    const auto open = [=, this] {
      clear();
      Do([this] { Press('F', wxMOD_CONTROL); }, [this] { return !GridHasKeyboard(); });
    };
    const auto fewer = [this, all] { return Rows() < all; };
    Time(
        "first letter of a filter", [this] { Press('7'); }, fewer, open);
    unsigned with_one = 0;
    const auto type_one = [=, this, &with_one] {
      open();
      Do([this] { Press('7'); }, fewer);
      with_one = Rows();
    };
    Time(
        "next letter of a filter", [this] { Press('7'); },
        [this, &with_one] { return Rows() < with_one; }, type_one);
    Time(
        "filter gone", [this] { Press(WXK_ESCAPE); }, [this, all] { return Rows() == all; },
        type_one);
  }

  std::string folder_;
  std::int64_t started_;
  bool keys_;
  wxUIActionSimulator keyboard_;
  std::unique_ptr<desktop::Program> program_;
  desktop::MainWindow* window_ = nullptr;
};

// --- The comparison ---

struct Subject {
  std::string folder;
  bool keys = false;
  std::vector<std::string> order = {};  // of the figures
  std::map<std::string, std::vector<double>> figures = {};

  double Figure(const std::string& name) { return Median(figures[name]); }
};

// One run of the program; its figures are added.
bool RunOnce(Subject& subject, const std::string& output) {
  const ProcessResult result =
      RunProcess({OwnProgram(), "--measured", subject.folder, std::to_string(Nanoseconds()),
                  subject.keys ? "keys" : "none"},
                 output);
  if (result.exit_code != 0) return false;
  subject.figures["memory"].push_back(result.peak_mib);
  std::ifstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    const std::string name = line.substr(0, line.find('\t'));
    if (subject.figures[name].empty()) subject.order.push_back(name);
    subject.figures[name].push_back(std::stod(line.substr(line.find('\t'))));
  }
  return true;
}

double FileMiB(const std::string& path) {
  return static_cast<double>(files::RealFileSystem().Stamp(path)->size) / (1024 * 1024);
}

int Compare() {
  files::FileSystem& files = files::RealFileSystem();
  const Folder folder;
  Subject empty{folder.File("empty")}, few{folder.File("few"), true},
      many{folder.File("many"), true};
  for (const Subject* subject : {&empty, &few, &many}) files.CreateDirectories(subject->folder);
  project::MakeProject(files, empty.folder + "/Plant.ovs", {});
  ProjectSize small;
  small.formulas = 10;
  small.aliases = small.arguments = 100;
  MakeLargeProject(files, few.folder + "/Plant.ovs", small);
  MakeLargeProject(files, many.folder + "/Plant.ovs", {});
  // From the second run on the windows come up at the aliases, where the keys left them.
  for (int run = 0; run < kRuns; ++run) {
    for (Subject* subject : {&empty, &few, &many}) {
      if (!RunOnce(*subject, folder.File("figures"))) {
        PrintNote("the program failed with " + subject->folder);
        return 1;
      }
    }
  }
  PrintHeading("10,000 / 100,000", "empty");
  PrintRatio("window up", many.Figure("window up"), empty.Figure("window up"), "ms", 1.5);
  const double database = FileMiB(many.folder + "/Plant.ovs");
  PrintRatio("memory, of 1.5 x empty + 3 x database", many.Figure("memory"),
             1.5 * empty.Figure("memory") + 3 * database, "MiB", 1);
  PrintHeading("10,000 formulas", "aliases + 2 frames");
  PrintRatio(kOverview, many.Figure(kOverview), many.Figure("table of aliases") + kTwoFrames, "ms",
             1);
  PrintHeading("100,000 aliases", "100");
  for (const std::string& name : many.order) {
    if (name == "window up" || name == kOpened || name == kOverview) continue;
    PrintRatio(name, many.Figure(name), few.Figure(name), "ms", 2);
  }
  return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  if (argc == 5 && std::string(argv[1]) == "--measured") {
    const bool keys = std::string(argv[4]) == "keys";
    wxApp::SetInstance(new bench::MeasuredApp(argv[2], std::stoll(argv[3]), keys));
    int one = 1;
    return wxEntry(one, argv);
  }
  if (!bench::TakeDisplay(argv)) {
    bench::PrintNote("skipped: no display, and no xvfb and openbox to make one");
    return 0;
  }
  return bench::Compare();
}
