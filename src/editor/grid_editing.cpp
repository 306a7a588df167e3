// SPDX-License-Identifier: MIT
#include "editor/grid_editing.h"

#include <memory>

#include "dialogs/argument_dialogs.h"
#include "dialogs/outcome.h"
#include "editor/frmtabgrid.h"
#include "editor/tools.h"
#include "store/text_numbers.h"

namespace editor {

namespace {

constexpr std::int32_t kDataErrorText = 407;
constexpr std::int32_t kUnknownAlias = 1619;
constexpr std::int32_t kRowGone = 1626;

// Number of the errors that the data layer below a grid reports.
constexpr std::int32_t kDataError = 32;

// German in every language, on purpose.
constexpr const char* kDuplicateName = "Doppelter Name";

constexpr std::int16_t kKeyF = 70;
constexpr std::int16_t kKeyO = 79;

void AppendLine(std::string& text, const std::string& line) {
  if (line.empty()) return;
  if (!text.empty()) text += '\n';
  text += line;
}

}  // namespace

GridEditing::GridEditing(frmtabgrid& window) : window_(window) {
  Wire(window_.tdbP, {"mnuParameterNew", "mnuParameterEdit", "mnuParameterDelete", kParameterBand,
                      kAliasIdColumn});
  Wire(window_.tdbA, {"mnuAliasNew", "mnuAliasEdit", "mnuAliasDelete", kAliasBand, kItemIdColumn});
  window_.tdbP.on_write = [this](std::int64_t id, const std::vector<forms::CellChange>& changes) {
    WriteArgument(id, changes);
  };
  window_.tdbA.on_write = [this](std::int64_t id, const std::vector<forms::CellChange>& changes) {
    WriteAlias(id, changes);
  };
}

void GridEditing::Wire(forms::Grid& grid, const GridCommands& commands) {
  grid.on_key_down = [this, &grid, commands](forms::KeyEvent& event) {
    OnKey(grid, commands, event);
  };
  grid.on_selection = [this] { window_.SelectionChanged(); };
  grid.on_current_row = [this] { window_.SelectionChanged(); };
  grid.on_mouse_up = [this, commands](const forms::MouseEvent& event) {
    OnMouseUp(commands, event);
  };
  grid.on_double_click = [this, commands] {
    window_.MenuSwitcher(window_.CurrentKey(), false);
    Click(commands.edit_tool);
  };
  grid.on_button_click = [this, &grid](std::size_t column) { ChooseCell(grid, column); };
  grid.on_after_column_update = [&grid](std::size_t) { grid.Update(); };
  grid.on_error = [this, &grid](const forms::GridError& error) { OnError(grid, error); };
}

// --- Keys and mouse ---

void GridEditing::OnKey(forms::Grid& grid, const GridCommands& commands, forms::KeyEvent& event) {
  struct KeyCommand {
    std::int16_t key_code;
    std::int16_t shift;
    const char* tool;
  };
  const KeyCommand keys[] = {
      {forms::kKeyF8, 0, commands.new_tool},
      {forms::kKeyF9, 0, commands.edit_tool},
      {forms::kKeyDelete, forms::kControl, commands.delete_tool},
  };
  for (const KeyCommand& key : keys) {
    if (event.key_code != key.key_code || event.shift != key.shift) continue;
    event.handled = true;
    window_.MenuSwitcher(window_.CurrentKey(), false);
    Click(key.tool);
    return;
  }
  const bool up = event.key_code == forms::kKeyUp;
  if (event.shift == forms::kShift && (up || event.key_code == forms::kKeyDown)) {
    event.handled = true;
    ExtendSelection(grid, up);
  } else if (event.shift == forms::kControl && event.key_code == kKeyO) {
    event.handled = true;
    if (grid.CurrentColumn() == commands.chooser_column) {
      ChooseCell(grid, commands.chooser_column);
    } else {
      window_.services().toolkit.Beep();
    }
  } else if (event.shift == forms::kControl && event.key_code == kKeyF) {
    event.handled = true;
    window_.ShowFind();
  } else if (event.shift == forms::kAlt && event.key_code == forms::kKeyF6) {
    event.handled = true;
    window_.studio().ActivateTree();
  }
}

void GridEditing::OnMouseUp(const GridCommands& commands, const forms::MouseEvent& event) {
  if (event.button != forms::kRightButton) return;
  window_.MenuSwitcher(window_.CurrentKey(), false);
  const dialogs::MessageBoxes::Guard guard(window_.messages());
  window_.services().toolkit.PopupMenu(*window_.abr.FindBand(commands.band));
}

void GridEditing::Click(const char* tool_name) {
  window_.abr_ToolClick(*window_.abr.FindTool(tool_name));
}

// The row that becomes current joins the selection; going back over a selected row takes the row
// that is left out of it.
void GridEditing::ExtendSelection(forms::Grid& grid, bool up) {
  const auto position = grid.CurrentPosition();
  if (!position) return;
  if (up ? *position == 0 : *position + 1 >= grid.RowCount()) return;
  const std::int64_t left = *grid.CurrentId();
  const std::int64_t entered = grid.IdAt(up ? *position - 1 : *position + 1);
  std::vector<std::int64_t> selection = grid.SelectedIds();
  const bool back = grid.IsSelected(entered) && grid.IsSelected(left);
  if (!grid.SetCurrentId(entered)) return;
  if (back) {
    std::erase(selection, left);
  } else {
    selection.push_back(left);
    selection.push_back(entered);
  }
  grid.SetSelection(selection);
}

void GridEditing::ChooseCell(forms::Grid& grid, std::size_t column) {
  const auto current = grid.CurrentPosition();
  if (!current) return;
  if (&grid == &window_.tdbA) {
    const auto item = window_.studio().ChooseItem(grid.ShownCell(*current, column).ToText());
    if (item && item->find_first_not_of(' ') != std::string::npos) grid.EditCell(column, *item);
    return;
  }
  store::Operations& operations = window_.operations();
  const auto argument = operations.FindArgument(static_cast<std::int32_t>(*grid.CurrentId()));
  const auto chosen =
      dialogs::ChooseAlias(window_.surroundings(), argument ? argument->alias_id : 0);
  if (!chosen) return;
  if (const auto alias = operations.FindAlias(*chosen)) grid.EditCell(column, alias->vb_alias);
}

// --- Writing ---

void GridEditing::Fail(std::int32_t number, const std::string& prompt, const std::string& detail) {
  detail_ = detail;
  throw platform::Error(platform::ErrorKind::kRefused, number, prompt);
}

void GridEditing::FailUnlessDone(const store::OperationResult& result) {
  if (result.success()) return;
  if (result.text_id == store::kTextAliasTaken || result.text_id == store::kTextArgumentExists) {
    Fail(platform::kErrErrorsOccurred, kDuplicateName, dialogs::Explanation(result));
  }
  const bool file_problem = result.outcome == store::Outcome::kFileProblem;
  Fail(file_problem ? kDataError : platform::kErrUnspecified, result.message, result.detail);
}

void GridEditing::WriteArgument(std::int64_t id, const std::vector<forms::CellChange>& changes) {
  store::Operations& operations = window_.operations();
  const auto argument_id = static_cast<std::int32_t>(id);
  const auto argument = operations.FindArgument(argument_id);
  if (!argument) Fail(platform::kErrNoCurrentRecord, window_.Text(kRowGone), {});
  store::ArgumentValues values = *argument;
  for (const forms::CellChange& change : changes) {
    if (change.column == kInColumn) values.in = change.new_value.ToBool();
    if (change.column == kOutColumn) values.out = change.new_value.ToBool();
    if (change.column != kAliasIdColumn) continue;
    const std::string name = change.new_value.ToText();
    const auto alias = operations.FindAliasByName(name);
    if (!alias) {
      Fail(platform::kErrUnspecified, window_.texts().Text(kUnknownAlias, {{"<Name>", name}}), {});
    }
    values.alias_id = alias->id;
  }
  FailUnlessDone(dialogs::Carry(window_.surroundings(),
                                [&] { return operations.EditArgument(argument_id, values); }));
  window_.ReadArguments();
}

void GridEditing::WriteAlias(std::int64_t id, const std::vector<forms::CellChange>& changes) {
  store::Operations& operations = window_.operations();
  const auto alias_id = static_cast<std::int32_t>(id);
  const auto alias = operations.FindAlias(alias_id);
  if (!alias) Fail(platform::kErrNoCurrentRecord, window_.Text(kRowGone), {});
  store::AliasValues values = *alias;
  for (const forms::CellChange& change : changes) {
    if (change.column == kItemIdColumn) values.item_id = change.new_value.ToText();
    if (change.column == kVBAliasColumn) values.vb_alias = change.new_value.ToText();
  }
  FailUnlessDone(dialogs::Carry(window_.surroundings(),
                                [&] { return operations.EditAlias(alias_id, values); }));
  window_.AliasesChanged();
}

void GridEditing::OnError(forms::Grid& grid, const forms::GridError& error) {
  if (silent_) return;
  const std::string detail = TakeDetail();
  if (error.number == kDataError) {
    std::string cause = window_.texts().Sentence(error.message);
    AppendLine(cause, detail);
    window_.messages().Warn(
        window_.texts().Text(kDataErrorText, {{"<DataError>", std::to_string(error.number)}}),
        cause);
    grid.CancelUpdate();
    window_.Reload();
    if (grid.RowCount() > 0) grid.SetCurrentId(grid.IdAt(0));
    return;
  }
  window_.services().toolkit.Beep();
  grid.CancelUpdate();
  window_.messages().Warn(window_.texts().Sentence(error.message), detail);
  window_.Reload();
}

}  // namespace editor
