// SPDX-License-Identifier: MIT
#include "dialogs/alias_table.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace dialogs {

namespace {

constexpr const char* kTable = "TvbfAlias";

// Text of a field; an empty text is stored as one character of code 0.
template <class Value>
std::string TextOf(const Value& value) {
  std::string text = value.ToText();
  return text == std::string(1, '\0') ? std::string() : text;
}

platform::Variant KeyOf(const std::string& name) {
  return name.empty() ? std::string(1, '\0') : name;
}

std::string NameOfCurrent(platform::Recordset& recordset) {
  return TextOf(recordset.Fields("VBAlias").Value());
}

const char* OrderColumn(AliasOrder order) { return order == AliasOrder::kName ? "VBAlias" : "ID"; }

// An index of just this column, whatever its name; "" when the database has none.
std::string IndexOf(platform::Connection& connection, std::string_view column) {
  for (const auto& index : connection.Indexes(kTable)) {
    if (index.columns.size() == 1 && platform::EqualsIgnoringCase(index.columns[0], column)) {
      return index.name;
    }
  }
  return {};
}

std::string Literal(const platform::Variant& value) {
  if (!value.IsText()) return value.ToText();
  std::string literal = "'";
  for (const char c : value.ToText()) literal.append(c == '\'' ? 2 : 1, c);
  return literal + '\'';
}

bool BeginsWith(std::string_view name, std::string_view folded_prefix) {
  return platform::FoldCase(name).starts_with(folded_prefix);
}

}  // namespace

AliasTable::AliasTable(std::shared_ptr<platform::Connection> connection,
                       std::shared_ptr<platform::Recordset> recordset,
                       store::Operations& operations, AliasOrder order)
    : connection_(std::move(connection)),
      recordset_(std::move(recordset)),
      operations_(operations),
      order_(order) {}

bool AliasTable::Open() {
  try {
    if (recordset_->State() == platform::ObjectState::kOpen) {
      if (!stale_) return true;
      recordset_->Requery();
      stale_ = false;
      problem_ = {};
      return true;
    }
    if (connection_->State() != platform::ObjectState::kOpen) return false;
    const std::string column = OrderColumn(order_);
    const std::string index = IndexOf(*connection_, column);
    has_index_ = !index.empty();
    recordset_->SetSource(has_index_ ? kTable : "SELECT * FROM TvbfAlias ORDER BY " + column);
    recordset_->SetCommandType(has_index_ ? platform::CommandType::kTableDirect
                                          : platform::CommandType::kText);
    recordset_->SetCursorLocation(platform::CursorLocation::kServer);
    recordset_->SetCursorType(platform::CursorType::kKeyset);
    recordset_->SetLockType(platform::LockType::kReadOnly);
    recordset_->SetIndex(index);
    recordset_->Open();
    stale_ = false;
    problem_ = {};
    return true;
  } catch (const platform::Error& error) {
    if (problem_.empty()) problem_ = error.message();
    return false;
  }
}

std::size_t AliasTable::Count() {
  return Open() ? static_cast<std::size_t>(std::max(0, recordset_->RecordCount())) : 0;
}

std::vector<store::AliasRecord> AliasTable::Records(std::size_t first, std::size_t count) {
  std::vector<store::AliasRecord> records;
  const std::size_t total = Count();
  if (first >= total || count == 0) return records;
  count = std::min(count, total - first);
  try {
    recordset_->SetAbsolutePosition(static_cast<std::int32_t>(first + 1));
    const platform::RowBlock rows =
        recordset_->GetRows(static_cast<std::int32_t>(count), {"ID", "ItemID", "VBAlias"});
    records.reserve(rows.RowCount());
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      store::AliasRecord& record = records.emplace_back();
      record.id = rows.At(0, row).ToLong();
      record.item_id = TextOf(rows.At(1, row));
      record.vb_alias = TextOf(rows.At(2, row));
    }
  } catch (const platform::Error& error) {
    if (problem_.empty()) problem_ = error.message();
    records.clear();
  }
  return records;
}

bool AliasTable::Seek(const platform::Variant& key, platform::SeekOption option) {
  if (!Open()) return false;
  try {
    if (has_index_) {
      recordset_->Seek({key}, option);
    } else {
      const char* const sign = option == platform::SeekOption::kFirstEqual ? " = " : " >= ";
      recordset_->MoveFirst();
      recordset_->Find(OrderColumn(order_) + (sign + Literal(key)));
    }
    return !recordset_->EOF_();
  } catch (const platform::Error&) {
    return false;
  }
}

std::size_t AliasTable::Position() const {
  return static_cast<std::size_t>(std::max(1, recordset_->AbsolutePosition())) - 1;
}

std::optional<std::size_t> AliasTable::PositionOf(std::int32_t id) {
  try {
    if (order_ == AliasOrder::kId) {
      if (!Seek(platform::Variant(id), platform::SeekOption::kFirstEqual)) return std::nullopt;
      return Position();
    }
    const auto record = operations_.FindAlias(id);
    if (!record || !Seek(KeyOf(record->vb_alias), platform::SeekOption::kFirstEqual)) {
      return std::nullopt;
    }
    // A foreign database may hold a name twice.
    while (recordset_->Fields("ID").Value().ToLong() != id) {
      recordset_->MoveNext();
      if (recordset_->EOF_() ||
          !platform::EqualsIgnoringCase(NameOfCurrent(*recordset_), record->vb_alias)) {
        return std::nullopt;
      }
    }
    return Position();
  } catch (const platform::Error&) {
    return std::nullopt;
  }
}

std::optional<std::size_t> AliasTable::FindPrefix(std::string_view prefix, std::size_t from) {
  if (!Seek(platform::Variant(prefix), platform::SeekOption::kAfterEqual)) return std::nullopt;
  const std::size_t first = std::max(Position(), from);
  // The first key after the prefix may differ from it by an accent only.
  constexpr std::size_t kAccentVariants = 16;
  const std::string folded = platform::FoldCase(prefix);
  const std::vector<store::AliasRecord> records = Records(first, kAccentVariants);
  const auto found = std::find_if(
      records.begin(), records.end(),
      [&](const store::AliasRecord& record) { return BeginsWith(record.vb_alias, folded); });
  if (found == records.end()) return std::nullopt;
  return first + static_cast<std::size_t>(found - records.begin());
}

forms::ListItem AliasList::Item(std::size_t index) {
  const std::vector<store::AliasRecord> records = table_->Records(index, 1);
  if (records.empty()) return {};
  return {records.front().vb_alias, records.front().id};
}

std::vector<forms::Row> AliasRows::Rows(std::size_t first, std::size_t count) {
  std::vector<forms::Row> rows;
  for (store::AliasRecord& record : table_->Records(first, count)) {
    forms::Row& row = rows.emplace_back();
    row.id = record.id;
    row.cells = {std::move(record.item_id), std::move(record.vb_alias)};
    if (columns_ == Columns::kAliasItem) std::swap(row.cells[0], row.cells[1]);
  }
  return rows;
}

std::optional<std::size_t> AliasRows::IndexOf(std::int64_t id) {
  return table_->PositionOf(static_cast<std::int32_t>(id));
}

}  // namespace dialogs
