// SPDX-License-Identifier: MIT
#include "jet/table_definition.h"

#include <algorithm>
#include <optional>

#include "jet/bytes.h"
#include "jet/error.h"
#include "jet/row_codec.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

constexpr std::size_t kMaxDefinition = std::size_t{256} * 1024;
constexpr std::size_t kMapListEntry = 10;

// Reads the logical string from front to back; a read behind the end is damage.
class Reader {
 public:
  Reader(const Pager& pager, PageNumber page, std::span<const std::byte> bytes)
      : pager_(pager), page_(page), bytes_(bytes) {}

  const std::byte* Take(std::size_t size) {
    if (size > bytes_.size() - position_) Fail(message::kDefinitionEnds);
    const std::byte* p = bytes_.data() + position_;
    position_ += size;
    return p;
  }
  std::string TakeName() {
    const std::size_t size = Load16(Take(2));
    return DecodeUtf16({Take(size), size});
  }
  [[noreturn]] void Fail(const messages::Message& cause) const {
    ThrowDamaged(pager_.path(), {page_, -1}, cause);
  }

 private:
  const Pager& pager_;
  PageNumber page_;
  std::span<const std::byte> bytes_;
  std::size_t position_ = 0;
};

bool IsKnownType(std::uint8_t type) {
  return (type >= 0x01 && type <= 0x0C) || (type >= 0x0F && type <= 0x11);
}

Column ReadColumn(const std::byte* p) {
  Column column;
  column.type = static_cast<ColumnType>(Load8(p));
  column.id = Load16(p + 5);
  column.variable_index = Load16(p + 7);
  column.display_position = Load16(p + 9);
  column.lcid = Load16(p + 11);
  column.precision = Load8(p + 11);
  column.scale = Load8(p + 12);
  column.collation_version = Load8(p + 14);
  const std::uint8_t flags = Load8(p + 15);
  column.fixed = (flags & kColumnFixed) != 0;
  column.auto_number = (flags & kColumnAutoNumber) != 0;
  column.auto_guid = (flags & kColumnAutoGuid) != 0;
  column.hyperlink = (flags & kColumnHyperlink) != 0;
  column.system = (flags & kColumnSystem) != 0;
  column.account = (flags & kColumnAccount) != 0;
  column.compressed = (Load8(p + kColumnExtendedFlagsOffset) & kColumnCompressed) != 0;
  column.fixed_offset = Load16(p + 21);
  column.length = Load16(p + 23);
  return column;
}

// What a value of the column is read and written by.
bool IsSound(const Column& column) {
  if (column.auto_number && column.type != ColumnType::kLong) return false;
  if (column.auto_guid && column.type != ColumnType::kGuid) return false;
  if (column.fixed && kRowHead + column.fixed_offset + FixedSize(column) > kPageSize) return false;
  switch (column.type) {
    case ColumnType::kDecimal:
      return column.precision <= kMaxDecimalDigits && column.scale <= kMaxDecimalDigits;
    case ColumnType::kText:
    case ColumnType::kBinary:
      return column.length <= kMaxTextLength;
    case ColumnType::kMemo:
    case ColumnType::kOle:
      return !column.fixed;
    default:
      return true;
  }
}

// The bytes of the fixed area, or the variable index, belong to one column each.
void CheckColumns(const Reader& reader, const TableDefinition& definition) {
  std::vector<bool> area(kPageSize);
  std::vector<bool> variable(definition.variable_columns);
  for (const Column& column : definition.columns) {
    if (!IsSound(column)) {
      reader.Fail({message::kColumnUnsound, {{"<Column>", column.name}}});
    }
    std::vector<bool>& places = column.fixed ? area : variable;
    const std::size_t first = column.fixed ? column.fixed_offset : column.variable_index;
    const std::size_t size = column.fixed ? FixedSize(column) : 1;
    for (std::size_t i = first; i < first + size; ++i) {
      if (places[i]) {
        reader.Fail({message::kColumnPlaceTaken, {{"<Column>", column.name}}});
      }
      places[i] = true;
    }
  }
}

void ReadColumns(Reader& reader, std::size_t count, TableDefinition& definition) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::byte* record = reader.Take(kColumnRecordSize);
    Column column = ReadColumn(record);
    if (column.id >= definition.max_columns) {
      reader.Fail(message::kColumnNumberTooHigh);
    }
    if (!column.fixed && column.variable_index >= definition.variable_columns) {
      reader.Fail(message::kVariableIndexTooHigh);
    }
    if (!IsKnownType(static_cast<std::uint8_t>(column.type))) {
      definition.unknown = {message::kUnknownColumnType,
                            {{"<Type>", static_cast<unsigned>(column.type)}}};
    }
    if ((record[kColumnExtendedFlagsOffset] & ~std::byte{kColumnCompressed}) != std::byte{0}) {
      definition.unknown = message::kCalculatedColumn;
    }
    definition.columns.push_back(std::move(column));
  }
  for (Column& column : definition.columns) column.name = reader.TakeName();
  std::vector<bool> seen(definition.max_columns);
  for (const Column& column : definition.columns) {
    if (seen[column.id]) reader.Fail(message::kColumnNumberTwice);
    seen[column.id] = true;
  }
  CheckColumns(reader, definition);
}

std::optional<std::size_t> PositionOf(const TableDefinition& definition, std::uint16_t id) {
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    if (definition.columns[i].id == id) return i;
  }
  return std::nullopt;
}

