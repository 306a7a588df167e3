// SPDX-License-Identifier: MIT
#include "jet/error.h"
#include "jet/index_cursor.h"
#include "jet/key_encoder.h"
#include "jet/table.h"
#include "jet/table_state.h"

namespace jet {

struct IndexCursor::State {
  State(TableState& state, std::size_t physical_index)
      : table(state), physical(physical_index), entries(state.tree(physical_index)) {}

  // The bytes with which the keys of the wanted entries begin. False for a value that no entry can
  // have, because the column cannot hold it.
  bool Encode(std::span<const Value> key) {
    bytes.clear();
    const PhysicalIndex& index = table.definition().physical[physical];
    if (key.size() > index.columns.size()) {
      throw Error(ErrorKind::kInvalid, table.session().path(), {}, message::kTooManyKeyValues,
                  message::kGiveFewerValues);
    }
    for (std::size_t i = 0; i < key.size(); ++i) {
      const IndexColumn& part = index.columns[i];
      const auto order = part.ascending ? SortOrder::kAscending : SortOrder::kDescending;
      const ColumnType type = table.definition().columns[part.column].type;
      if (AppendKeyPart(type, order, key[i], bytes)) return false;
    }
    return true;
  }

  TableState& table;
  std::size_t physical;
  EntryCursor entries;
  std::vector<std::byte> bytes;
};

IndexCursor::IndexCursor(std::unique_ptr<State> state) : state_(std::move(state)) {}
IndexCursor::IndexCursor(IndexCursor&&) noexcept = default;
IndexCursor::~IndexCursor() = default;

bool IndexCursor::Seek(std::span<const Value> key) {
  const ReadLock lock(state_->table.session());
  if (!state_->Encode(key)) return false;
  return state_->entries.Seek(state_->bytes, Bound::kFirst) &&
         state_->entries.KeyStartsWith(state_->bytes);
}

bool IndexCursor::SeekAtLeast(std::span<const Value> key) {
  const ReadLock lock(state_->table.session());
  if (!state_->Encode(key)) {
    throw Error(ErrorKind::kInvalid, state_->table.session().path(), {}, message::kCannotOrder,
                message::kChooseOtherValue);
  }
  return state_->entries.Seek(state_->bytes, Bound::kFirst);
}

bool IndexCursor::Next() {
  const ReadLock lock(state_->table.session());
  return state_->entries.Next();
}

bool IndexCursor::Previous() {
  const ReadLock lock(state_->table.session());
  return state_->entries.Previous();
}

bool IndexCursor::NextEqual() { return Next() && state_->entries.KeyStartsWith(state_->bytes); }

RowId IndexCursor::row() const { return state_->entries.row(); }

IndexCursor Table::OpenCursor(std::size_t index) {
  const ReadLock lock(state_->session());
  state_->Refresh();
  return IndexCursor(std::make_unique<IndexCursor::State>(
      *state_, state_->definition().indexes.at(index).physical));
}

std::vector<RowId> Table::IndexedRows(std::size_t index) {
  const ReadLock lock(state_->session());
  state_->Refresh();
  return state_->tree(state_->definition().indexes.at(index).physical).Rows();
}

}  // namespace jet
