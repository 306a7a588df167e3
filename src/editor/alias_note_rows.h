// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "dialogs/alias_table.h"
#include "dialogs/item_notes.h"
#include "store/operations.h"

namespace editor {

// The rows of the alias grid with what is known of each alias behind them: type and comment of its
// item, the number of its uses, and a word where the catalogue lacks the item.
class AliasNoteRows : public forms::RowSource {
 public:
  // What is passed by reference outlives the rows.
  AliasNoteRows(std::shared_ptr<dialogs::AliasTable> table, store::Operations& operations,
                dialogs::ItemNotes& notes, std::string missing);

  // The uses are counted again when they are next asked for: all of them in one pass.
  void Forget() { uses_.reset(); }

  std::size_t RowCount() override { return aliases_.RowCount(); }
  std::vector<forms::Row> Rows(std::size_t first, std::size_t count) override;
  std::optional<std::size_t> IndexOf(std::int64_t id) override { return aliases_.IndexOf(id); }

 private:
  std::int32_t UsesOf(std::int64_t alias_id);

  dialogs::AliasRows aliases_;
  store::Operations& operations_;
  dialogs::ItemNotes& notes_;
  const std::string missing_;
  std::optional<std::unordered_map<std::int64_t, std::int32_t>> uses_;
};

}  // namespace editor
