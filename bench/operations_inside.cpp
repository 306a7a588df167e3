// SPDX-License-Identifier: MIT
// Operations in one process: beside what they cost at least, and their growth.
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/operations_workload.h"
#include "bench/report.h"
#include "bench/sqlite.h"
#include "files/replace_file.h"
#include "project/project.h"

namespace bench {
namespace {

using store::OperationResult;

void Expect(const OperationResult& result, const char* what) {
  if (result.success()) return;
  const texts::TextTable texts(texts::Language::kEnglish);
  std::fprintf(stderr, "%s: %s %s\n", what, texts.Sentence(result.message).c_str(),
               texts.Sentence(result.detail).c_str());
  std::exit(1);
}

// A project that stays open, and a formula's life in it.
class OpenedProject {
 public:
  explicit OpenedProject(const ProjectSize& size, bool with_history = true) : files_(size) {
    project::ProjectOptions options;
    options.with_history = with_history;
    options.state_folder = files_.folder.File("state");
    project_.emplace(files::RealFileSystem(), files_.path, options, texts_);
  }

  const FileProject& files() const { return files_; }
  store::Operations& operations() { return project_->operations(); }

  struct Step {
    const char* what;
    std::function<OperationResult()> run;
    bool changes_two_classes = false;
  };
  // Leaves the project as it was, but for code that is commented out.
  std::vector<Step> Round(int round) {
    const std::string number = std::to_string(round);
    const std::string first = ProgIdOf(0, files_.size), second = ProgIdOf(1, files_.size);
    return {
        {"add an alias",
         [=, this] {
           const store::AliasValues values[] = {{"New.Item" + number, "NewAlias" + number}};
           OperationResult result = operations().AddAliases(values);
           alias_ = result.id();
           return result;
         }},
        {"add a formula",
         [=, this] {
           OperationResult result = operations().AddFormula({"Added" + number, first});
           formula_ = result.id();
           return result;
         }},
        {"add an argument",
         [this] {
           const store::ArgumentValues values[] = {{alias_, true, false}};
           OperationResult result = operations().AddArguments(formula_, values);
           argument_ = result.id();
           return result;
         }},
        {"edit an argument",
         [this] {
           return operations().EditArgument(argument_, {alias_, true, true});
         }},
        {"rename an alias",
         [=, this] {
           return operations().EditAlias(alias_, {"New.Item" + number, "OtherAlias" + number});
         }},
        {"rename a formula",
         [=, this] {
           return operations().EditFormula(formula_, {"Renamed" + number, first});
         }},
        {"move a formula",
         [=, this] {
           return operations().EditFormula(formula_, {"Renamed" + number, second});
         },
         true},
        {"delete an argument",
         [this] {
           return operations().DeleteArguments({&argument_, 1});
         }},
        {"delete a formula",
         [this] {
           return operations().DeleteFormulas({&formula_, 1});
         }},
        {"delete an alias",
         [this] {
           return operations().DeleteAliases({&alias_, 1});
         }},
    };
  }

 private:
  FileProject files_;
  texts::TextTable texts_{texts::Language::kEnglish};
  std::optional<project::Project> project_;
  std::int32_t alias_ = 0, formula_ = 0, argument_ = 0;
};

// What an operation costs at least: two durable transactions and a new class file.
class Floor {
 public:
  explicit Floor(const FileProject& project)
      : sqlite_(project.folder.File("floor.db")), target_(project.folder.File("floor.cls")) {
    files::FileSystem& system = files::RealFileSystem();
    contents_ = files::ReadFile(system, project.folder.File(ClassName(0) + ".cls"));
    sqlite_.Run("PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL");
    sqlite_.Run(
        "CREATE TABLE Alias(ID INTEGER PRIMARY KEY, ItemID TEXT, VBAlias TEXT);"
        "CREATE UNIQUE INDEX VBAlias ON Alias(VBAlias); BEGIN");
    for (std::size_t i = 0; i < project.size.aliases; ++i) Insert(AliasName(i));
    sqlite_.Run("COMMIT");
  }

  struct Times {
    double least = 0;
    double file = 0;  // of that, the new class file
  };
  Times Milliseconds(int round) {
    const Stopwatch all;
    Insert("One" + std::to_string(round));
    Insert("Two" + std::to_string(round));
    const Stopwatch file;
    files::ReplaceFile(files::RealFileSystem(), target_, contents_);
    return {1e3 * all.Seconds(), 1e3 * file.Seconds()};
  }

 private:
  void Insert(const std::string& name) {
    if (!insert_) insert_.emplace(sqlite_, "INSERT INTO Alias(ItemID, VBAlias) VALUES('i', ?1)");
    insert_->Bind(1, std::string_view(name));
    insert_->Step();
    insert_->Reset();
  }

