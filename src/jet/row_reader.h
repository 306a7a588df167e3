// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "jet/data_page.h"
#include "jet/page.h"
#include "jet/pager.h"
#include "jet/row_buffer.h"
#include "jet/row_codec.h"
#include "jet/table_definition.h"

namespace jet {

// Where the bytes of a row are: on the page where it was first stored, or where it moved to.
struct StoredRow {
  PageRef page;  // keeps the bytes in memory
  RowId place;
  std::span<const std::byte> bytes;
};

// Reads rows of one table.
class RowReader {
 public:
  // Both must outlive the reader.
  RowReader(Pager& pager, const TableDefinition& definition)
      : pager_(pager), definition_(definition) {}

  // Nothing when the table has no such row. Raises kDamaged when its bytes cannot be found.
  std::optional<StoredRow> Find(RowId id) const;
  // A slot of a checked page that is live or moved.
  StoredRow At(const PageRef& page, std::size_t slot) const;
  // Decodes the columns at the positions. Raises kDamaged.
  void Decode(RowId id, const StoredRow& stored, std::span<const std::size_t> columns,
              RowBuffer& row);

 private:
  void DecodeColumn(const StoredRow& stored, const RowView& view, const Column& column,
                    Arena& arena, Value& value);
  void DecodeLongValue(const StoredRow& stored, const Column& column,
                       std::span<const std::byte> bytes, Arena& arena, Value& value);
  [[noreturn]] void Fail(const StoredRow& stored, const messages::Message& cause) const;

  Pager& pager_;
  const TableDefinition& definition_;
  std::vector<std::byte> scratch_;  // of long values in several records
};

}  // namespace jet
