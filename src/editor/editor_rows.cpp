// SPDX-License-Identifier: MIT
#include "editor/editor_rows.h"

#include <utility>

#include "editor/node_key.h"

namespace editor {

EditorRows::EditorRows(const std::shared_ptr<platform::Connection>& connection,
                       std::shared_ptr<platform::Recordset> grid_aliases,
                       store::Operations& operations, dialogs::ItemNotes* notes)
    : operations_(operations),
      notes_(notes),
      aliases_by_id_(std::make_shared<dialogs::AliasTable>(connection, std::move(grid_aliases),
                                                           operations, dialogs::AliasOrder::kId)),
      aliases_by_name_(std::make_shared<dialogs::AliasTable>(
          connection, connection->CreateRecordset(), operations, dialogs::AliasOrder::kName)) {}

void EditorRows::ReadArguments(std::string_view key) {
  arguments_->Read(operations_, KeyKind(key) == kFormulaKind ? KeyNumber(key) : 0, notes_);
}

void EditorRows::AliasesChanged() {
  aliases_by_id_->Requery();
  aliases_by_name_->Requery();
}

const messages::Message& EditorRows::Problem() const {
  const messages::Message& by_id = aliases_by_id_->Problem();
  return by_id.empty() ? aliases_by_name_->Problem() : by_id;
}

}  // namespace editor
