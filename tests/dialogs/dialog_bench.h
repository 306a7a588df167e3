// SPDX-License-Identifier: MIT
// The dialogs on a whole project in memory, with a user who follows a script.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "codegen/vb_formula_code.h"
#include "dialogs/argument_dialogs.h"
#include "dialogs/dialog_context.h"
#include "dialogs/falias.h"
#include "dialogs/fchoose_alias.h"
#include "dialogs/formula_dialogs.h"
#include "dialogs/fparameter.h"
#include "store/ado_fro.h"
#include "tests/support/plant_bench.h"
#include "tests/support/recording_add_in.h"

namespace dialogs {

struct DialogBench : support::PlantBench {
  texts::TextTable texts;
  support::RecordingAddIn studio;
  MessageBoxes messages{toolkit, texts};
  FDummyVarOCX dummy{&items};
  codegen::CVBFormulaCode code{texts, &items, &components};
  std::unique_ptr<store::Operations> operations;
  std::shared_ptr<AliasTable> aliases;
  std::unique_ptr<DialogContext> context;

  explicit DialogBench(texts::Language language) : texts(language) {
    items.types = {{"Tank1.Level", 5}, {"Pump.Running", 11}, {"Valve.Open", 11}};
    plant.connection->Open(store::ProjectConnectionString(support::kPlantDatabase));
    code.Initialize(plant.connection, plant.environment, "Plant");
    operations = std::make_unique<store::Operations>(
        store::Operations::Parts{plant.connection, plant.environment, &code, &plant.unit, &texts});
    aliases = std::make_shared<AliasTable>(plant.connection, plant.connection->CreateRecordset(),
                                           *operations, AliasOrder::kName);
    context = std::make_unique<DialogContext>(DialogContext{
        toolkit, texts, messages, *operations, aliases, dummy, &studio, &help, nullptr});
  }

  std::vector<std::string> Formulas() {
    return plant.Rows("TvbfFormulas",
                      {"ID", "Name", "ProgID", "Type", "ScanTime", "Enabled", "Comment"});
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

 protected:
  store::Operations& Operations() override { return *operations; }
  void AliasAdded() override { aliases->Requery(); }
};

}  // namespace dialogs
