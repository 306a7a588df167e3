// SPDX-License-Identifier: MIT
// A whole project in memory and a user who follows a script: what the benches of dialogs and of
// the add-in have in common.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "store/operations.h"
#include "tests/support/project_doubles.h"
#include "tests/support/recording_help.h"
#include "tests/support/sample_plant.h"
#include "tests/support/scripted_toolkit.h"
#include "tests/support/sentence.h"

namespace support {

class PlantBench {
 public:
  SamplePlant plant;
  ScriptedToolkit toolkit;
  RecordingHelp help;
  TableItems items;
  RecordingComponentList components;

  virtual ~PlantBench() = default;

  // What the user does in the next dialog.
  template <class Dialog>
  void In(std::function<void(Dialog&)> step) {
    toolkit.OnModal([step = std::move(step)](forms::Form& form) {
      auto* dialog = dynamic_cast<Dialog*>(&form);
      ASSERT_NE(dialog, nullptr) << form.Name();
      step(*dialog);
    });
  }

  // Rows made by the operations; their ID.
  std::int32_t HaveAlias(const std::string& item, const std::string& alias) {
    const std::vector<store::AliasValues> values = {{item, alias}};
    const std::int32_t id = Done(Operations().AddAliases(values));
    AliasAdded();
    return id;
  }
  std::int32_t HaveFormula(const std::string& name, const std::string& prog_id,
                           std::int32_t type = 0) {
    const std::int32_t id = Done(Operations().AddFormula({name, prog_id, type, 0, true, ""}));
    FormulaAdded(id, name);
    return id;
  }
  std::int32_t HaveArgument(std::int32_t formula, std::int32_t alias, bool in, bool out) {
    const std::vector<store::ArgumentValues> values = {{alias, in, out}};
    return Done(Operations().AddArguments(formula, values));
  }

  std::vector<std::string> Aliases() {
    return plant.Rows("TvbfAlias", {"ID", "ItemID", "VBAlias"});
  }
  std::vector<std::string> Arguments() {
    return plant.Rows("TvbfParams", {"ID", "ParentID", "AliasID", "In", "Out"});
  }

 protected:
  virtual store::Operations& Operations() = 0;
  virtual void AliasAdded() = 0;
  virtual void FormulaAdded(std::int32_t, const std::string&) {}

 private:
  static std::int32_t Done(const store::OperationResult& result) {
    EXPECT_TRUE(result.success()) << Sentence(result.message);
    return result.id();
  }
};

}  // namespace support
