// SPDX-License-Identifier: MIT
// Random operations on random modules: no line that an engineer wrote is ever lost, and the code
// says what the rows say. The judge is tags in the lines and a reader of its own, not the scanner
// that the system uses.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>

#include "check/check.h"
#include "platform/text.h"
#include "tests/store/tagged_module.h"
#include "tests/support/code_model_wrappers.h"
#include "tests/support/formula_project.h"

namespace store {
namespace {

std::vector<std::string> SplitText(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find("\r\n", at);
    lines.push_back(text.substr(at, end - at));
    if (end == std::string::npos) break;
    at = end + 2;
  }
  return lines;
}

std::string Tag(const std::string& line) {
  for (std::size_t at = line.find('T'); at != std::string::npos; at = line.find('T', at + 1)) {
    const std::size_t end = line.find_first_not_of("0123456789", at + 1);
    if (end != std::string::npos && end > at + 1 && line[end] == 'T') {
      return line.substr(at, end - at + 1);
    }
  }
  return {};
}

std::string Trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool StartsWith(const std::string& line, std::initializer_list<const char*> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](const char* word) { return line.starts_with(word); });
}

// The name that a statement outside of procedures declares, without regard to case; empty for
// none. A property may be declared several times.
std::string DeclaredName(const std::string& code) {
  std::istringstream words(code);
  for (std::string word; words >> word;) {
    if (word == "Public" || word == "Private" || word == "Dim" || word == "Static" ||
        word == "Sub" || word == "Function" || word == "Const" || word == "WithEvents") {
      continue;
    }
    if (word == "Option" || word == "Friend" || word == "Type") return {};
    return platform::FoldCase(word.substr(0, word.find_first_of("(,:")));
  }
  return {};
}

// What is wrong with a module's text: procedures that are not closed or stand in each other,
// members of one name, #If blocks that do not match, hidden lines that hang on something else.
std::string Broken(const std::vector<std::string>& lines) {
  std::set<std::string> members;
  bool in_procedure = false;
  int conditions = 0;
  bool comment = false;  // continued from the line above
  std::string statement;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string line = Trim(lines[i]);
    const bool continues = lines[i].ends_with(" _");
    const std::string where = std::to_string(i + 1) + ": " + line;
    if (line.starts_with("Attribute ")) {
      const std::string name = line.substr(10, line.find('.') - 10);
      if (line.find('.') != std::string::npos && statement.find(name) == std::string::npos) {
        return "hidden line away from its declaration " + where;
      }
      continue;
    }
    const bool is_comment = comment || line.starts_with("'") || line.starts_with("Rem ");
    comment = is_comment && continues;
    if (is_comment) continue;
    statement = i > 0 && lines[i - 1].ends_with(" _") ? statement + line : line;
    if (line.starts_with("#If")) ++conditions;
    if (line.starts_with("#End If") && --conditions < 0) return "#End If " + where;
    const std::string code = Trim(line.substr(0, line.find(" '")));
    const bool begins = StartsWith(code, {"Public Sub", "Private Sub", "Sub", "Private Static Sub",
                                          "Public Function", "Friend Property"});
    const bool ends = code.ends_with("End Sub") || code.ends_with("End Function") ||
                      code.ends_with("End Property");
    if (code == "Sub As Long") continue;
    if (begins && in_procedure) return "nested " + where;
    const bool declares = begins || code.starts_with("Public ") || code.starts_with("Private ");
    if (declares && conditions == 0) {
      const std::string name = DeclaredName(code);
      if (!name.empty() && !members.insert(name).second) return "declared twice " + where;
    }
    if (begins) in_procedure = true;
    if (ends && !in_procedure) return "end without begin " + where;
    if (ends) in_procedure = false;
  }
  if (in_procedure) return "procedure without end";
  return conditions == 0 ? "" : "#If without #End If";
}

// What a module declares, as far as it concerns formulas. Names are in lower case.
struct Declared {
  std::map<std::string, std::vector<std::string>> subs;  // aliases that the header lists, by name
  std::set<std::string> variables;                       // public ones
  std::set<std::string> generated;                       // those of them that the system wrote
};

