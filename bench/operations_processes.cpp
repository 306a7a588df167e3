// SPDX-License-Identifier: MIT
// Each operation as somebody runs it from a shell.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/operations_workload.h"
#include "bench/process.h"
#include "bench/report.h"

namespace bench {
namespace {

struct Command {
  const char* what;
  std::vector<std::string> words;  // behind the program
};

// A formula's life. It leaves the project as it was, but for code that is commented out.
std::vector<Command> Round(const FileProject& project, int round) {
  const std::string number = std::to_string(round);
  const std::string formula = "Added" + number, renamed = "Renamed" + number;
  const std::string alias = "NewAlias" + number, other = "OtherAlias" + number;
  const std::string& path = project.path;
  const std::string first = std::string(kServerName) + "." + ClassName(0);
  const std::string second = std::string(kServerName) + "." + ClassName(1);
  return {
      {"alias add", {"alias", "add", path, "New.Item" + number, alias}},
      {"formula add", {"formula", "add", path, "--name", formula, "--class", first}},
      {"argument add", {"argument", "add", path, formula, alias, "--in"}},
      {"argument edit", {"argument", "edit", path, formula, alias, "--out"}},
      {"alias edit", {"alias", "edit", path, alias, "--alias", other}},
      {"formula edit, new name", {"formula", "edit", path, formula, "--name", renamed}},
      {"formula edit, other class", {"formula", "edit", path, renamed, "--class", second}},
      {"argument delete", {"argument", "delete", path, renamed, other}},
      {"formula delete", {"formula", "delete", path, renamed}},
      {"alias delete", {"alias", "delete", path, other}},
      {"formula show", {"formula", "show", path, FormulaName(7)}},
  };
}

double Seconds(const std::string& program, const Command& command) {
  std::vector<std::string> words = {program};
  words.insert(words.end(), command.words.begin(), command.words.end());
  const ProcessResult result = RunProcess(words);
  if (result.exit_code == 0) return result.seconds;
  std::fprintf(stderr, "%s ended with %d\n", command.what, result.exit_code);
  std::exit(1);
}

}  // namespace

void CompareOperationProcesses(const std::string& program) {
  constexpr int kRounds = 9;
  const FileProject large(kLargeProject), small(kSmallProject);
  // Component lists go there.
  ::setenv("XDG_STATE_HOME", large.folder.File("state").c_str(), 1);
  std::vector<Command> names = Round(large, 0);
  std::vector<std::vector<double>> ours(names.size()), other(names.size());
  for (int round = 0; round < kRounds; ++round) {
    const std::vector<Command> of_large = Round(large, round), of_small = Round(small, round);
    for (std::size_t i = 0; i < names.size(); ++i) {
      ours[i].push_back(1e3 * Seconds(program, of_large[i]));
      other[i].push_back(1e3 * Seconds(program, of_small[i]));
    }
  }
  PrintHeading("10,000", "ten formulas");
  for (std::size_t i = 0; i < names.size(); ++i) {
    PrintRatio(std::string("ovformula ") + names[i].what, Median(ours[i]), Median(other[i]), "ms",
               3);
  }
}

void CompareStart(const std::string& program, const std::string& empty) {
  constexpr int kRounds = 101;
  std::vector<double> ours, other;
  for (int round = 0; round < kRounds; ++round) {
    ours.push_back(1e3 * RunProcess({program, "--version"}).seconds);
    other.push_back(1e3 * RunProcess({empty}).seconds);
  }
  PrintHeading("ovformula", "empty program");
  PrintRatio("ovformula --version", Median(ours), Median(other), "ms", 3);
}

}  // namespace bench
