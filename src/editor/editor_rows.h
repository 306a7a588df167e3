// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "dialogs/alias_table.h"
#include "editor/argument_rows.h"
#include "platform/ado.h"
#include "store/operations.h"

namespace editor {

// The rows that grids, drop-downs and dialogs show: the arguments of one formula and the aliases of
// the project in two orders.
class EditorRows {
 public:
  // The connection is open; the recordset is closed and used for the alias grid only. The
  // operations outlive the rows, and so do the notes, which may be null.
  EditorRows(const std::shared_ptr<platform::Connection>& connection,
             std::shared_ptr<platform::Recordset> grid_aliases, store::Operations& operations,
             dialogs::ItemNotes* notes);

  const std::shared_ptr<ArgumentRows>& Arguments() const { return arguments_; }
  const std::shared_ptr<dialogs::AliasTable>& AliasesById() const { return aliases_by_id_; }
  const std::shared_ptr<dialogs::AliasTable>& AliasesByName() const { return aliases_by_name_; }

  // Reads the arguments of a node's formula; any other node has none. Raises platform::Error when
  // the database fails; there are no rows then.
  void ReadArguments(std::string_view key);
  // Aliases were added, changed or deleted: lists of them are read again when they are next seen.
  void AliasesChanged();
  // Why aliases could not be read when they were last looked at; empty when they could.
  const messages::Message& Problem() const;

 private:
  store::Operations& operations_;
  dialogs::ItemNotes* const notes_;
  std::shared_ptr<ArgumentRows> arguments_ = std::make_shared<ArgumentRows>();
  std::shared_ptr<dialogs::AliasTable> aliases_by_id_;
  std::shared_ptr<dialogs::AliasTable> aliases_by_name_;
};

}  // namespace editor
