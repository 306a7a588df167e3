// SPDX-License-Identifier: MIT
// The dialogs on a whole project in memory, with a user who follows a script.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "codegen/vb_formula_code.h"
#include "dialogs/argument_dialogs.h"
#include "dialogs/falias.h"
#include "dialogs/fchoose_alias.h"
#include "dialogs/formula_dialogs.h"
#include "dialogs/fparameter.h"
#include "dialogs/surroundings.h"
#include "store/ado_fro.h"
#include "tests/support/project_doubles.h"
#include "tests/support/recording_add_in.h"
#include "tests/support/recording_help.h"
#include "tests/support/sample_plant.h"
#include "tests/support/scripted_toolkit.h"

namespace dialogs {

struct DialogBench {
  texts::TextTable texts;
  support::SamplePlant plant;
  support::ScriptedToolkit toolkit;
  support::RecordingAddIn studio;
  support::RecordingHelp help;
  support::TableItems items;
  support::RecordingComponentList components;
  MessageBoxes messages{toolkit, texts};
  FDummyVarOCX dummy{&items};
  codegen::CVBFormulaCode code{texts, &items, &components};
  std::unique_ptr<store::Operations> operations;
  std::shared_ptr<AliasTable> aliases;
  std::unique_ptr<Surroundings> surroundings;

  explicit DialogBench(texts::Language language) : texts(language) {
    items.types = {{"Tank1.Level", 5}, {"Pump.Running", 11}, {"Valve.Open", 11}};
    plant.connection->Open(store::ProjectConnectionString(support::kPlantDatabase));
    code.Initialize(plant.connection, plant.environment, "Plant");
    operations = std::make_unique<store::Operations>(
        store::Operations::Parts{plant.connection, plant.environment, &code, &plant.unit, &texts});
    aliases = std::make_shared<AliasTable>(plant.connection, plant.connection->CreateRecordset(),
                                           *operations, AliasOrder::kName);
    surroundings = std::make_unique<Surroundings>(Surroundings{
        toolkit, texts, messages, *operations, aliases, dummy, &studio, &help, nullptr});
  }

  // What the user does in the next dialog.
  template <class Dialog>
  void In(std::function<void(Dialog&)> step) {
    toolkit.OnModal([step = std::move(step)](forms::Form& form) {
      auto* dialog = dynamic_cast<Dialog*>(&form);
      ASSERT_NE(dialog, nullptr) << form.Name();
      step(*dialog);
    });
  }

  std::int32_t HaveAlias(const std::string& item, const std::string& alias) {
    const std::vector<store::AliasValues> values = {{item, alias}};
    const auto result = operations->AddAliases(values);
    EXPECT_TRUE(result.success()) << result.message;
    aliases->Requery();
    return result.id();
  }
  std::int32_t HaveFormula(const std::string& name, const std::string& prog_id,
                           std::int32_t type = 0) {
    const auto result = operations->AddFormula({name, prog_id, type, 0, true, ""});
    EXPECT_TRUE(result.success()) << result.message;
    return result.id();
  }
  std::int32_t HaveArgument(std::int32_t formula, std::int32_t alias, bool in, bool out) {
    const std::vector<store::ArgumentValues> values = {{alias, in, out}};
    const auto result = operations->AddArguments(formula, values);
    EXPECT_TRUE(result.success()) << result.message;
    return result.id();
  }

  std::vector<std::string> Formulas() {
    return plant.Rows("TvbfFormulas",
                      {"ID", "Name", "ProgID", "Type", "ScanTime", "Enabled", "Comment"});
  }
  std::vector<std::string> Aliases() {
    return plant.Rows("TvbfAlias", {"ID", "ItemID", "VBAlias"});
  }
  std::vector<std::string> Arguments() {
    return plant.Rows("TvbfParams", {"ID", "ParentID", "AliasID", "In", "Out"});
  }

  // A procedure with its header as the generator writes it.
  std::string Procedure(const std::string& name, const std::vector<std::string>& arguments) const {
    const bool german = texts.GetLanguage() == texts::Language::kGerman;
    const std::string rule = "'" + std::string(56, '*') + "\r\n";
    std::string text = "\r\n" + rule;
    text += german ? "'OrvanaStudio Formel \"" + name + "\"\r\n'Argumente:\r\n"
                   : "'OrvanaStudio Formula '" + name + "'\r\n'Arguments:\r\n";
    for (const std::string& argument : arguments) text += "'\t" + argument + "\r\n";
    return text + rule + "Public Sub " + name + "()\r\n\r\nEnd Sub\r\n";
  }
};

}  // namespace dialogs
