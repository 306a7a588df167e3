// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "codegen/vb_formula_code.h"
#include "dialogs/alias_table.h"
#include "dialogs/dummy_var_ocx.h"
#include "dialogs/message_boxes.h"
#include "dialogs/surroundings.h"
#include "editor/argument_rows.h"
#include "editor/commands.h"
#include "editor/editor_host.h"
#include "editor/grid_editing.h"
#include "editor/grid_layout.h"
#include "editor/status_counters.h"
#include "forms/fields.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/menu_control.h"
#include "forms/status_bar.h"
#include "platform/ado.h"
#include "platform/vbide.h"
#include "settings/init.h"
#include "store/operations.h"

namespace editor {

// The project that the editor window works on.
struct Project {
  std::shared_ptr<platform::Connection> connection;   // open
  std::shared_ptr<platform::Recordset> grid_aliases;  // closed; of the alias grid
  std::string database_path;
  std::string name;  // of the studio's project
};

// The editor window: the arguments of the selected formula or the aliases of the project. Created
// and set up once, in this order: load, InitializeGrids, SetVBInstance, InitializeCodeGenerator.
// Closing it by the close box hides it; it is unloaded when the add-in ends.
class frmtabgrid : public forms::Form,
                   public codegen::CodeWindowCaller,
                   public std::enable_shared_from_this<frmtabgrid> {
 public:
  // All that is passed by reference outlives the window.
  frmtabgrid(EditorHost& host, const Services& services, const texts::TextTable& texts,
             dialogs::MessageBoxes& messages, Project project);
  ~frmtabgrid() override;

  forms::MenuControl abr{this, "abr"};
  forms::Toolbar tbrfunc{this, "tbrfunc"};
  forms::Label lblFind{this, "lblFind"};
  forms::TextBox txtFind{this, "txtFind"};
  forms::Grid tdbP{this, "tdbP"};
  forms::Splitter pctParamTabSplit{this, "pctParamTabSplit"};
  forms::Grid tdbA{this, "tdbA"};
  forms::Splitter pctAliasTabSplit{this, "pctAliasTabSplit"};
  forms::StatusBar sb{this, "sb"};

  settings::CInit inits;
  codegen::CVBFormulaCode cVBF;

  // --- Set up ---
  void InitializeGrids();
  void SetVBInstance(std::shared_ptr<platform::VBE> vb_instance);
  void InitializeCodeGenerator();
  // Moves the window to the position that was set while it had no native window.
  void ApplyPosition();

  // --- The selected node ---
  const std::string& CurrentKey() const { return key_; }
  // Commits what is pending, shows the view of the node and what belongs to it.
  void ShowNode(std::string_view key, std::string_view text);
  // Reads the current view again; rows and selection stay where they were.
  // Says once why a list that is shown cannot be read.
  void TellUnreadable();
  void Reload();
  // The node that the next command of the tree concerns, and whether labels are shown.
  void SetTreeContext(std::string_view key, bool toolbar_flag);
  const std::string& ContextKey() const { return context_key_; }

  void SwitchGrids(std::string_view key);
  void MakeMyCaption(std::string_view key, std::string_view formula_name);
  // Writes the pending edit of the grid that belongs to the key. What cannot be written is shown
  // by the studio and dropped.
  void VerifyAdds(std::string_view key);
  void MenuSwitcher(std::string_view key, bool toolbar_flag);
  // The toolbar follows the grids, unless a menu of the tree is about another node.
  void SelectionChanged();
  void abr_ToolClick(forms::Tool& tool);

  // What losing and regaining the activation do; nothing while a message box is open.
  void Activated();
  void Deactivated();
  // While the window's procedure is hooked the toolkit's own activation events are not used.
  void SetHooked(bool hooked) { hooked_ = hooked; }

  // Pixels from the studio's main window.
  std::int32_t PosLeft() const;
  std::int32_t PosTop() const;
  void SetPosLeft(std::int32_t pixels);
  void SetPosTop(std::int32_t pixels);
  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;

  // The incremental search over the current grid.
  void ShowFind();
  void CloseFind();

  // --- For the commands and the options ---
  forms::Grid& CurrentGrid();
  StatusCounters& Counters() { return counters_; }
  store::Operations& operations() { return *operations_; }
  const dialogs::Surroundings& surroundings() const { return *surroundings_; }
  EditorHost& host() { return host_; }
  platform::AddIn& studio() { return *studio_; }
  const Services& services() const { return services_; }
  dialogs::MessageBoxes& messages() { return messages_; }
  Project& project() { return project_; }
  std::string Text(std::int32_t number) const { return texts_.Text(number); }
  const texts::TextTable& texts() const { return texts_; }
  // True while a grid is being reloaded by program.
  bool RefreshingGrid() const { return refreshing_grid_; }
  // Aliases were added, changed or deleted: lists of them are read again when they are next seen.
  void AliasesChanged();
  // Reads the arguments of the shown formula again without touching the grid.
  void ReadArguments();
  bool SettingIsOn(std::string_view key) const;
  std::string SettingsFile() const;
  // Positions everything in the client area.
  void abr_Resize(double width, double height);
  // Column order, status bar and splitters after the settings changed.
  void ApplyChangedSettings();

  void BringCodeWindowForward() override { studio_->ShowCodeWindow(); }

 private:
  void OnLoad();
  void OnQueryUnload(bool& cancel, forms::CloseReason reason);
  void SaveSettings();
  void RebindGrid(forms::Grid& grid, bool other_rows);
  void ShowEmptyText();
  void InitializeGrid(forms::Grid& grid, std::string_view orders_key);
  forms::TextLookup Lookup() const;

  struct Position {
    std::int32_t left = 0;
    std::int32_t top = 0;
  };
  Position CurrentPosition() const;
  void MoveTo(const Position& position);

  EditorHost& host_;
  std::shared_ptr<platform::AddIn> studio_;
  Services services_;
  const texts::TextTable& texts_;
  dialogs::MessageBoxes& messages_;
  Project project_;
  std::shared_ptr<platform::VBE> vb_instance_;
  dialogs::FDummyVarOCX dummy_var_ocx_;
  std::unique_ptr<store::Operations> operations_;
  std::optional<dialogs::Surroundings> surroundings_;
  std::shared_ptr<ArgumentRows> arguments_ = std::make_shared<ArgumentRows>();
  std::shared_ptr<dialogs::AliasTable> aliases_by_id_;
  std::shared_ptr<dialogs::AliasTable> aliases_by_name_;
  StatusCounters counters_{sb};
  SplitterDrag parameter_splitter_;
  SplitterDrag alias_splitter_;
  Commands commands_{*this};
  GridEditing grid_editing_{*this};
  std::string key_;
  std::string context_key_;
  std::string told_problem_;
  bool toolbar_flag_ = false;
  bool refreshing_grid_ = false;
  bool hooked_ = false;
  Position position_;  // while there is no native window, or it is not in its normal state
};

}  // namespace editor
