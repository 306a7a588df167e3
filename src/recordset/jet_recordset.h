// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/table.h"
#include "platform/ado.h"
#include "recordset/connection_state.h"
#include "recordset/query.h"
#include "recordset/record_reader.h"
#include "recordset/row_cursor.h"

namespace recordset {

class JetField;

// A recordset over the Jet engine. Whatever kind of cursor is asked for, it is a keyset: its rows
// are settled when it is opened, filtered or requeried, and their values are read when a row
// becomes current; a row that is gone or no longer passes the filter then is passed over. A row
// that somebody else changed since it was read is neither changed nor deleted. Rows of joins, and
// of a recordset opened read-only, cannot be changed.
class JetRecordset final : public platform::Recordset,
                           public std::enable_shared_from_this<JetRecordset> {
 public:
  explicit JetRecordset(std::shared_ptr<ConnectionState> session);
  ~JetRecordset() override;

  void SetSource(std::string_view source) override;
  void SetCursorLocation(platform::CursorLocation location) override;
  void SetCursorType(platform::CursorType type) override;
  void SetLockType(platform::LockType type) override;
  void SetCommandType(platform::CommandType type) override;
  void SetIndex(std::string_view name) override;
  void SetParameters(std::vector<platform::Variant> values) override;

  void Open() override;
  void Close() override;
  platform::ObjectState State() const override;
  // Closes without asking; what is pending is lost.
  void Abandon() noexcept;

  bool BOF() const override;
  bool EOF_() const override;
  std::int32_t RecordCount() const override;
  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  std::int32_t AbsolutePosition() const override;
  void SetAbsolutePosition(std::int32_t position) override;
  platform::Bookmark GetBookmark() const override;
  void SetBookmark(platform::Bookmark bookmark) override;
  std::shared_ptr<platform::Recordset> Clone() override;

  void SetFilter(std::string_view criterion) override;
  std::string Filter() const override;
  void Find(std::string_view criterion, platform::SearchDirection direction) override;
  void Seek(const std::vector<platform::Variant>& key, platform::SeekOption option) override;

  std::vector<std::string> FieldNames() const override;
  platform::Field& Fields(std::string_view name) override;
  platform::Field& Fields(std::size_t index) override;
  std::size_t FieldCount() const override;

  platform::EditMode GetEditMode() const override { return edit_mode_; }
  void AddNew(const std::vector<std::string>& fields,
              const std::vector<platform::Variant>& values) override;
  void AddNew() override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;
  void Requery() override;
  void Resync() override;
  platform::RowBlock GetRows(std::int32_t count, const std::vector<std::string>& fields) override;

 private:
  friend class JetField;

  // The rows of joins that bookmarks name; shared by clones.
  struct BookmarkedRows {
    std::vector<std::vector<jet::RowId>> rows;
  };
  struct Settings {
    std::string source;
    platform::CursorLocation location = platform::CursorLocation::kServer;
    platform::CursorType cursor = platform::CursorType::kUnspecified;
    platform::LockType lock = platform::LockType::kUnspecified;
    platform::CommandType command = platform::CommandType::kUnspecified;
    std::string index;
    std::vector<platform::Variant> parameters;
  };

  void CheckClosed() const;
  void CheckOpen() const;
  void CheckNoEdit(const messages::Pattern& action) const;
  std::unique_ptr<Query> MakeQuery();
  std::unique_ptr<Query> TableQuery() const;
  jet::Table& OnlyTable() const { return *query_->tables().front(); }
  void Restart();
  std::size_t FieldIndex(std::string_view name) const;
  const jet::Column& ColumnOf(std::size_t field) const;

  // Writes what is pending, makes the move, reads the row that is current then, and passes over
  // rows that are gone by now.
  template <class Move>
  void MoveBy(Move move, platform::SearchDirection onward);
  void PassGoneRows(platform::SearchDirection onward);
  // Calls what asks for the cursor's position, which may have to be looked up first.
  template <class Question>
  auto Ask(Question question) const;
  // Raises kErrNoCurrentRecord unless a row is current that is not being added.
  void RequireRow() const;
  // The same; the row is read unless it is. Raises kErrRowDeleted when it is gone.
  void RequireValues() const;
  // Raises kErrRowDeleted.
  [[noreturn]] static void ThrowDeleted();

  bool FindByIndex(std::string_view criterion);
  void FindByReading(const Condition& condition, const NeededColumns& needed,
                     platform::SearchDirection direction);
  std::optional<std::vector<jet::Value>> SeekKey(const std::vector<platform::Variant>& key) const;

  platform::RowBlock ReadRows(std::int32_t count, const std::vector<TableColumn>& sources);

  // Of the field at a position of the output.
  platform::Variant FieldValue(std::size_t field) const;
  platform::Variant OriginalValue(std::size_t field) const;
  void SetFieldValue(std::size_t field, const platform::Variant& value);

  void CheckUpdatable() const;
  void UpdatePending();
  std::vector<jet::ColumnValue> PendingValues() const;
  void WriteNewRow();
  void WriteChanges();
  void RequireUnchanged() const;
  void EndEdit() noexcept;

  std::shared_ptr<ConnectionState> session_;
  Settings settings_;
  std::shared_ptr<const SelectText> select_;    // of the source, once it was opened
  std::unique_ptr<Query> query_;                // null while closed, as are the next three
  mutable std::optional<RowCursor> cursor_;     // mutable: finds its rows when they are asked for
  mutable std::optional<RecordReader> reader_;  // holds the row as it was read, what a change of
                                                // it is judged by
  std::optional<jet::IndexCursor> seek_cursor_;
  std::vector<std::unique_ptr<JetField>> fields_;  // made when they are first asked for
  std::shared_ptr<BookmarkedRows> bookmarked_;

  platform::EditMode edit_mode_ = platform::EditMode::kNone;
  std::vector<std::optional<platform::Variant>> pending_;  // by position of the output
};

template <class Move>
void JetRecordset::MoveBy(Move move, platform::SearchDirection onward) {
  CheckOpen();
  UpdatePending();
  session_->Reading([&] {
    reader_->Forget();
    move();
    PassGoneRows(onward);
  });
}

template <class Question>
auto JetRecordset::Ask(Question question) const {
  if (cursor_->IsSettled()) return question();
  return session_->Reading(question);
}

}  // namespace recordset
