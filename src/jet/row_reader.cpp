// SPDX-License-Identifier: MIT
#include "jet/row_reader.h"

#include <cstring>

#include "jet/bytes.h"
#include "jet/error.h"
#include "jet/long_value.h"
#include "jet/text_codec.h"
#include "jet/value_codec.h"

namespace jet {

std::optional<StoredRow> RowReader::Find(RowId id) const {
  if (id.page >= pager_.page_count()) return std::nullopt;
  const PageRef page = pager_.Read(id.page);
  if (!IsDataPageOf(page.data(), definition_.page)) return std::nullopt;
  CheckSlotCount(pager_, page);
  if (id.slot >= SlotCount(page.data())) return std::nullopt;
  if ((GetSlot(page.data(), id.slot).state & kSlotTarget) != 0) return std::nullopt;
  CheckSlot(pager_, page, id.slot);
  return At(page, id.slot);
}

StoredRow RowReader::At(const PageRef& page, std::size_t slot) const {
  const Slot bounds = GetSlot(page.data(), slot);
  const std::span<const std::byte> bytes(page.data() + bounds.begin,
                                         std::size_t{bounds.end} - bounds.begin);
  const RowId place{page.number(), static_cast<std::uint8_t>(slot)};
  if (bounds.state != kSlotMoved) return {page, place, bytes};
  if (bytes.size() < 4) {
    ThrowDamaged(pager_.path(), {place.page, place.slot}, message::kMovedNowhere);
  }
  const RowId target = RowId::FromReference(Load32(bytes.data()));
  PageRef other = pager_.Read(target.page);
  const std::span<const std::byte> moved = RowBytes(pager_, other, target.slot, definition_.page);
  if (GetSlot(other.data(), target.slot).state != kSlotTarget) {
    ThrowDamaged(pager_.path(), {place.page, place.slot},
                 {message::kMovedToNoRow, {{"<Page>", target.page}, {"<Row>", target.slot}}});
  }
  return {std::move(other), target, moved};
}

void RowReader::Fail(const StoredRow& stored, const messages::Message& cause) const {
  ThrowDamaged(pager_.path(), {stored.place.page, stored.place.slot}, cause);
}

void RowReader::Decode(RowId id, const StoredRow& stored, std::span<const std::size_t> columns,
                       RowBuffer& row) {
  row.Reset(id, columns.size());
  RowView view;
  if (const messages::Pattern* fault = view.Parse(stored.bytes)) Fail(stored, *fault);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    DecodeColumn(stored, view, definition_.columns[columns[i]], row.arena(), row.Mutable(i));
  }
}

void RowReader::DecodeColumn(const StoredRow& stored, const RowView& view, const Column& column,
                             Arena& arena, Value& value) {
  const bool has_value = view.HasValue(column);
  if (column.type == ColumnType::kBoolean) {
    value = Value::Boolean(has_value);
    return;
  }
  if (!has_value) {
    value = Value();
    return;
  }
  const auto bytes = view.Bytes(column);
  if (!bytes) Fail(stored, {message::kColumnOutsideRow, {{"<Column>", column.name}}});
  if (column.IsLongValue()) {
    DecodeLongValue(stored, column, *bytes, arena, value);
  } else if (!DecodeValue(column, *bytes, arena, value)) {
    Fail(stored, {message::kWrongLength, {{"<Column>", column.name}}});
  }
}

void RowReader::DecodeLongValue(const StoredRow& stored, const Column& column,
                                std::span<const std::byte> bytes, Arena& arena, Value& value) {
  const std::span<const std::byte> whole =
      ReadLongValue(pager_, {stored.place.page, stored.place.slot}, bytes, scratch_);
  if (column.type == ColumnType::kMemo) {
    value = Value::Text(DecodeText(whole, arena));
    return;
  }
  char* copy = arena.Reserve(whole.size());
  if (!whole.empty()) std::memcpy(copy, whole.data(), whole.size());
  arena.Keep(whole.size());
  value = Value::Binary({reinterpret_cast<const std::byte*>(copy), whole.size()});
}

}  // namespace jet
