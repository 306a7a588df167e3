// SPDX-License-Identifier: MIT
// Edits of a large class beside one scan of it, growth with the number of formulas in a class, and
// the renaming of an alias beside single header rebuilds. In memory; all figures come from one
// run, so their ratios mean something on a noisy machine; smaller is better.
//
//   bench_codegen [edits|growth|rename]...
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bench/report.h"
#include "tests/support/formula_project.h"
#include "vbfiles/module_text.h"
#include "vbfiles/source_index.h"

namespace {

constexpr const char* kClass = "PumpServer.CPump";

// Ends the program when something that a figure rests on did not happen.
void Expect(bool fine, const std::string& what) {
  if (fine) return;
  std::fprintf(stderr, "not as expected: %s\n", what.c_str());
  std::exit(1);
}

void ExpectNothingLeftOut(codegen::CVBFormulaCode& code) {
  const auto warnings = code.TakeWarnings();
  Expect(warnings.empty(), warnings.empty() ? "" : support::Sentence(warnings.front()));
}

double Microseconds(const std::function<void()>& call) {
  const bench::Stopwatch watch;
  call();
  return watch.Seconds() * 1e6;
}

// Median of the calls in microseconds; each call gets the number of its round.
double MedianOf(int rounds, const std::function<void(int round)>& call) {
  std::vector<double> times;
  times.reserve(static_cast<std::size_t>(rounds));
  for (int i = 0; i < rounds; ++i) times.push_back(Microseconds([&] { call(i); }));
  return bench::Median(std::move(times));
}

std::string LargeClass(int lines) {
  std::string code = "Option Explicit\r\n";
  for (int i = 0; i < lines / 9; ++i) {
    const std::string number = std::to_string(i);
    code += "\r\n' Note " + number + "\r\nPublic Sub Proc" + number +
            "()\r\n    value = 1 + count * 2\r\n    If ready Then text = \"done\"\r\n"
            "    other = value\r\n    last = other ' kept\r\nEnd Sub\r\n";
  }
  return code;
}

void CompareWithScan() {
  bench::PrintHeading("in 30,000 lines", "one scan");
  constexpr int kRounds = 101;
  const std::string text = LargeClass(30000);
  const vbfiles::ModuleText lines(text, 0);
  const double scan = MedianOf(11, [&](int) {
    const vbfiles::SourceIndex index(lines, vbfiles::CodePage::Get(vbfiles::CodePage::kWestern));
  });
  support::FormulaProject project({{"CPump", text}});
  codegen::CVBFormulaCode& code = project.open->code;
  const platform::UnitOfWorkScope unit(project.open->unit);
  const auto compare = [&](const char* what, const std::function<void(int)>& call) {
    bench::PrintRatio(what, MedianOf(kRounds, call), scan, "us", 1.0);
    ExpectNothingLeftOut(code);
  };
  const auto name = [](const char* base, int i) { return base + std::to_string(i); };
  compare("add a formula", [&](int i) { code.AddFunction(kClass, name("New", i), ""); });
  compare("rename a formula",
          [&](int i) { code.RenameFunction(kClass, name("New", i), name("Other", i)); });
  compare("rebuild a header that changes",
          [&](int i) { code.RebuildFunctionCommentHeader(name("Proc", i * 30), kClass); });
  compare("rebuild a header that stands",
          [&](int i) { code.RebuildFunctionCommentHeader(name("Other", i), kClass); });
  code.SetNeedFunctionName([](std::string& answer) { answer = "Other0"; });
  compare("declare an argument", [&](int i) { code.AddParameter(kClass, name("Level", i), "T"); });
  compare("switch a formula off",
          [&](int i) { code.DeactivateFunction(kClass, name("Other", i)); });
}

// Formulas are added to one class with their rows; the rows are not timed.
void CompareGrowthOfClass() {
  bench::PrintHeading("last", "first");
  constexpr int kBlock = 500;
  support::FormulaProject project;
  codegen::CVBFormulaCode& code = project.open->code;
  store::OperationOptions rows_only;
  rows_only.with_rows_only = true;
  std::vector<double> blocks;
  for (int block = 0; block < 10; ++block) {
    std::vector<std::string> names;
    for (int i = 0; i < kBlock; ++i) {
      names.push_back("Formula" + std::to_string(block * kBlock + i));
      Expect(project.operations().AddFormula({names.back(), kClass}, rows_only).success(), "a row");
    }
    platform::UnitOfWorkScope unit(project.open->unit);
    blocks.push_back(MedianOf(
        kBlock, [&](int i) { code.AddFunction(kClass, names[static_cast<std::size_t>(i)], ""); }));
    unit.Commit();
    ExpectNothingLeftOut(code);
  }
  bench::PrintRatio("add each of formulas 4,501 to 5,000, beside 1 to 500", blocks.back(),
                    blocks.front(), "us", 1.5);
}

// 1,000 formulas in 100 classes use one alias.
class SharedAlias {
 public:
  SharedAlias() : project_(Classes()), alias_(project_.AddAlias("Tank1.Level", name_)) {
    for (int i = 0; i < kFormulas; ++i) {
      const store::ArgumentValues values[] = {{alias_, true, false}};
      const auto formula = operations().AddFormula({Formula(i), Class(i)});
      Expect(operations().AddArguments(formula.id(), values).success(), "an argument");
    }
  }

