// SPDX-License-Identifier: MIT
// The editor window's models on a project with many aliases beside the same on one with a hundred:
// what a user waits for must hardly depend on the size of the project. No display is used.
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/report.h"
#include "dialogs/fparameter.h"
#include "tests/support/editor_bench.h"

namespace bench {
namespace {

constexpr std::size_t kFew = 100;
constexpr std::size_t kMany = 100000;
constexpr std::size_t kSeenRows = 40;
constexpr int kRounds = 7;

// A project with one formula and some aliases, open on its alias node.
struct Opened : support::EditorBench {
  explicit Opened(std::size_t aliases) {
    Start();
    Click("FORA0");
    std::vector<store::AliasValues> values;
    for (std::size_t i = 0; i < aliases; ++i) {
      const std::string number = std::to_string(i);
      values.push_back({"Area" + std::to_string(i % 97) + ".Item" + number, "Alias" + number});
    }
    const auto added = Window().operations().AddAliases(values);
    HaveFormula("Formula1", "PumpServer.CPump");
    for (int i = 0; i < 10; ++i)
      HaveArgument(1, added.ids.at(static_cast<std::size_t>(i)), true, false);
    Click("FORF1");
    Click("FORA0");
    See(Window().tdbA, 0);
  }

  // Reads what a screen shows from a row on.
  static void See(const forms::RowView& rows, std::size_t first) {
    for (std::size_t row = first; row < first + kSeenRows; ++row) rows.Cell(row, 0);
  }
};

// What is shown without a limit costs a millisecond or two at most, where a frame lasts sixteen;
// the benchmark of the window compares what a user sees of it.
struct Action {
  const char* what;
  std::function<void(Opened&)> prepare;
  std::function<void(Opened&)> run;
  double limit;
};

void Nothing(Opened&) {}

std::vector<Action> Actions() {
  const auto filter = [](const char* text) {
    return [text](Opened& opened) {
      opened.Window().txtFind.SetText(text);
      Opened::See(opened.Window().tdbA, 0);
    };
  };
  const auto open_find = [](Opened& opened) {
    opened.Window().CloseFind();
    opened.Window().ShowFind();
  };
  return {
      {"select the formula", [](Opened& opened) { opened.Click("FORA0"); },
       [](Opened& opened) { opened.Click("FORF1"); }, 2},
      {"select the aliases", [](Opened& opened) { opened.Click("FORF1"); },
       [](Opened& opened) {
         opened.Click("FORA0");
         Opened::See(opened.Window().tdbA, 0);
       },
       0},
      {"jump to the last rows", [](Opened& opened) { opened.Window().tdbA.Rebind(); },
       [](Opened& opened) {
         Opened::See(opened.Window().tdbA, opened.Window().tdbA.RowCount() - kSeenRows);
       },
       2},
      {"first letter of a search", open_find, filter("1"), 0},
      {"next letter of a search",
       [=](Opened& opened) {
         open_find(opened);
         filter("1")(opened);
       },
       filter("12"), 0},
      {"open the argument dialog", Nothing,
       [](Opened& opened) {
         dialogs::FParameter dialog(opened.Window().dialog_context());
         for (int i = 0; i < 30; ++i) dialog.cmbVBAlias.List(i);
       },
       0},
      {"type ahead in its list", Nothing,
       [](Opened& opened) {
         dialogs::FParameter dialog(opened.Window().dialog_context());
         const auto name = dialog.cmbVBAlias.List(dialog.cmbVBAlias.ListCount() - 1);
         dialog.cmbVBAlias.Source()->FindPrefix(name);
       },
       0},
  };
}

double Milliseconds(Opened& opened, const Action& action) {
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    action.prepare(opened);
    const Stopwatch stopwatch;
    action.run(opened);
    times.push_back(1e3 * stopwatch.Seconds());
  }
  return Median(times);
}

// One project at a time: there is one data environment in a process.
std::vector<double> MeasureAll(std::size_t aliases) {
  Opened opened(aliases);
  std::vector<double> times;
  for (const Action& action : Actions()) times.push_back(Milliseconds(opened, action));
  return times;
}

void Run() {
  PrintHeading(std::to_string(kMany) + " aliases", std::to_string(kFew));
  const std::vector<double> many = MeasureAll(kMany);
  const std::vector<double> few = MeasureAll(kFew);
  const std::vector<Action> actions = Actions();
  for (std::size_t i = 0; i < actions.size(); ++i) {
    PrintRatio(actions[i].what, many[i], few[i], "ms", actions[i].limit);
  }
}

}  // namespace
}  // namespace bench

int main() { bench::Run(); }
