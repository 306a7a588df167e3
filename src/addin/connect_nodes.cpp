// SPDX-License-Identifier: MIT
// What the add-in does with the events of its nodes.
#include <exception>

#include "addin/connect.h"
#include "dialogs/dialog_context.h"
#include "editor/node_key.h"
#include "editor/tools.h"
#include "forms/keys.h"

namespace addin {

namespace {

bool IsFormulaFolder(std::string_view key) { return key == editor::kFormulasKey; }

bool IsStoredFormula(std::string_view key) {
  return editor::KeyKind(key) == editor::kFormulaKind && editor::KeyNumber(key) > 0;
}

// New formulas are made on the folder, the other commands concern a formula; pasted ones belong to
// neither.
bool Applies(const editor::ToolRow& tool, std::string_view key) {
  if (tool.action == editor::kPaste) return IsFormulaFolder(key) || IsStoredFormula(key);
  return tool.action == editor::kNew ? IsFormulaFolder(key) : IsStoredFormula(key);
}

}  // namespace

std::int32_t Connect::NodeClick(std::string_view, std::string_view key, std::string_view text) {
  return Event([&] {
    EnsureOpen();
    if (initialised_ && editor::IsOwnKey(key)) SelectFormula(key, text);
  });
}

std::int32_t Connect::NodeExpand(std::string_view, std::string_view, std::string_view) {
  return Event([this] { EnsureOpen(); });
}

std::int32_t Connect::NodeDblClick(std::string_view, std::string_view, std::string_view) {
  return Event([this] { ActivateEditor(); });
}

std::int32_t Connect::NodeMouseUp(std::string_view, std::string_view key, std::string_view,
                                  std::int32_t button, std::int32_t, float, float) {
  if (button != forms::kRightButton) return 0;
  return Event([&] { ShowTreeMenu(key); });
}

std::int32_t Connect::NodeKeyDown(std::string_view, std::string_view key, std::string_view,
                                  std::int16_t& key_code, std::int16_t& shift) {
  try {
    HandleKey(key, key_code, shift);
  } catch (const std::exception&) {
    // A key that comes to nothing is not worth a message; the commands say themselves what failed.
  }
  return 0;
}

void Connect::SelectFormula(std::string_view key, std::string_view text) {
  if (!editor_) return;
  const dialogs::BusyPointer busy(services_.toolkit);
  std::string name(text);
  if (IsStoredFormula(key)) {
    const auto formula = editor_->operations().FindFormula(editor::KeyNumber(key));
    if (formula && formula->name != text) {
      name = formula->name;
      host_add_in_->SetNodeText(key, name);
    }
  }
  editor_->ShowNode(key, name);
}

void Connect::ActivateEditor() {
  if (!editor_ || !host_add_in_) return;
  const platform::SelectedNode selected = host_add_in_->GetSelectedNode();
  if (!editor::IsOwnKey(selected.key)) return;
  const std::string_view kind = editor::KeyKind(selected.key);
  if (kind != editor::kRootKind) SelectFormula(selected.key, selected.text);
  services_.toolkit.ShowModeless(*editor_);
  if (editor_->GetWindowState() == forms::WindowState::kMinimized) {
    editor_->SetWindowState(forms::WindowState::kNormal);
  }
  (kind == editor::kAliasKind ? editor_->tdbA : editor_->tdbP).SetFocus();
}

void Connect::RunTreeTool(std::string_view key, const char* tool) {
  const std::shared_ptr<editor::frmtabgrid> window = editor_;
  if (!window) return;
  window->SetTreeContext(key, false);
  window->abr_ToolClick(*window->abr.FindTool(tool));
  window->SetTreeContext(window->CurrentKey(), false);
}

void Connect::HandleKey(std::string_view key, std::int16_t& key_code, std::int16_t shift) {
  if (key_code == forms::kKeyF6 && shift == forms::kAlt) {
    key_code = 0;
    ActivateEditor();
    return;
  }
  if (key_code == forms::kKeyF1) {
    const platform::WindowHandle owner =
        editor_ ? services_.toolkit.Handle(*editor_) : host_window_;
    services_.help.ShowTopic(owner, editor::HelpTopic(key));
    return;
  }
  const editor::ToolRow* tool = editor::FindToolOfKey(editor::kFunctionBand, key_code, shift);
  if (tool && Applies(*tool, key)) RunTreeTool(key, tool->name);
}

void Connect::ShowTreeMenu(std::string_view key) {
  const std::shared_ptr<editor::frmtabgrid> window = editor_;
  if (!window || !editor::IsOwnKey(key)) return;
  window->SetTreeContext(key, true);
  {
    const dialogs::MessageBoxes::Guard guard(messages_);
    const bool formulas = editor::KeyKind(key) == editor::kFormulaKind;
    services_.toolkit.PopupMenu(
        *window->abr.FindBand(formulas ? editor::kFunctionBand : editor::kShowEditorBand));
  }
  window->SetTreeContext(key, false);
  window->SetTreeContext(window->CurrentKey(), false);
}

}  // namespace addin
