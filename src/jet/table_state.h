// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/index_tree.h"
#include "jet/row_reader.h"
#include "jet/session.h"
#include "jet/table_definition.h"
#include "jet/table_writer.h"
#include "messages/message.h"

namespace jet {

// What Table, Scan and IndexCursor share: a table's definition as read from the file, and the
// tools over it. Read again when others changed the definition.
class TableState {
 public:
  TableState(Session& session, std::string name, PageNumber page);

  Session& session() { return session_; }
  const std::string& path() const { return session_.path(); }
  Pager& pager() { return session_.pager(); }
  const std::string& name() const { return name_; }
  const TableDefinition& definition() const { return definition_; }
  // Names match without regard to case.
  std::optional<std::size_t> FindColumn(std::string_view name) const;
  RowReader& reader() { return *reader_; }
  // For changing rows, in a transaction.
  TableWriter& writer();
  IndexTree& tree(std::size_t physical) { return *trees_[physical]; }
  const std::vector<std::size_t>& all_columns() const { return all_columns_; }

  // To be called where there is no row: raises kDamaged when its page holds something else and an
  // index still names it.
  void CheckGone(RowId id);

  // To be called under a ReadLock or in a transaction, before anything else is asked.
  void Refresh();
  // Reads the definition anew, because we changed it.
  void Reload();
  const messages::Message& ReadOnlyReason() const { return read_only_reason_; }

 private:
  void RenewTrees();
  messages::Message FindReadOnlyReason() const;

  Session& session_;
  std::string name_;
  PageNumber page_;
  TableDefinition definition_;
  std::vector<std::byte> raw_;  // the definition without its counters
  std::unique_ptr<RowReader> reader_;
  std::unique_ptr<TableWriter> writer_;  // made when first asked for
  std::vector<std::unique_ptr<IndexTree>> trees_;
  std::vector<std::unique_ptr<IndexTree>> retired_trees_;  // of indexes that are gone
  // What all indexes name, in rising order, when their stamps had that sum.
  std::vector<RowId> indexed_;
  std::optional<std::uint64_t> indexed_stamp_;
  std::vector<std::size_t> all_columns_;
  messages::Message read_only_reason_;
  std::uint64_t generation_ = 0;
};

}  // namespace jet