// The aliases in the header above the line: comments up to the second rule.
std::vector<std::string> HeaderAbove(const std::vector<std::string>& lines, std::size_t line) {
  const std::string rule = "'" + std::string(56, '*');
  std::vector<std::string> aliases;
  for (int rules = 0; line > 0 && rules < 2 && lines[line - 1].starts_with('\''); --line) {
    const std::string& comment = lines[line - 1];
    if (comment == rule) ++rules;
    if (comment.starts_with("'\t")) aliases.push_back(comment.substr(2));
  }
  std::sort(aliases.begin(), aliases.end());
  return aliases;
}

Declared ReadModule(const std::vector<std::string>& lines) {
  Declared declared;
  bool continued = false;  // a comment from the line above
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string line = Trim(lines[i]);
    const bool is_comment = continued || line.starts_with('\'') || line.starts_with("Rem ");
    continued = lines[i].ends_with(" _") && (is_comment || line.find('\'') != std::string::npos);
    if (is_comment) continue;
    const std::string code = line.substr(0, line.find('\''));
    if (StartsWith(code, {"Public Sub ", "Private Sub ", "Private Static Sub ", "Sub "})) {
      declared.subs.try_emplace(DeclaredName(code), HeaderAbove(lines, i));
    } else if (code.starts_with("Public ") && !code.starts_with("Public Function ")) {
      std::istringstream names(code.substr(7));
      for (std::string name; std::getline(names, name, ',');) {
        declared.variables.insert(DeclaredName(name));
        if (name.find(" as ") != std::string::npos) declared.generated.insert(DeclaredName(name));
      }
    }
  }
  return declared;
}

class RandomOperations {
 public:
  RandomOperations(unsigned seed, bool documented) : random_(seed) {
    std::map<std::string, std::string> classes;
    for (const char* name : kClasses) {
      const TaggedModule module(random_);
      for (const std::string& line : module.lines()) Remember(name, line);
      classes[name] = module.Text();
    }
    project_.emplace(classes, seed % 2 ? texts::Language::kEnglish : texts::Language::kGerman);
    if (documented) {
      project_->open->Use(support::WithDocumentedOwnership(project_->open->environment));
    }
  }

