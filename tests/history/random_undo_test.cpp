// SPDX-License-Identifier: MIT
// Random operations with random undoing and redoing, compared with a model that keeps every state.
#include <cstdlib>
#include <random>

#include "tests/history/plant.h"

namespace history {
namespace {

using State = std::vector<std::string>;

class RandomUndo : public testing::TestWithParam<unsigned> {
 protected:
  RandomUndo() : random_(GetParam()) {
    PutPlant(system_, {{"CPump", "Option Explicit\r\n\r\nPublic Sub Own()\r\n    x = 1\r\nEnd Sub"},
                       {"CTank", "' tank\n\nPrivate mCount As Long\n"}});
    Open();
  }

  void Open() { program_ = std::make_unique<Program>(system_); }
  std::size_t Pick(std::size_t n) { return random_() % n; }
  store::Operations& operations() { return program_->operations(); }
  State Now() { return StateOf(*program_, system_); }

  template <typename Record>
  std::int32_t PickId(const std::vector<Record>& records) {
    return records.empty() ? 1 : records[Pick(records.size())].id;
  }
  std::vector<store::FormulaRecord> Formulas() {
    std::vector<store::FormulaRecord> all;
    operations().ForEachFormula([&](const auto& formula) { all.push_back(formula); });
    return all;
  }
  std::vector<store::AliasRecord> Aliases() {
    std::vector<store::AliasRecord> all;
    operations().ForEachAlias([&](const auto& alias) { all.push_back(alias); });
    return all;
  }

  // Whether an operation was carried out; what it wanted may be refused.
  bool Operate() {
    const std::string name = "N" + std::to_string(Pick(12));
    const std::string prog_id = Pick(2) ? "PumpServer.CPump" : "PumpServer.CTank";
    const std::int32_t formula = PickId(Formulas()), alias = PickId(Aliases());
    switch (Pick(8)) {
      case 0: {
        const store::AliasValues values[] = {{"Item." + name, name}};
        return operations().AddAliases(values).success();
      }
      case 1:
        return operations().AddFormula({"F" + name, prog_id}).success();
      case 2:
      case 3: {
        const store::ArgumentValues values[] = {{alias, true, Pick(2) == 0}};
        return operations().AddArguments(formula, values).success();
      }
      case 4:
        return operations().EditAlias(alias, {"Item." + name, name}).success();
      case 5: {
        store::EditFormulaOptions options;
        options.with_code = Pick(2) == 0;
        return operations().EditFormula(formula, {"F" + name, prog_id, 0, 5}, options).success();
      }
      case 6: {
        const auto arguments = operations().ArgumentsOf(formula);
        const std::int32_t ids[] = {PickId(arguments)};
        if (Pick(3) == 0) return operations().DeleteFormulas({&formula, 1}).success();
        return !arguments.empty() && operations().DeleteArguments(ids).success();
      }
      default:
        return operations().DeleteAliases({&alias, 1}).success();
    }
  }

  std::mt19937 random_;
  files::MemoryFileSystem system_;
  std::unique_ptr<Program> program_;
};

TEST_P(RandomUndo, GoesThroughTheSameStatesBackAndForth) {
  std::vector<State> states = {Now()};
  std::size_t at = 0;
  int undone = 0;
  const int steps = std::getenv("OV_LONG") ? 2000 : 120;
  for (int step = 0; step < steps; ++step) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + " step " + std::to_string(step));
    const State before = Now();
    ASSERT_EQ(before, states[at]);
    const std::size_t what = Pick(20);
    if (what < 10) {
      if (Operate() && Now() != before) {
        states.resize(++at);
        states.push_back(Now());
      }
    } else if (what < 15) {
      const store::OperationResult result = program_->Undo();
      ASSERT_EQ(result.success(), at > 0) << support::ToText(result);
      if (at > 0) --at;
      ++undone;
    } else if (what < 19) {
      const store::OperationResult result = program_->Redo();
      ASSERT_EQ(result.success(), at + 1 < states.size()) << support::ToText(result);
      if (at + 1 < states.size()) ++at;
    } else {
      program_.reset();
      Open();
    }
  }
  EXPECT_GT(undone, steps / 10);
}

// An operation that is not the last is taken back whole, with no trace of it left and all else as
// it is, or not at all.
TEST_P(RandomUndo, TakesOldOperationsBackWholeOrNotAtAll) {
  int taken = 0, refused = 0;
  for (int step = 0; step < 60; ++step) {
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + " step " + std::to_string(step));
    Operate();
    const auto entries = NewestEntries(program_->file(), 8).entries;
    if (entries.empty()) continue;
    const std::uint64_t number = entries[Pick(entries.size())].record.number;
    const State before = Now();
    if (!program_->Undo(number).success()) {
      ++refused;
      ASSERT_EQ(Now(), before);
      continue;
    }
    ++taken;
    ASSERT_TRUE(program_->Redo(number).success() || program_->Undo(number).success());
    ASSERT_EQ(Now(), before);
  }
  EXPECT_GT(taken, 5);
  EXPECT_GT(refused, 5);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomUndo, testing::Range(1u, 7u));

}  // namespace
}  // namespace history