void ReadPhysicalIndexes(Reader& reader, std::size_t count, TableDefinition& definition) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::byte* p = reader.Take(kPhysicalRecordSize);
    PhysicalIndex index;
    for (std::size_t k = 0; k < kMaxIndexColumns; ++k) {
      const std::uint16_t id = Load16(p + 4 + 3 * k);
      if (id == kNoColumn) continue;
      const auto position = PositionOf(definition, id);
      if (!position) reader.Fail(message::kIndexNamesNoColumn);
      index.columns.push_back({*position, Load8(p + 6 + 3 * k) != 0});
    }
    if (index.columns.empty()) reader.Fail(message::kIndexWithoutColumn);
    index.usage_map = RowId::FromReference(Load32(p + 34));
    index.root = Load32(p + 38);
    const std::uint8_t flags = Load8(p + 46);
    index.unique = (flags & kIndexUnique) != 0;
    index.ignore_nulls = (flags & kIndexIgnoreNulls) != 0;
    index.required = (flags & kIndexRequired) != 0;
    definition.physical.push_back(std::move(index));
  }
}

void ReadIndexes(Reader& reader, std::size_t count, TableDefinition& definition) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::byte* p = reader.Take(kLogicalRecordSize);
    Index index;
    index.number = Load32(p + 4);
    index.physical = Load32(p + 8);
    index.relation_side = Load8(p + 12);
    index.related_index = static_cast<std::int32_t>(Load32(p + 13));
    index.related_table = Load32(p + 17);
    const std::uint8_t kind = Load8(p + 23);
    if (index.physical >= definition.physical.size()) {
      reader.Fail(message::kIndexWithoutTree);
    }
    if (kind > 2) reader.Fail(message::kIndexKind);
    index.kind = static_cast<IndexKind>(kind);
    if (index.kind == IndexKind::kRelation) {
      index.cascade_updates = Load8(p + 21) == 1;
      index.cascade_deletes = Load8(p + 22) == 1;
    }
    definition.indexes.push_back(std::move(index));
  }
  for (Index& index : definition.indexes) index.name = reader.TakeName();
}

void ReadLongValueMaps(Reader& reader, TableDefinition& definition) {
  for (;;) {
    const std::uint16_t id = Load16(reader.Take(2));
    if (id == kNoColumn) return;
    const std::byte* p = reader.Take(kMapListEntry - 2);
    const auto position = PositionOf(definition, id);
    if (!position) continue;
    definition.long_values.push_back(
        {*position, RowId::FromReference(Load32(p)), RowId::FromReference(Load32(p + 4))});
  }
}

}  // namespace

std::vector<std::byte> ReadDefinitionBytes(Pager& pager, PageNumber first,
                                           std::vector<PageNumber>& pages) {
  std::vector<std::byte> bytes;
  for (PageNumber page = first; page != 0;) {
    if (std::find(pages.begin(), pages.end(), page) != pages.end() ||
        bytes.size() > kMaxDefinition) {
      ThrowDamaged(pager.path(), {page, -1}, message::kDefinitionCircle);
    }
    const PageRef ref = pager.Read(page);
    if (Load8(ref.data()) != static_cast<std::uint8_t>(PageType::kTableDefinition)) {
      ThrowDamaged(pager.path(), {page, -1}, message::kNoDefinition);
    }
    const std::size_t head = page == first ? 0 : kContinuationHead;
    bytes.insert(bytes.end(), ref.data() + head, ref.data() + kPageSize);
    pages.push_back(page);
    page = Load32(ref.data() + kDefinitionNextOffset);
  }
  const std::size_t length =
      bytes.empty() ? 0 : std::size_t{Load32(&bytes[kDefinitionLengthOffset])};
  if (length < kDefinitionCountersOffset || length > bytes.size()) {
    ThrowDamaged(pager.path(), {first, -1}, message::kDefinitionLength);
  }
  bytes.resize(length);
  return bytes;
}

TableDefinition ReadTableDefinition(Pager& pager, PageNumber page) {
  TableDefinition definition;
  definition.page = page;
  const std::vector<std::byte> bytes = ReadDefinitionBytes(pager, page, definition.pages);
  Reader reader(pager, page, bytes);
  const std::byte* head = reader.Take(kDefinitionCountersOffset);
  definition.type = Load8(head + kDefinitionTypeOffset);
  definition.max_columns = Load16(head + kDefinitionMaxColumnsOffset);
  definition.variable_columns = Load16(head + kDefinitionVariableOffset);
  definition.owned_map = RowId::FromReference(Load32(head + kDefinitionOwnedMapOffset));
  definition.free_map = RowId::FromReference(Load32(head + kDefinitionFreeMapOffset));
  const std::size_t columns = Load16(head + kDefinitionColumnsOffset);
  const std::size_t physical = Load32(head + kDefinitionPhysicalOffset);
  const std::size_t logical = Load32(head + kDefinitionLogicalOffset);
  if (columns > kMaxColumns || columns > definition.max_columns ||
      definition.max_columns > kMaxColumns || definition.variable_columns > kMaxColumns ||
      physical > kMaxIndexes || logical > bytes.size() / kLogicalRecordSize) {
    reader.Fail(message::kDefinitionCounts);
  }
  reader.Take(physical * kDefinitionCounterSize);
  ReadColumns(reader, columns, definition);
  ReadPhysicalIndexes(reader, physical, definition);
  ReadIndexes(reader, logical, definition);
  ReadLongValueMaps(reader, definition);
  return definition;
}

}  // namespace jet