  void Run(int count) {
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
      step_ = "step " + std::to_string(i) + ' ';
      Step();
      Check();
      if (i % 5 == 0) CheckFindsNothing();
    }
  }
  int done() const { return done_; }
  int refused() const { return refused_; }

 private:
  static constexpr const char* kClasses[] = {"CPump", "CTank"};

  unsigned Pick(std::size_t n) { return random_() % static_cast<unsigned>(n); }
  std::string PickClass() { return std::string("PumpServer.") + kClasses[Pick(2)]; }
  // Formulas have names of their own, or those of procedures that stand in the classes.
  std::string PickName() {
    return Pick(4) == 0 ? "Own" + std::to_string(Pick(5)) : "Formula" + std::to_string(Pick(6));
  }
  std::string PickAlias() {
    static const char* const kNames[] = {"Level", "Pump",     "Flow", "Limit", "mCount",
                                         "Speed", "Pressure", "Own1", "mPort", "LEVEL2"};
    return kNames[Pick(std::size(kNames))];
  }
  std::optional<FormulaRecord> PickFormula() {
    std::vector<FormulaRecord> all;
    operations().ForEachFormula([&](const FormulaRecord& formula) { all.push_back(formula); });
    if (all.empty()) return std::nullopt;
    return all[Pick(all.size())];
  }
  std::optional<AliasRecord> PickStoredAlias() {
    std::vector<AliasRecord> all;
    operations().ForEachAlias([&](const AliasRecord& alias) { all.push_back(alias); });
    if (all.empty()) return std::nullopt;
    return all[Pick(all.size())];
  }
  Operations& operations() { return project_->operations(); }

  void Note(const std::string& what, const OperationResult& result) {
    ++(result.success() ? done_ : refused_);
    step_ += what + ": " + support::ToText(result) + "; ";
    EXPECT_NE(result.outcome, Outcome::kFileProblem) << step_;
  }

  void Step() {
    switch (Pick(9)) {
      case 0:
      case 1: {
        const std::string name = PickName();
        Note("add " + name, operations().AddFormula({name, PickClass(), 2, 0, true, "c"}));
        break;
      }
      case 2:
        if (auto formula = PickFormula()) {
          FormulaValues values = *formula;
          if (Pick(2) == 0) values.name = PickName();
          if (Pick(2) == 0) values.prog_id = PickClass();
          EditFormulaOptions options;
          options.with_code = Pick(2) == 0;
          Note("edit " + formula->name + " to " + values.prog_id + "." + values.name,
               operations().EditFormula(formula->id, values, options));
        }
        break;
      case 3:
        if (auto formula = PickFormula(); formula && Pick(3) == 0) {
          Note("delete " + formula->name,
               operations().DeleteFormulas(std::vector<std::int32_t>{formula->id}));
        }
        break;
      case 4: {
        const AliasValues values[] = {{"Plant." + PickAlias() + " _", PickAlias()}};
        Note("alias " + values[0].vb_alias, operations().AddAliases(values));
        break;
      }
      case 5:
        if (auto alias = PickStoredAlias()) {
          AliasValues values = *alias;
          if (Pick(3) > 0) values.vb_alias = PickAlias();
          if (Pick(3) == 0) values.item_id = "Plant.x'y:End Sub";
          Note("rename alias " + alias->vb_alias + " to " + values.vb_alias,
               operations().EditAlias(alias->id, values));
        }
        break;
      case 6:
        StepArgument();
        break;
      default:
        Engineer();
    }
  }

  void StepArgument() {
    const auto formula = PickFormula();
    const auto alias = PickStoredAlias();
    if (!formula || !alias) return;
    const std::vector<ArgumentRecord> arguments = operations().ArgumentsOf(formula->id);
    const ArgumentValues values = {alias->id, Pick(2) == 0, Pick(2) == 0};
    if (arguments.empty() || Pick(2) == 0) {
      Note("argument " + alias->vb_alias + " of " + formula->name,
           operations().AddArguments(formula->id, {&values, 1}));
      return;
    }
    const ArgumentRecord& argument = arguments[Pick(arguments.size())];
    if (Pick(2) == 0) {
      Note("exchange " + argument.vb_alias + " for " + alias->vb_alias + " of " + formula->name,
           operations().EditArgument(argument.id, values));
    } else {
      Note("delete argument " + argument.vb_alias + " of " + formula->name,
           operations().DeleteArguments(std::vector<std::int32_t>{argument.id}));
    }
  }

  // The engineer writes a comment anywhere, or a statement into a formula.
  void Engineer() {
    const std::string name = kClasses[Pick(2)];
    platform::CodeModule& module =
        *project_->open->environment->FindProject("PumpServer")->FindComponent(name)->Module();
    platform::UnitOfWorkScope unit(project_->open->unit);
    std::string text = "' " + TaggedModule::NextTag();
    std::int32_t line =
        static_cast<std::int32_t>(Pick(static_cast<std::size_t>(module.CountOfLines()) + 1)) + 1;
    if (auto formula = PickFormula(); formula && Pick(2) == 0) {
      if (!platform::EqualsIgnoringCase(formula->prog_id, "PumpServer." + name)) return;
      try {
        line = module.ProcBodyLine(formula->name, platform::ProcKind::kProc) + 1;
        text = "    x" + TaggedModule::NextTag() + " = 1";
      } catch (const platform::Error&) {
        return;
      }
    }
    if (line > 1 && module.Lines(line - 1, 1).ends_with(" _")) return;
    if (text[0] != '\'' && module.Lines(line - 1, 1).find(": End Sub") != std::string::npos) return;
    module.InsertLines(line, text);
    unit.Commit();
    Remember(name, text);
    step_ += "engineer writes " + text + " into " + name + " at " + std::to_string(line);
  }

  void Remember(const std::string& name, const std::string& line) {
    const std::string tag = Tag(line);
    if (!tag.empty()) tagged_[tag] = {name, line};
  }

  void Check() {
    std::map<std::string, std::vector<std::string>> texts;
    for (const char* name : kClasses) texts[name] = SplitText(project_->Code(name));
    for (const auto& [tag, place] : tagged_) CheckTag(tag, place.first, place.second, texts);
    for (const auto& [name, lines] : texts) {
      const std::string broken = Broken(lines);
      ASSERT_EQ(broken, "") << step_ << "\n" << project_->Code(name);
    }
    CheckCodeSaysWhatRowsSay(texts);
  }

  // What is wrong in the rows' and the code's own eyes; hints, and what procedures do with
  // aliases, are the engineer's.
  void CheckFindsNothing() {
    support::OpenProject& open = *project_->open;
    const check::Parts parts{support::kDatabasePath, *open.operations, open.code.context(),
                             *open.connection};
    check::Options options;
    options.least = check::Severity::kWarning;
    options.silenced = {&check::rule::kNoArgumentOfUse, &check::rule::kOutNeverWritten};
    for (const check::Finding& finding : check::Find(parts, options)) {
      ADD_FAILURE() << step_ << "\n"
                    << finding.rule->code << ' ' << finding.where.file << ':' << finding.where.line
                    << ' ' << open.texts.Sentence(finding.message);
    }
  }

  void CheckTag(const std::string& tag, const std::string& name, const std::string& original,
                const std::map<std::string, std::vector<std::string>>& texts) {
    const std::vector<std::string>& lines = texts.at(name);
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
      return line.find(tag) != std::string::npos;
    });
    ASSERT_NE(found, lines.end()) << step_ << "\nlost: " << original << "\n"
                                  << project_->Code(name);
    // A formula's declaration and its hidden lines take its name; all else is as it was.
    if (original.find("Sub Own") != std::string::npos || original.starts_with("Attribute")) return;
    std::string now = *found;
    while (now.starts_with('\'') && now != original) now.erase(0, 1);
    ASSERT_EQ(now, original) << step_;
  }

  void CheckCodeSaysWhatRowsSay(const std::map<std::string, std::vector<std::string>>& texts) {
    std::vector<FormulaRecord> formulas;
    operations().ForEachFormula([&](const FormulaRecord& f) { formulas.push_back(f); });
    for (const auto& [name, lines] : texts) {
      Declared declared = ReadModule(lines);
      for (const FormulaRecord& formula : formulas) {
        if (formula.prog_id != "PumpServer." + name) continue;
        const auto sub = declared.subs.find(platform::FoldCase(formula.name));
        ASSERT_NE(sub, declared.subs.end()) << step_ << formula.name;
        std::vector<std::string> aliases;
        for (const ArgumentRecord& argument : operations().ArgumentsOf(formula.id)) {
          const std::string alias = platform::FoldCase(argument.vb_alias);
          aliases.push_back(argument.vb_alias);
          EXPECT_TRUE(declared.variables.contains(alias)) << step_ << alias;
          declared.generated.erase(alias);
        }
        std::sort(aliases.begin(), aliases.end());
        EXPECT_EQ(sub->second, aliases) << step_ << formula.name << "\n" << project_->Code(name);
      }
      EXPECT_TRUE(declared.generated.empty())
          << step_ << "declared without use: " << *declared.generated.begin();
    }
    CheckRebuilds(formulas);
  }

  // What an engineer wrote into a header leaves it once; then nothing changes.
  void CheckRebuilds(const std::vector<FormulaRecord>& formulas) {
    platform::UnitOfWorkScope unit(project_->open->unit);
    RebuildAll(formulas);
    unit.Commit();
    RebuildAll(formulas);
    files::ChangeSet changes;
    project_->open->environment->Collect(changes);
    ASSERT_TRUE(changes.files.empty()) << step_ << "a second rebuild changed a file";
  }

  void RebuildAll(const std::vector<FormulaRecord>& formulas) {
    for (const FormulaRecord& formula : formulas) {
      project_->open->code.RebuildFunctionCommentHeader(formula.name, formula.prog_id);
    }
  }

  std::mt19937 random_;
  std::optional<support::FormulaProject> project_;
  std::map<std::string, std::pair<std::string, std::string>> tagged_;  // class and line by tag
  std::string step_;
  int done_ = 0;
  int refused_ = 0;
};

class RandomOperationsTest : public testing::TestWithParam<bool> {};

TEST_P(RandomOperationsTest, LoseNothingAndKeepCodeAndRowsTogether) {
  const bool long_run = std::getenv("OV_LONG") != nullptr;
  const unsigned seeds = long_run ? 50 : 3;
  const int count = long_run ? 200 : 60;
  int done = 0;
  int refused = 0;
  for (unsigned seed = 1; seed <= seeds && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomOperations operations(seed, GetParam());
    operations.Run(count);
    done += operations.done();
    refused += operations.refused();
  }
  // Neither all of them nor none of them may have been carried out.
  EXPECT_GT(done, static_cast<int>(seeds) * count / 4);
  EXPECT_GT(refused, static_cast<int>(seeds) * count / 20);
}

INSTANTIATE_TEST_SUITE_P(Ownership, RandomOperationsTest, testing::Values(false, true),
                         [](const auto& param) { return param.param ? "Documented" : "Ours"; });

}  // namespace
}  // namespace store
