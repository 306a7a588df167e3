// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "editor/alias_note_rows.h"
#include "editor/commands.h"
#include "editor/editor_context.h"
#include "editor/editor_view.h"
#include "editor/grid_editing.h"
#include "editor/grid_layout.h"
#include "editor/list_commands.h"
#include "editor/status_counters.h"
#include "forms/fields.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/menu_control.h"
#include "forms/status_bar.h"
#include "messages/text_number.h"

namespace editor {

// The editor window: the arguments of the selected formula or the aliases of the project. Closing
// it by the close box hides it; it is unloaded when the add-in ends.
class frmtabgrid : public forms::Form,
                   public EditorView,
                   public GridOwner,
                   public std::enable_shared_from_this<frmtabgrid> {
 private:
  EditorContext context_;

 public:
  // All that is passed by reference outlives the window.
  frmtabgrid(EditorHost& host, const Services& services, const texts::TextTable& texts,
             dialogs::MessageBoxes& messages, Project project);
  ~frmtabgrid() override;

  forms::MenuControl abr{this, "abr"};
  forms::Toolbar tbrfunc{this, "tbrfunc"};
  forms::Label lblFind{this, "lblFind"};
  forms::TextBox txtFind{this, "txtFind"};
  forms::Label lblFound{this, "lblFound"};  // how many rows the search left
  forms::Grid tdbP{this, "tdbP"};
  forms::Splitter pctParamTabSplit{this, "pctParamTabSplit"};
  forms::Grid tdbA{this, "tdbA"};
  forms::Splitter pctAliasTabSplit{this, "pctAliasTabSplit"};
  forms::StatusBar sb{this, "sb"};

  settings::CInit& inits = context_.inits;
  codegen::CVBFormulaCode& cVBF = context_.code;

  // Moves the window to the position that was set while it had no native window.
  void ApplyPosition();

  // --- The selected node ---
  const std::string& CurrentKey() const override { return key_; }
  const std::string& ContextKey() const override { return context_key_; }
  void ShowNode(std::string_view key, std::string_view text) override;
  void Reload() override;
  void VerifyAdds(std::string_view key) override;
  void MakeMyCaption(std::string_view key, std::string_view formula_name) override;
  // Says once why a list that is shown cannot be read.
  void ShowUnreadable();
  // The node that the next command of the tree concerns, and whether labels are shown.
  void SetTreeContext(std::string_view key, bool toolbar_flag);

  // --- Menus and tools ---
  void SwitchGrids(std::string_view key);
  void MenuSwitcher(std::string_view key, bool toolbar_flag);
  void abr_ToolClick(forms::Tool& tool);
  void RunTool(std::string_view name) override;
  void PopupBand(std::string_view name) override;
  void SelectionChanged() override;
  bool ChangeOptions() override;

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

  // Brings a list into the project, with a preview.
  void ImportList(const dialogs::ListToImport& list) { list_commands_.Import(list); }
  // Copies, pastes and moves of many rows at once.
  ListCommands& lists() { return list_commands_; }

  void ShowFind() override;
  void CloseFind();
  // The same from where it is asked for: the keyboard goes to the table, to the row that it is on.
  void LeaveFind();

  forms::Grid& CurrentGrid();
  // What the window works with.
  EditorContext& context() { return context_; }
  const EditorContext& context() const { return context_; }
  store::Operations& operations() { return context_.operations; }
  const dialogs::DialogContext& dialog_context() const { return context_.dialog_context; }
  dialogs::MessageBoxes& messages() { return context_.messages; }
  bool SettingIsOn(std::string_view key) const { return context_.SettingIsOn(key); }
  void AliasesChanged();
  // Positions everything in the client area.
  void abr_Resize(double width, double height);
  // Column order, status bar and splitters after the settings changed.
  void ApplyChangedSettings();

 private:
  void OnLoad();
  void OnQueryUnload(bool& cancel, forms::CloseReason reason);
  void ShowHostWindow();
  void ShowUndo();
  void SaveSettings();
  void RebindGrid(forms::Grid& grid, bool other_rows);
  void ShowEmptyText();
  void ShowAliases();
  void WireEvents();
  void InitializeGrids();
  void InitializeGrid(forms::Grid& grid, std::string_view orders_key);
  std::string Text(messages::TextNumber number) const { return context_.Text(number); }

  struct Position {
    std::int32_t left = 0;
    std::int32_t top = 0;
  };
  Position CurrentPosition() const;
  void MoveTo(const Position& position);

  StatusCounters counters_{sb};
  SplitterDrag parameter_splitter_;
  SplitterDrag alias_splitter_;
  ListCommands list_commands_{context_, *this};
  Commands commands_{context_, *this, list_commands_, tdbP, tdbA, counters_};
  GridEditing grid_editing_{context_, *this, tdbP, tdbA};
  std::shared_ptr<AliasNoteRows> alias_notes_;  // null: nothing is known of items
  std::string key_;
  std::string context_key_;
  std::string told_problem_;
  bool toolbar_flag_ = false;
  bool aliases_seen_ = false;
  bool refreshing_grid_ = false;  // a grid is being reloaded by program
  bool hooked_ = false;
  Position position_;  // while there is no native window, or it is not in its normal state
};

}  // namespace editor
