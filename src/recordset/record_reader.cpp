// SPDX-License-Identifier: MIT
#include "recordset/record_reader.h"

#include <algorithm>

namespace recordset {

RecordReader::RecordReader(const Query& query)
    : query_(query),
      columns_(query.needed()),
      rows_(std::make_unique<jet::RowBuffer[]>(query.tables().size())) {
  slots_.reserve(query.output().size());
  for (const OutputColumn& output : query.output()) slots_.push_back(columns_.Slot(output.source));
}

bool RecordReader::Read(std::span<const jet::RowId> ids) {
  holds_row_ = false;
  for (std::size_t table = 0; table < ids.size(); ++table) {
    if (!query_.tables()[table]->Read(ids[table], columns_.Of(table), rows_[table])) return false;
  }
  holds_row_ = true;
  return true;
}

bool RecordReader::SameValues(const RecordReader& other) const {
  for (std::size_t table = 0; table < query_.tables().size(); ++table) {
    if (!std::ranges::equal(rows_[table].values(), other.rows_[table].values())) return false;
  }
  return true;
}

}  // namespace recordset