  Sqlite sqlite_;
  std::optional<SqliteStatement> insert_;
  std::string target_;
  std::string contents_;
};

// The time of one of 1,000 arguments in one call, and of one in a call of its own.
void CompareManyArguments(OpenedProject& project) {
  constexpr int kRounds = 5;
  constexpr std::int32_t kMany = 1000;
  std::vector<double> many, one;
  for (int round = 0; round < kRounds; ++round) {
    const OperationResult formula = project.operations().AddFormula(
        {"Many" + std::to_string(round), ProgIdOf(0, project.files().size)});
    Expect(formula, "the formula of many arguments");
    std::vector<store::ArgumentValues> values;
    for (std::int32_t i = 0; i <= kMany; ++i) values.push_back({i + 1, true, false});
    const std::span<const store::ArgumentValues> all = values;
    const auto add = [&](std::span<const store::ArgumentValues> arguments) {
      const Stopwatch watch;
      Expect(project.operations().AddArguments(formula.id(), arguments), "arguments");
      return 1e3 * watch.Seconds();
    };
    one.push_back(add(all.first(1)));
    many.push_back(add(all.subspan(1)));
    const std::int32_t id = formula.id();
    Expect(project.operations().DeleteFormulas({&id, 1}), "the formula of many arguments");
  }
  PrintHeading("1,000", "one");
  PrintRatio("add arguments in one call", Median(many), Median(one), "ms", 20);
}

// Names between the declarations: an alias renamed with its uses beside one without, and a text
// looked for in all classes beside reading their files.
void CompareCode(OpenedProject& project) {
  constexpr int kRounds = 10;
  store::Operations& operations = project.operations();
  store::RenameOptions with_uses;
  with_uses.with_uses = true;
  const auto time = [](const auto& step) {
    const Stopwatch watch;
    step();
    return 1e3 * watch.Seconds();
  };
  std::vector<double> renamed, plain, found, read;
  for (int round = 0; round < kRounds; ++round) {
    const std::string name = "Renamed" + std::to_string(round);
    const auto rename = [&](std::int32_t id, const store::RenameOptions& options) {
      store::AliasValues values = *operations.FindAlias(id);
      values.vb_alias = name + "_" + std::to_string(id);
      Expect(operations.EditAlias(id, values, options), "an alias of a formula");
    };
    renamed.push_back(time([&] { rename(1, with_uses); }));
    plain.push_back(time([&] { rename(2, {}); }));
    found.push_back(time([&] { operations.FindInCode(name, {}); }));
    read.push_back(time([&] {
      const ProjectSize& size = project.files().size;
      for (std::size_t i = 0; i < size.Classes(); ++i) {
        files::ReadFile(files::RealFileSystem(),
                        project.files().folder.File(ClassName(i) + ".cls"));
      }
    }));
  }
  PrintHeading("with uses", "without");
  PrintRatio("rename an alias", Median(renamed), Median(plain), "ms", 0);
  PrintHeading("find", "read files");
  PrintRatio("a name in all code", Median(found), Median(read), "ms", 0);
}

// The times of each step of a round.
std::vector<double> TimesOf(OpenedProject& project, int round) {
  std::vector<double> times;
  for (const OpenedProject::Step& step : project.Round(round)) {
    const Stopwatch watch;
    const OperationResult result = step.run();
    times.push_back(1e3 * watch.Seconds());
    Expect(result, step.what);
  }
  return times;
}

}  // namespace

// The record of an operation costs no sync of its own.
void CompareHistory() {
  constexpr int kRounds = 25;
  OpenedProject kept(kSmallProject), none(kSmallProject, /*with_history=*/false);
  const std::vector<OpenedProject::Step> steps = kept.Round(0);
  std::vector<std::vector<double>> with(steps.size()), without(steps.size());
  for (int round = 0; round < kRounds; ++round) {
    const std::vector<double> one = TimesOf(kept, round), other = TimesOf(none, round);
    for (std::size_t i = 0; i < steps.size(); ++i) {
      with[i].push_back(one[i]);
      without[i].push_back(other[i]);
    }
  }
  PrintHeading("history", "none");
  for (std::size_t i = 0; i < steps.size(); ++i) {
    PrintRatio(steps[i].what, Median(with[i]), Median(without[i]), "ms", 1.2);
  }
}

void CompareOperationsInProcess() {
  constexpr int kRounds = 15;
  OpenedProject large(kLargeProject), tenth(kTenthProject);
  Floor floor(large.files());
  const std::vector<OpenedProject::Step> names = large.Round(0);
  std::vector<std::vector<double>> ours(names.size()), smaller(names.size());
  std::vector<double> least, with_second_file;
  for (int round = 0; round < kRounds; ++round) {
    const auto time = [&](OpenedProject& project, std::vector<std::vector<double>>& times) {
      std::size_t i = 0;
      for (const OpenedProject::Step& step : project.Round(round)) {
        const Stopwatch watch;
        const OperationResult result = step.run();
        times[i++].push_back(1e3 * watch.Seconds());
        Expect(result, step.what);
      }
    };
    time(large, ours);
    time(tenth, smaller);
    for (int i = 0; i < 3; ++i) {
      const Floor::Times times = floor.Milliseconds(3 * round + i);
      least.push_back(times.least);
      with_second_file.push_back(times.least + times.file);
    }
  }
  PrintHeading("operation", "two + a file");
  for (std::size_t i = 0; i < names.size(); ++i) {
    PrintRatio(names[i].what, Median(ours[i]), Median(least), "ms", 1);
    if (names[i].changes_two_classes) {
      PrintRatio("  beside two new files", Median(ours[i]), Median(with_second_file), "ms", 0);
    }
  }
  PrintHeading("100,000", "10,000");
  for (std::size_t i = 0; i < names.size(); ++i) {
    PrintRatio(names[i].what, Median(ours[i]), Median(smaller[i]), "ms", 1.5);
  }
  CompareManyArguments(large);
  CompareCode(large);
}

}  // namespace bench
