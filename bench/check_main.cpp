// SPDX-License-Identifier: MIT
// The check of a large project beside one read of all its files by the same engines: every row of
// its tables, every line of its modules, its item catalogue; the data flow around one formula
// beside that of the whole project. Smaller is better.
#include <algorithm>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "bench/folder.h"
#include "bench/make_project.h"
#include "bench/process.h"
#include "bench/report.h"
#include "check/project_parts.h"
#include "files/real_file_system.h"
#include "project/data_flow.h"
#include "project/project.h"

namespace {

constexpr int kRuns = 5;

// What a loop computes goes here, so that the compiler cannot leave the loop out.
volatile std::size_t sink = 0;

void ReadAll(project::Project& project) {
  std::size_t read = 0;
  store::Operations& operations = project.operations();
  operations.ForEachFormula([&](const store::FormulaRecord& row) { read += row.name.size(); });
  operations.ForEachAlias([&](const store::AliasRecord& row) { read += row.vb_alias.size(); });
  operations.ForEachArgument([&](const store::ArgumentRecord& row) { read += row.in; });
  for (const auto& vb_project : project.vb()->VBProjects()) {
    for (const auto& component : vb_project->VBComponents()) {
      platform::CodeModule& module = *component->Module();
      read += module.Lines(1, module.CountOfLines()).size();
    }
  }
  sink = read + project.items().Catalogue().size();
}

// The processor's time, since other programs run, too.
double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// The shortest of some runs, each with the project opened anew.
double Seconds(files::FileSystem& system, const std::string& path, const texts::TextTable& texts,
               const std::function<void(project::Project&)>& work) {
  double shortest = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    project::ProjectOptions options;
    options.read_only = true;
    const double begin = ProcessorSeconds();
    project::Project project(system, path, options, texts);
    work(project);
    shortest = std::min(shortest, ProcessorSeconds() - begin);
  }
  return shortest;
}

}  // namespace

int main(int, char** argv) {
  const bench::Folder folder;
  const std::string path = folder.File("Plant.ovs");
  files::FileSystem& system = files::RealFileSystem();
  bench::ProjectSize size;
  size.items = size.aliases;
  bench::MakeLargeProject(system, path, size);
  const texts::TextTable texts(texts::Language::kEnglish);
  bench::PrintHeading("check", "one read");
  const double check = Seconds(system, path, texts, [](project::Project& project) {
    sink = check::Find(check::PartsOf(project), {check::Severity::kWarning, {}, {}}).size();
  });
  const double read = Seconds(system, path, texts, ReadAll);
  bench::PrintRatio("10,000 formulas, 100,000 aliases", 1e3 * check, 1e3 * read, "ms", 10);
  bench::PrintHeading("data flow", "of it all");
  const double part = Seconds(system, path, texts, [](project::Project& project) {
    sink = project::ReadNeighbourhood(project.operations(), project.vb().get(), {{500}, {}}, 2)
               .edges.size();
  });
  const double whole = Seconds(system, path, texts, [](project::Project& project) {
    sink = project::ReadDataFlow(project.operations(), project.vb().get()).edges.size();
  });
  bench::PrintRatio("around one formula, two steps", 1e3 * part, 1e3 * whole, "ms", 0.5);
  const std::string self = argv[0];
  const bench::ProcessResult process = bench::RunProcess(
      {self.substr(0, self.rfind('/') + 1) + "ovformula", "check", path, "--severity", "warning"});
  bench::PrintHeading("ovformula check", "allowed");
  bench::PrintRatio("memory", process.peak_mib, 200, "MiB", 1);
  return 0;
}
