// SPDX-License-Identifier: MIT
// Opening, moving and fields. Searching and editing have files of their own.
#include "recordset/jet_recordset.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "recordset/jet_field.h"
#include "recordset/value_conversion.h"

namespace recordset {

using platform::CommandType;
using platform::EditMode;
using platform::ObjectState;
using platform::SearchDirection;
using platform::Variant;

JetRecordset::JetRecordset(std::shared_ptr<ConnectionState> session)
    : session_(std::move(session)) {}

JetRecordset::~JetRecordset() = default;

void JetRecordset::CheckClosed() const {
  if (query_) {
    Refuse(platform::kErrObjectOpen, message::kRecordsetOpen);
  }
}

void JetRecordset::CheckOpen() const {
  if (!query_) Refuse(platform::kErrObjectClosed, message::kRecordsetClosed);
}

void JetRecordset::CheckNoEdit(const messages::Pattern& action) const {
  CheckOpen();
  if (edit_mode_ == EditMode::kNone) return;
  Refuse(platform::kErrNotAllowedHere,
         {message::kRowPending, {{"<Action>", messages::Message(action)}}});
}

void JetRecordset::SetSource(std::string_view source) {
  CheckClosed();
  if (settings_.source == source) return;
  settings_.source = source;
  select_.reset();
}

void JetRecordset::SetCursorLocation(platform::CursorLocation location) {
  CheckClosed();
  settings_.location = location;
}

void JetRecordset::SetCursorType(platform::CursorType type) {
  CheckClosed();
  settings_.cursor = type;
}

void JetRecordset::SetLockType(platform::LockType type) {
  CheckClosed();
  settings_.lock = type;
}

void JetRecordset::SetCommandType(CommandType type) {
  CheckClosed();
  settings_.command = type;
}

void JetRecordset::SetIndex(std::string_view name) {
  CheckClosed();
  settings_.index = name;
}

void JetRecordset::SetParameters(std::vector<Variant> values) {
  CheckClosed();
  settings_.parameters = std::move(values);
}

std::unique_ptr<Query> JetRecordset::MakeQuery() {
  const bool is_text =
      settings_.command == CommandType::kText ||
      (settings_.command == CommandType::kUnspecified && IsSelect(settings_.source));
  if (!is_text) return TableQuery();
  if (!select_) select_ = SelectText::Parse(settings_.source);
  return Query::Select(session_->OpenDatabase(), select_, settings_.parameters);
}

std::unique_ptr<Query> JetRecordset::TableQuery() const {
  jet::Database& database = session_->OpenDatabase();
  if (!database.HasTable(settings_.source)) {
    Refuse(platform::kErrNoSuchTable,
           {message::kNoTable, {{"<Path>", database.path()}, {"<Table>", settings_.source}}});
  }
  jet::Table& table = database.OpenTable(settings_.source);
  std::optional<std::size_t> index;
  if (!settings_.index.empty()) {
    index = table.FindIndex(settings_.index);
    if (!index) {
      Refuse(platform::kErrNoSuchIndex, {message::kNoIndex,
                                         {{"<Table>", settings_.source},
                                          {"<Path>", database.path()},
                                          {"<Index>", settings_.index}}});
    }
  }
  return Query::OfTable(database, table, index);
}

void JetRecordset::Open() {
  CheckClosed();
  session_->Reading([&] {
    query_ = MakeQuery();
    try {
      cursor_.emplace(*query_);
      Restart();
    } catch (...) {
      Abandon();
      throw;
    }
  });
  reader_.emplace(*query_);
  bookmarked_ = std::make_shared<BookmarkedRows>();
  session_->Register(shared_from_this());
}

// Finds the rows at once, while the file is held for reading, unless that is the whole table.
void JetRecordset::Restart() {
  cursor_->Restart();
  if (query_->IsWholeTable()) return;
  cursor_->All();
  cursor_->OnRow();  // settles the position, so that nobody has to look at the file for it
}

void JetRecordset::Close() {
  CheckNoEdit(message::kClosing);
  Abandon();
}

void JetRecordset::Abandon() noexcept {
  EndEdit();
  seek_cursor_.reset();
  fields_.clear();
  reader_.reset();
  cursor_.reset();
  bookmarked_.reset();
  query_.reset();
}

ObjectState JetRecordset::State() const {
  return query_ ? ObjectState::kOpen : ObjectState::kClosed;
}

bool JetRecordset::BOF() const {
  CheckOpen();
  if (edit_mode_ == EditMode::kAdd) return false;
  return Ask([&] { return cursor_->AtBegin(); });
}

bool JetRecordset::EOF_() const {
  CheckOpen();
  if (edit_mode_ == EditMode::kAdd) return false;
  return Ask([&] { return cursor_->AtEnd(); });
}

std::int32_t JetRecordset::RecordCount() const {
  CheckOpen();
  return session_->Reading([&] {
    const std::size_t count =
        query_->IsWholeTable() && !cursor_->FoundAll() ? OnlyTable().RowCount() : cursor_->Count();
    return static_cast<std::int32_t>(
        std::min<std::size_t>(count, std::numeric_limits<std::int32_t>::max()));
  });
}

void JetRecordset::PassGoneRows(SearchDirection onward) {
  while (cursor_->OnRow() && !(reader_->Read(cursor_->Row()) && reader_->Passes())) {
    reader_->Forget();
    cursor_->Remove();
    if (onward == SearchDirection::kForward) {
      cursor_->MoveNext();
    } else {
      cursor_->MovePrevious();
    }
  }
}

void JetRecordset::RequireRow() const {
  CheckOpen();
  if (edit_mode_ == EditMode::kAdd || cursor_->OnRow()) return;
  Refuse(platform::kErrNoCurrentRecord,
         cursor_->OnRemoved() ? message::kCurrentRowDeleted : message::kNoCurrentRow);
}

void JetRecordset::RequireValues() const {
  RequireRow();
  if (!reader_->holds_row() && !reader_->Read(cursor_->Row())) ThrowDeleted();
}

void JetRecordset::ThrowDeleted() {
  throw platform::Error(platform::ErrorKind::kConflict, platform::kErrRowDeleted,
                        message::kRowGone);
}

void JetRecordset::MoveFirst() {
  CheckOpen();
  MoveBy(
      [&] {
        // Rows may have been deleted since: only who knew that there are none is to blame.
        if (cursor_->IsEmpty()) RequireRow();
        cursor_->MoveFirst();
      },
      SearchDirection::kForward);
}

void JetRecordset::MoveLast() {
  MoveBy(
      [&] {
        if (cursor_->IsEmpty()) RequireRow();
        cursor_->MoveLast();
      },
      SearchDirection::kBackward);
}

void JetRecordset::MoveNext() {
  MoveBy(
      [&] {
        if (cursor_->AtEnd()) RequireRow();
        cursor_->MoveNext();
      },
      SearchDirection::kForward);
}

void JetRecordset::MovePrevious() {
  MoveBy(
      [&] {
        if (cursor_->AtBegin()) RequireRow();
        cursor_->MovePrevious();
      },
      SearchDirection::kBackward);
}

std::int32_t JetRecordset::AbsolutePosition() const {
  CheckOpen();
  return session_->Reading([&] {
    if (edit_mode_ == EditMode::kAdd || !cursor_->OnRow()) return 0;
    if (cursor_->OnFirst()) return 1;
    return static_cast<std::int32_t>(cursor_->Place()) + 1;
  });
}

void JetRecordset::SetAbsolutePosition(std::int32_t position) {
  MoveBy(
      [&] {
        const std::size_t count = cursor_->Count();
        if (position < 1 || static_cast<std::size_t>(position) > count) {
          Refuse(platform::kErrInvalidArgument,
                 {message::kNoSuchPosition, {{"<Position>", position}, {"<Count>", count}}});
        }
        cursor_->MoveTo(static_cast<std::size_t>(position) - 1);
      },
      SearchDirection::kForward);
}

platform::Bookmark JetRecordset::GetBookmark() const {
  Ask([&] { RequireRow(); });
  if (edit_mode_ == EditMode::kAdd) {
    Refuse(platform::kErrNoCurrentRecord, message::kNoBookmarkYet);
  }
  const std::span<const jet::RowId> row = cursor_->Row();
  if (row.size() == 1) return {row.front().Reference()};
  bookmarked_->rows.emplace_back(row.begin(), row.end());
  return {bookmarked_->rows.size()};
}

void JetRecordset::SetBookmark(platform::Bookmark bookmark) {
  CheckOpen();
  std::vector<jet::RowId> row;
  if (query_->tables().size() == 1) {
    row = {jet::RowId::FromReference(static_cast<std::uint32_t>(bookmark.value))};
  } else if (bookmark.value >= 1 && bookmark.value <= bookmarked_->rows.size()) {
    row = bookmarked_->rows[bookmark.value - 1];
  }
  MoveBy(
      [&] {
        if (!row.empty() && cursor_->MoveToRow(row)) return;
        Refuse(platform::kErrInvalidArgument, message::kBookmarkUnknown);
      },
      SearchDirection::kForward);
}

std::shared_ptr<platform::Recordset> JetRecordset::Clone() {
  CheckOpen();
  auto clone = std::make_shared<JetRecordset>(session_);
  clone->settings_ = settings_;
  clone->Open();
  clone->bookmarked_ = bookmarked_;
  return clone;
}

std::size_t JetRecordset::FieldIndex(std::string_view name) const {
  CheckOpen();
  if (const auto field = query_->FindOutput(name)) return *field;
  throw platform::Error(platform::ErrorKind::kNotFound, platform::kErrItemNotFound,
                        messages::Message(message::kNoField, {{"<Field>", name}}));
}

const jet::Column& JetRecordset::ColumnOf(std::size_t field) const {
  const TableColumn source = query_->output()[field].source;
  return query_->tables()[source.table]->columns()[source.column];
}

std::vector<std::string> JetRecordset::FieldNames() const {
  CheckOpen();
  std::vector<std::string> names;
  for (const OutputColumn& output : query_->output()) names.push_back(output.name);
  return names;
}

platform::Field& JetRecordset::Fields(std::string_view name) { return Fields(FieldIndex(name)); }

platform::Field& JetRecordset::Fields(std::size_t index) {
  CheckOpen();
  if (index >= query_->output().size()) {
    throw platform::Error(platform::ErrorKind::kNotFound, platform::kErrItemNotFound,
                          messages::Message(message::kNoFieldNumber, {{"<Number>", index}}));
  }
  fields_.resize(query_->output().size());
  if (!fields_[index]) fields_[index] = std::make_unique<JetField>(*this, index);
  return *fields_[index];
}

std::size_t JetRecordset::FieldCount() const {
  CheckOpen();
  return query_->output().size();
}

void JetRecordset::Requery() {
  CheckNoEdit(message::kRequerying);
  session_->Reading([&] {
    Restart();
    reader_->Forget();
  });
}

void JetRecordset::Resync() {
  CheckNoEdit(message::kResyncing);
  session_->Reading([&] {
    reader_->Forget();
    RequireValues();
  });
}

}  // namespace recordset
