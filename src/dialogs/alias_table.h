// SPDX-License-Identifier: MIT
// The aliases of the project as grids and lists show them: virtual, whatever their number.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/combo_box.h"
#include "forms/row_source.h"
#include "messages/message.h"
#include "platform/ado.h"
#include "store/operations.h"

namespace dialogs {

enum class AliasOrder { kId, kName };

// Table TvbfAlias in the order of one of its indexes, sorted where a database made elsewhere has
// none. Opens itself when it is first asked and
// after it was closed behind its back; while it cannot be read there are no aliases, and Problem
// says why.
class AliasTable {
 public:
  // The recordset is closed and used by this table only. The operations must outlive the table.
  AliasTable(std::shared_ptr<platform::Connection> connection,
             std::shared_ptr<platform::Recordset> recordset, store::Operations& operations,
             AliasOrder order);

  // The next look sees the rows that were added, changed and deleted meanwhile.
  void Requery() { stale_ = true; }

  // What kept the last look from being answered; empty when nothing did.
  const messages::Message& Problem() const { return problem_; }

  std::size_t Count();
  // Up to `count` records from position `first` (from 0) on.
  std::vector<store::AliasRecord> Records(std::size_t first, std::size_t count);
  std::optional<std::size_t> PositionOf(std::int32_t id);
  // First alias at or after a position that begins with the prefix, without regard to case. Needs
  // the order by name.
  std::optional<std::size_t> FindPrefix(std::string_view prefix, std::size_t from);

 private:
  bool Open();
  bool Seek(const platform::Variant& key, platform::SeekOption option);
  std::size_t Position() const;

  std::shared_ptr<platform::Connection> connection_;
  std::shared_ptr<platform::Recordset> recordset_;
  store::Operations& operations_;
  AliasOrder order_;
  bool has_index_ = false;  // of the order; while open
  bool stale_ = false;
  messages::Message problem_;
};

// The entries of a drop-down: alias names with their IDs as item data.
class AliasList : public forms::ListSource {
 public:
  explicit AliasList(std::shared_ptr<AliasTable> table) : table_(std::move(table)) {}
  std::size_t Count() override { return table_->Count(); }
  forms::ListItem Item(std::size_t index) override;
  std::optional<std::size_t> FindData(std::int32_t data) override {
    return table_->PositionOf(data);
  }
  std::optional<std::size_t> FindPrefix(std::string_view prefix, std::size_t from) override {
    return table_->FindPrefix(prefix, from);
  }

 private:
  std::shared_ptr<AliasTable> table_;
};

// Rows of a grid or list with the two columns in the order asked for.
class AliasRows : public forms::RowSource {
 public:
  enum class Columns { kItemAlias, kAliasItem };
  AliasRows(std::shared_ptr<AliasTable> table, Columns columns)
      : table_(std::move(table)), columns_(columns) {}
  std::size_t RowCount() override { return table_->Count(); }
  std::vector<forms::Row> Rows(std::size_t first, std::size_t count) override;
  std::optional<std::size_t> IndexOf(std::int64_t id) override;

 private:
  std::shared_ptr<AliasTable> table_;
  Columns columns_;
};

}  // namespace dialogs
