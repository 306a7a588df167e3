// SPDX-License-Identifier: MIT
#include "editor/grid_editing.h"

#include <memory>

#include "dialogs/argument_dialogs.h"
#include "dialogs/outcome.h"
#include "dialogs/row_merge.h"
#include "editor/grid_columns.h"
#include "editor/tools.h"
#include "messages/text_number.h"
#include "store/operation_texts.h"

namespace editor {

namespace {

constexpr messages::TextNumber kDataErrorText{407};
constexpr messages::TextNumber kUnknownAlias{1619};
constexpr messages::TextNumber kRowGone{1626};
constexpr messages::TextNumber kItemCaption{401};
constexpr messages::TextNumber kAliasCaption{402};

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

GridEditing::GridEditing(EditorContext& context, GridOwner& owner, forms::Grid& arguments,
                         forms::Grid& aliases)
    : context_(context), owner_(owner), aliases_(aliases) {
  Wire(arguments, {kParameterBand, kAliasIdColumn});
  Wire(aliases, {kAliasBand, kItemIdColumn});
  arguments.on_write = [this](std::int64_t id, const std::vector<forms::CellChange>& changes) {
    WriteArgument(id, changes);
  };
  aliases.on_write = [this](std::int64_t id, const std::vector<forms::CellChange>& changes) {
    WriteAlias(id, changes);
  };
}

void GridEditing::Wire(forms::Grid& grid, const GridKind& kind) {
  grid.on_key_down = [this, &grid, kind](forms::KeyEvent& event) { OnKey(grid, kind, event); };
  grid.on_selection = [this] { owner_.SelectionChanged(); };
  grid.on_current_row = [this] { owner_.SelectionChanged(); };
  grid.on_mouse_up = [this, kind](const forms::MouseEvent& event) {
    if (event.button == forms::kRightButton) owner_.PopupBand(kind.band);
  };
  grid.on_double_click = [this, kind] {
    owner_.RunTool(FindToolOfKey(kind.band, forms::kKeyF9, 0)->name);
  };
  grid.on_button_click = [this, &grid](std::size_t column) { ChooseCell(grid, column); };
  grid.on_after_column_update = [&grid](std::size_t) { grid.Update(); };
  grid.on_error = [this, &grid](const forms::GridError& error) { OnError(grid, error); };
}

// --- Keys and mouse ---

void GridEditing::OnKey(forms::Grid& grid, const GridKind& kind, forms::KeyEvent& event) {
  const bool deletes =
      context_.services.in_workbench && event.key_code == forms::kKeyDelete && event.shift == 0;
  const ToolRow* tool =
      FindToolOfKey(kind.band, event.key_code, deletes ? forms::kControl : event.shift);
  if (!tool && context_.services.undo) tool = FindToolOfKey(kEditBand, event.key_code, event.shift);
  if (tool) {
    event.handled = true;
    owner_.RunTool(tool->name);
    return;
  }
  const bool up = event.key_code == forms::kKeyUp;
  if (event.shift == forms::kShift && (up || event.key_code == forms::kKeyDown)) {
    event.handled = true;
    ExtendSelection(grid, up);
  } else if (event.shift == forms::kControl && event.key_code == kKeyO) {
    event.handled = true;
    if (grid.CurrentColumn() == kind.chooser_column) {
      ChooseCell(grid, kind.chooser_column);
    } else {
      context_.services.toolkit.Beep();
    }
  } else if (event.shift == forms::kControl && event.key_code == kKeyF) {
    event.handled = true;
    owner_.ShowFind();
  } else if (event.shift == forms::kAlt && event.key_code == forms::kKeyF6) {
    event.handled = true;
    context_.studio->ActivateTree();
  }
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
  if (&grid == &aliases_) {
    const auto item = context_.studio->ChooseItem(grid.ShownCell(*current, column).ToText());
    if (item && item->find_first_not_of(' ') != std::string::npos) grid.EditCell(column, *item);
    return;
  }
  store::Operations& operations = context_.operations;
  const auto argument = operations.FindArgument(static_cast<std::int32_t>(*grid.CurrentId()));
  const auto chosen =
      dialogs::ChooseAlias(context_.dialog_context, argument ? argument->alias_id : 0);
  if (!chosen) return;
  if (const auto alias = operations.FindAlias(*chosen)) grid.EditCell(column, alias->vb_alias);
}

// --- Writing ---

std::optional<std::string> GridEditing::WritePending(forms::Grid& grid) {
  if (!grid.DataChanged() && !grid.EditActive()) return std::nullopt;
  silent_ = true;
  const bool written = grid.Update();
  silent_ = false;
  if (written) return std::nullopt;
  grid.CancelUpdate();
  std::string error = context_.texts.Sentence(grid.Problem());
  AppendLine(error, TakeDetail());
  return error;
}

void GridEditing::Fail(std::int32_t number, const messages::Message& prompt,
                       const messages::Message& detail) {
  detail_ = context_.texts.Sentence(detail);
  throw platform::Error(platform::ErrorKind::kRefused, number, prompt);
}

void GridEditing::FailUnlessDone(const store::OperationResult& result) {
  if (result.success()) return;
  const messages::TextNumber text = result.message.number();
  if (text == store::kTextAliasTaken || text == store::kTextArgumentExists) {
    Fail(platform::kErrErrorsOccurred, messages::Message::Verbatim(kDuplicateName),
         dialogs::Explanation(result));
  }
  const bool file_problem = result.outcome == store::Outcome::kFileProblem;
  Fail(file_problem ? kDataError : platform::kErrUnspecified, result.message, result.detail);
}

void GridEditing::WriteArgument(std::int64_t id, const std::vector<forms::CellChange>& changes) {
  store::Operations& operations = context_.operations;
  const auto argument_id = static_cast<std::int32_t>(id);
  const auto argument = operations.FindArgument(argument_id);
  if (!argument) Fail(platform::kErrNoCurrentRecord, messages::Message({kRowGone}));
  store::ArgumentValues values = *argument;
  dialogs::RowMerge merge(context_.dialog_context);
  for (const forms::CellChange& change : changes) {
    if (change.column == kInColumn) values.in = change.new_value.ToBool();
    if (change.column == kOutColumn) values.out = change.new_value.ToBool();
    if (change.column != kAliasIdColumn) continue;
    const std::string name = change.new_value.ToText();
    merge.Note(kAliasCaption, change.old_value.ToText(), argument->vb_alias, name);
    const auto alias = operations.FindAliasByName(name);
    if (!alias) {
      Fail(platform::kErrUnspecified, messages::Message({kUnknownAlias}, {{"<Name>", name}}));
    }
    values.alias_id = alias->id;
  }
  if (merge.Ask(argument->vb_alias, false) == dialogs::RowAnswer::kTheirs)
    return context_.ReadArguments(owner_.CurrentKey());
  FailUnlessDone(dialogs::RunOperation(
      context_.dialog_context, [&] { return operations.EditArgument(argument_id, values); }));
  context_.ReadArguments(owner_.CurrentKey());
}

void GridEditing::WriteAlias(std::int64_t id, const std::vector<forms::CellChange>& changes) {
  store::Operations& operations = context_.operations;
  const auto alias_id = static_cast<std::int32_t>(id);
  const auto alias = operations.FindAlias(alias_id);
  if (!alias) Fail(platform::kErrNoCurrentRecord, messages::Message({kRowGone}));
  store::AliasValues values = *alias;
  dialogs::RowMerge merge(context_.dialog_context);
  for (const forms::CellChange& change : changes) {
    const std::string before = change.old_value.ToText(), mine = change.new_value.ToText();
    if (change.column == kItemIdColumn) {
      merge.Note(kItemCaption, before, alias->item_id, mine);
      values.item_id = mine;
    }
    if (change.column == kVBAliasColumn) {
      merge.Note(kAliasCaption, before, alias->vb_alias, mine);
      values.vb_alias = mine;
    }
  }
  if (merge.Ask(alias->vb_alias, false) == dialogs::RowAnswer::kTheirs)
    return context_.rows.AliasesChanged();
  FailUnlessDone(dialogs::RunOperation(context_.dialog_context,
                                       [&] { return operations.EditAlias(alias_id, values); }));
  context_.rows.AliasesChanged();
}

void GridEditing::OnError(forms::Grid& grid, const forms::GridError& error) {
  if (silent_) return;
  const std::string detail = TakeDetail();
  if (error.number == kDataError) {
    std::string cause = context_.texts.Sentence(error.message);
    AppendLine(cause, detail);
    context_.messages.Warn(
        context_.texts.Text(kDataErrorText, {{"<DataError>", std::to_string(error.number)}}),
        cause);
    grid.CancelUpdate();
    owner_.Reload();
    if (grid.RowCount() > 0) grid.SetCurrentId(grid.IdAt(0));
    return;
  }
  context_.services.toolkit.Beep();
  grid.CancelUpdate();
  context_.messages.Warn(context_.texts.Sentence(error.message), detail);
  owner_.Reload();
}

}  // namespace editor
