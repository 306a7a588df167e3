// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include "bench/codegen_workload.h"
#include "bench/report.h"
#include "tests/support/formula_project.h"

namespace bench {
namespace {

constexpr const char* kClass = "PumpServer.CPump";
constexpr std::size_t kLargeLines = 30000;

void CompareWithScan() {
  support::FormulaProject project({{"CPump", LargeClass(kLargeLines)}});
  codegen::CVBFormulaCode& code = project.open->code;
  const double scan = MedianTime(7, [&](int) {
    vbfiles::Environment environment(project.system);
    environment.Open(support::kProjectPath);
    auto component = environment.FindProject("PumpServer")->FindComponent("CPump");
    Expect(!component->Module()->Members().empty(), "a class without members");
  });
  const auto compare = [&](const std::string& what, const std::function<void(int)>& call) {
    PrintRatio(what, MedianTime(21, call) * 1e3, scan * 1e3, "ms", 1.0);
  };
  compare("add a formula", [&](int i) { code.AddFunction(kClass, "New" + std::to_string(i), ""); });
  compare("rename a formula", [&](int i) {
    code.RenameFunction(kClass, "New" + std::to_string(i), "Other" + std::to_string(i));
  });
  compare("rebuild a header that changes", [&](int i) {
    code.RebuildFunctionCommentHeader("Proc" + std::to_string(i * 50), kClass);
  });
  compare("rebuild a header that stands",
          [&](int i) { code.RebuildFunctionCommentHeader("Other" + std::to_string(i), kClass); });
  Expect(!code.TakeFailure() && code.TakeWarnings().empty(), "an edit failed");
}

void CompareGrowthOfClass() {
  support::FormulaProject project;
  codegen::CVBFormulaCode& code = project.open->code;
  std::vector<double> blocks;
  for (int block = 0; block < 10; ++block) {
    const Stopwatch watch;
    for (int i = 0; i < 500; ++i) {
      code.AddFunction(kClass, "Formula" + std::to_string(block * 500 + i), "");
    }
    blocks.push_back(watch.Seconds() / 500 * 1e6);
  }
  PrintRatio("add: formula 4,501 to 5,000 beside 1 to 500", blocks.back(), blocks.front(), "us",
             1.5);
}

// 1,000 formulas in 100 classes use one alias.
void CompareRenameAlias() {
  constexpr int kClasses = 100;
  constexpr int kFormulas = 1000;
  std::map<std::string, std::string> classes;
  for (int i = 0; i < kClasses; ++i) classes["C" + std::to_string(i)] = "Option Explicit\r\n";
  support::FormulaProject project(classes);
  store::Operations& operations = project.operations();
  const std::int32_t alias = project.AddAlias("Tank1.Level", "Level");
  for (int i = 0; i < kFormulas; ++i) {
    const std::string prog_id = "PumpServer.C" + std::to_string(i % kClasses);
    const store::ArgumentValues values[] = {{alias, true, false}};
    const auto formula = operations.AddFormula({"Formula" + std::to_string(i), prog_id});
    Expect(operations.AddArguments(formula.id(), values).success(), "an argument");
  }
  codegen::CVBFormulaCode& code = project.open->code;
  const auto rebuild_all = [&] {
    for (int i = 0; i < kFormulas; ++i) {
      code.RebuildFunctionCommentHeader("Formula" + std::to_string(i),
                                        "PumpServer.C" + std::to_string(i % kClasses));
    }
  };
  const auto rename_row = [&](const std::string& name) {
    store::OperationOptions rows_only;
    rows_only.with_rows_only = true;
    Expect(operations.EditAlias(alias, {"Tank1.Level", name}, rows_only).success(), "a row");
  };
  std::vector<double> standing, changing, renaming;
  std::string name = "Level";
  for (int round = 0; round < 7; ++round) {
    const Stopwatch stands;
    rebuild_all();
    standing.push_back(stands.Seconds() * 1e3);

    rename_row("Changed" + std::to_string(round));
    const Stopwatch changes;
    rebuild_all();
    changing.push_back(changes.Seconds() * 1e3);

    const std::string next = "Other" + std::to_string(round);
    rename_row(next);
    const Stopwatch renames;
    code.RenameAlias(alias, name, next);
    renaming.push_back(renames.Seconds() * 1e3);
    name = next;
  }
  Expect(!code.TakeFailure(), "RenameAlias");
  const double rename = Median(renaming);
  PrintRatio("beside 1,000 header rebuilds that change", rename, Median(changing), "ms", 0.3);
  PrintRatio("beside 1,000 header rebuilds that stand", rename, Median(standing), "ms", 0);
}

}  // namespace

void CompareGenerator() {
  PrintHeading("generator", "full scan");
  CompareWithScan();
  PrintHeading("last", "first");
  CompareGrowthOfClass();
  PrintHeading("RenameAlias", "rebuilds");
  CompareRenameAlias();
}

std::string LargeClass(std::size_t lines) {
  std::string code = "Option Explicit\r\n";
  for (std::size_t i = 0; i * 8 + 1 < lines; ++i) {
    code += "\r\n' Note " + std::to_string(i) + "\r\nPublic Sub Proc" + std::to_string(i) +
            "()\r\n    value = 1 + count * 2\r\n    If ready Then text = \"done\"\r\n"
            "    other = value\r\n    last = other\r\nEnd Sub\r\n";
  }
  return code;
}

double MedianTime(int rounds, const std::function<void(int round)>& call) {
  std::vector<double> times;
  for (int round = 0; round < rounds; ++round) {
    const Stopwatch watch;
    call(round);
    times.push_back(watch.Seconds());
  }
  return Median(std::move(times));
}

void Expect(bool fine, const std::string& what) {
  if (fine) return;
  std::fprintf(stderr, "not as expected: %s\n", what.c_str());
  std::exit(1);
}

}  // namespace bench
