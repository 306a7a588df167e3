// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "codegen/vb_formula_code.h"
#include "dialogs/dialog_context.h"
#include "dialogs/dummy_var_ocx.h"
#include "dialogs/message_boxes.h"
#include "editor/editor_host.h"
#include "editor/editor_rows.h"
#include "messages/text_number.h"
#include "platform/ado.h"
#include "platform/vbide.h"
#include "settings/init.h"
#include "store/operations.h"

namespace editor {

// The project that the editor window works on.
struct Project {
  std::shared_ptr<platform::Connection> connection;   // open
  std::shared_ptr<platform::Recordset> grid_aliases;  // closed; of the alias grid
  std::shared_ptr<platform::VBE> vbe;                 // null: rows are changed, and no code
  std::string database_path;
  std::string name;  // of the studio's project
};

// What the window's commands, grids and options work with, complete from the start: the project
// with its operations, code and rows, the settings, the studio and the ways to the user.
class EditorContext : private codegen::CodeWindowCaller {
 public:
  // All that is passed by reference outlives the context; `owner` is the window of its dialogs.
  EditorContext(EditorHost& host, const Services& services, const texts::TextTable& texts,
                dialogs::MessageBoxes& messages, Project project, forms::Form& owner);
  EditorContext(const EditorContext&) = delete;
  EditorContext& operator=(const EditorContext&) = delete;

  EditorHost& host;
  const std::shared_ptr<platform::AddIn> studio;
  const Services services;
  const texts::TextTable& texts;
  dialogs::MessageBoxes& messages;
  const Project project;
  settings::CInit inits;
  codegen::CVBFormulaCode code;
  store::Operations operations;
  EditorRows rows;
  dialogs::FDummyVarOCX items;
  const dialogs::DialogContext dialog_context;

  std::string Text(messages::TextNumber number) const { return texts.Text(number); }
  forms::TextLookup Lookup() const;
  // A switch that is not set at all is on.
  bool SettingIsOn(std::string_view key) const;
  // Beside the database.
  std::string SettingsFile() const;
  // Reads the arguments of the node's formula without touching the grid. Says why when it cannot.
  void ReadArguments(std::string_view key);
  // What the user chose in a dialog is kept in the settings file for the next time.
  void KeepChoices();
  // Shows the procedure in the code window. False when there is none.
  bool ShowFunction(std::string_view prog_id, std::string_view name);

 private:
  bool KeptMoveWithCode() const;
  void BringCodeWindowForward() override { studio->ShowCodeWindow(); }
};

}  // namespace editor