  // The row gets a name that it never had.
  void RenameRow() {
    store::OperationOptions rows_only;
    rows_only.with_rows_only = true;
    old_name_ = std::exchange(name_, "Level" + std::to_string(++renamed_));
    Expect(operations().EditAlias(alias_, {"Tank1.Level", name_}, rows_only).success(), "a row");
  }
  double RebuildHeadersInOneUnit() {
    return Edit([&] {
      for (int i = 0; i < kFormulas; ++i) code().RebuildFunctionCommentHeader(Formula(i), Class(i));
    });
  }
  // As operations of their own, which look at the class anew. Nothing is written.
  double RebuildHeadersOneByOne() {
    const double time = Microseconds([&] {
      for (int i = 0; i < kFormulas; ++i) {
        const platform::UnitOfWorkScope unit(project_.open->unit);
        code().RebuildFunctionCommentHeader(Formula(i), Class(i));
      }
    });
    ExpectNothingLeftOut(code());
    return time / 1e3;
  }
  double RenameInCode() {
    return Edit([&] { code().RenameAlias(alias_, old_name_, name_); });
  }

 private:
  static constexpr int kClasses = 100;
  static constexpr int kFormulas = 1000;

  static std::map<std::string, std::string> Classes() {
    std::map<std::string, std::string> classes;
    for (int i = 0; i < kClasses; ++i) classes["C" + std::to_string(i)] = "Option Explicit\r\n";
    return classes;
  }
  static std::string Formula(int i) { return "Formula" + std::to_string(i); }
  static std::string Class(int i) { return "PumpServer.C" + std::to_string(i % kClasses); }

  store::Operations& operations() { return project_.operations(); }
  codegen::CVBFormulaCode& code() { return project_.open->code; }
  // The time of the edits alone, in milliseconds.
  double Edit(const std::function<void()>& edits) {
    platform::UnitOfWorkScope unit(project_.open->unit);
    const double time = Microseconds(edits) / 1e3;
    unit.Commit();
    ExpectNothingLeftOut(code());
    return time;
  }

  std::string name_ = "Level";
  std::string old_name_;
  int renamed_ = 0;
  support::FormulaProject project_;
  std::int32_t alias_;
};

void CompareRenameAlias() {
  bench::PrintHeading("RenameAlias", "rebuilds");
  SharedAlias shared;
  std::vector<double> renaming, single, together;
  for (int round = 0; round < 9; ++round) {
    shared.RenameRow();
    single.push_back(shared.RebuildHeadersOneByOne());
    renaming.push_back(shared.RenameInCode());
    shared.RenameRow();
    together.push_back(shared.RebuildHeadersInOneUnit());
  }
  const double rename = bench::Median(renaming);
  bench::PrintRatio("beside 1,000 single header rebuilds", rename, bench::Median(single), "ms",
                    0.3);
  bench::PrintRatio("beside the same rebuilds in one unit of work", rename, bench::Median(together),
                    "ms", 0);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const auto wanted = [&](const std::string& name) {
    return arguments.empty() || std::ranges::count(arguments, name) > 0;
  };
  if (wanted("edits")) CompareWithScan();
  if (wanted("growth")) CompareGrowthOfClass();
  if (wanted("rename")) CompareRenameAlias();
  return 0;
}
