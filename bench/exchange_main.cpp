// SPDX-License-Identifier: MIT
// Imports beside what they cost at least: the same rows inserted into tables, and one operation.
// All figures come from one run; smaller is better.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>

#include "bench/folder.h"
#include "bench/make_project.h"
#include "bench/report.h"
#include "exchange/export_text.h"
#include "exchange/import_plan.h"
#include "jet/database.h"
#include "project/project.h"

namespace bench {
namespace {

constexpr int kRounds = 3;

void Expect(const store::OperationResult& result, const char* what) {
  if (result.success()) return;
  std::fprintf(stderr, "%s: %s %s\n", what, result.message.English().c_str(),
               result.detail.English().c_str());
  std::exit(1);
}

// A project whose files are made anew for each round.
class OpenedProject {
 public:
  explicit OpenedProject(const ProjectSize& size) {
    MakeLargeProject(files::RealFileSystem(), path_, size);
    project::ProjectOptions options;
    options.state_folder = folder_.File("state");
    project_.emplace(files::RealFileSystem(), path_, options, texts_);
  }
  store::Operations& operations() { return project_->operations(); }

 private:
  Folder folder_;
  std::string path_ = folder_.File("Plant.ovs");
  texts::TextTable texts_{texts::Language::kEnglish};
  std::optional<project::Project> project_;
};

// Of this process, in MB.
double PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::atof(line.c_str() + 6) / 1024;
  }
  return 0;
}

struct Times {
  double read = 0, plan = 0, all = 0;
};

Times Import(store::Operations& operations, const std::string& list) {
  Times times;
  const Stopwatch watch;
  const exchange::Contents contents = exchange::ReadList(list);
  times.read = watch.Seconds();
  exchange::ImportPlan plan = exchange::PlanImport(contents, operations, {});
  times.plan = watch.Seconds() - times.read;
  if (plan.Count().refused > 0) std::exit(1);
  Expect(exchange::Import(plan, operations, {{exchange::kTextImportTitle}}, {}), "import");
  times.all = watch.Seconds();
  return times;
}

// Names of new aliases behind those of the project.
std::string AliasList(std::size_t first, std::size_t count) {
  std::string list = "Item;Alias;Bemerkung\r\n";
  for (std::size_t i = first; i < first + count; ++i) {
    list += ItemName(i) + ";" + AliasName(i) + ";\r\n";
  }
  return list;
}

double TimeInserts(std::size_t count) {
  const Folder folder;
  const std::string path = folder.File("Plant.ovs");
  MakeLargeDatabase(files::RealFileSystem(), path, {1, 1, 1});
  const auto database = jet::Database::Open(files::RealFileSystem(), path, {});
  jet::Table& table = database->OpenTable("TvbfAlias");
  const std::size_t item = *table.FindColumn("ItemID"), alias = *table.FindColumn("VBAlias");
  const Stopwatch watch;
  jet::Transaction transaction(*database);
  for (std::size_t i = 1; i <= count; ++i) {
    const std::string item_text = ItemName(i), alias_text = AliasName(i);
    const jet::ColumnValue values[] = {{item, jet::Value::Text(item_text)},
                                       {alias, jet::Value::Text(alias_text)}};
    table.Insert(values);
  }
  transaction.Commit();
  return watch.Seconds();
}

void CompareAliases() {
  constexpr std::size_t kAliases = 100000;
  const std::string list = AliasList(1, kAliases);
  std::vector<double> ours, floor;
  Times last;
  const double before = PeakMemory();
  for (int round = 0; round < kRounds; ++round) {
    OpenedProject project({1, 1, 1});
    last = Import(project.operations(), list);
    ours.push_back(last.all);
    if (round == 0) {
      PrintNote("memory for a file of " + std::to_string(list.size() >> 10) +
                " KB: " + std::to_string(PeakMemory() - before) + " MB");
    }
    floor.push_back(TimeInserts(kAliases));
  }
  PrintHeading("import", "inserts");
  PrintRatio("100,000 aliases", Median(ours), Median(floor), "s", 3);
  PrintRatio("  reading the list", last.read, Median(floor), "s", 0);
  PrintRatio("  the plan", last.plan, Median(floor), "s", 0);
}

// 10,000 arguments of 1,000 new formulas in ten classes of 30,000 lines.
void CompareArguments() {
  constexpr ProjectSize kSize{100, 1000, 100, 10, 30000, 0};
  std::string list = "alias;formula;class;in\r\n";
  for (std::size_t formula = 0; formula < 1000; ++formula) {
    for (std::size_t n = 0; n < 10; ++n) {
      list += AliasName((formula * 7 + n) % 1000) + ";New" + std::to_string(formula) + ";" +
              ClassName(formula % 10) + ";x\r\n";
    }
  }
  std::vector<double> ours, one;
  Times last;
  for (int round = 0; round < kRounds; ++round) {
    OpenedProject project(kSize);
    for (int i = 0; i < 5; ++i) {
      const Stopwatch watch;
      const auto added =
          project.operations().AddFormula({"One" + std::to_string(i), ProgIdOf(0, kSize)});
      Expect(added, "formula");
      one.push_back(watch.Seconds());
    }
    last = Import(project.operations(), list);
    ours.push_back(last.all);
  }
  PrintHeading("import", "one operation");
  PrintRatio("10,000 arguments, 1,000 formulas, ten classes", Median(ours), Median(one), "s", 20);
  PrintRatio("  reading the list", last.read, Median(one), "s", 0);
  PrintRatio("  the plan", last.plan, Median(one), "s", 0);
}

void ShowExport() {
  OpenedProject project({1000, 10000, 10000});
  const Stopwatch watch;
  std::size_t bytes = 0;
  exchange::ExportJson(project.operations(), {},
                       [&](std::string_view text) { bytes += text.size(); });
  PrintNote("export of 1,000 formulas, 10,000 aliases and arguments: " +
            std::to_string(watch.Seconds()) + " s, " + std::to_string(bytes >> 10) + " KB");
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const auto wanted = [&](const std::string& name) {
    return arguments.empty() || std::ranges::count(arguments, name) > 0;
  };
  if (wanted("aliases")) bench::CompareAliases();
  if (wanted("arguments")) bench::CompareArguments();
  if (wanted("export")) bench::ShowExport();
  return 0;
}
