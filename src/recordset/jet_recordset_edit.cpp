// SPDX-License-Identifier: MIT
// Adding, changing and deleting rows. A row that is changed is judged by what was read of it: when
// somebody else changed it since, nothing is written.
#include <algorithm>
#include <utility>

#include "recordset/jet_field.h"
#include "recordset/jet_recordset.h"
#include "recordset/value_conversion.h"

namespace recordset {

using platform::EditMode;
using platform::ErrorKind;
using platform::LockType;
using platform::Variant;

Variant JetRecordset::FieldValue(std::size_t field) const {
  if (!pending_.empty() && pending_[field]) return *pending_[field];
  return OriginalValue(field);
}

Variant JetRecordset::OriginalValue(std::size_t field) const {
  if (edit_mode_ == EditMode::kAdd) return Coerce(ColumnOf(field), platform::Null{});
  if (reader_->holds_row()) return ToVariant((*reader_)[field]);
  return session_->Reading([&] {
    RequireValues();
    return ToVariant((*reader_)[field]);
  });
}

void JetRecordset::SetFieldValue(std::size_t field, const Variant& value) {
  CheckUpdatable();
  const jet::Column& column = ColumnOf(field);
  if (column.auto_number) {
    Refuse(platform::kErrFeatureNotAvailable,
           {message::kFieldNumbered, {{"<Field>", column.name}}});
  }
  if (edit_mode_ == EditMode::kNone && !reader_->holds_row()) {
    session_->Reading([&] { RequireValues(); });
  }
  Variant coerced = session_->Guarded([&] { return Coerce(column, value); });
  if (pending_.empty()) pending_.resize(query_->output().size());
  pending_[field] = std::move(coerced);
  if (edit_mode_ == EditMode::kNone) edit_mode_ = EditMode::kInProgress;
}

void JetRecordset::CheckUpdatable() const {
  CheckOpen();
  if (settings_.lock == LockType::kReadOnly || settings_.lock == LockType::kUnspecified) {
    Refuse(platform::kErrFeatureNotAvailable, message::kReadOnlyRecordset);
  }
  if (query_->tables().size() > 1) {
    Refuse(platform::kErrFeatureNotAvailable, message::kJoinedRows);
  }
  const messages::Message reason = OnlyTable().ReadOnlyReason();
  if (!reason.empty()) Refuse(platform::kErrPermissionDenied, reason);
}

void JetRecordset::AddNew(const std::vector<std::string>& fields,
                          const std::vector<Variant>& values) {
  CheckUpdatable();
  if (fields.size() != values.size()) {
    Refuse(platform::kErrInvalidArgument, message::kValueForEachField);
  }
  AddNew();
  try {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      SetFieldValue(FieldIndex(fields[i]), values[i]);
    }
    Update();
  } catch (...) {
    EndEdit();
    throw;
  }
}

void JetRecordset::AddNew() {
  CheckUpdatable();
  UpdatePending();
  edit_mode_ = EditMode::kAdd;
}

void JetRecordset::UpdatePending() {
  if (edit_mode_ != EditMode::kNone) Update();
}

void JetRecordset::Update() {
  CheckOpen();
  switch (edit_mode_) {
    case EditMode::kNone:
      return;
    case EditMode::kAdd:
      session_->Guarded([&] { WriteNewRow(); });
      break;
    case EditMode::kInProgress:
      session_->Guarded([&] { WriteChanges(); });
      break;
  }
  EndEdit();
}

std::vector<jet::ColumnValue> JetRecordset::PendingValues() const {
  std::vector<jet::ColumnValue> values;
  for (std::size_t field = 0; field < pending_.size(); ++field) {
    if (!pending_[field]) continue;
    values.push_back(
        {query_->output()[field].source.column, ToValue(ColumnOf(field), *pending_[field])});
  }
  return values;
}

void JetRecordset::WriteNewRow() {
  const jet::InsertResult added = OnlyTable().Insert(PendingValues());
  cursor_->Add(added.id);
  reader_->Forget();
}

// The row as it is now must be the one that was read. What was not read is not judged.
void JetRecordset::RequireUnchanged() const {
  RecordReader now(*query_);
  if (!now.Read(cursor_->Row())) ThrowDeleted();
  if (!reader_->holds_row() || now.SameValues(*reader_)) return;
  throw platform::Error(ErrorKind::kConflict, platform::kErrWriteConflict,
                        Joined(message::kRowChanged, message::kReadAgain));
}

void JetRecordset::WriteChanges() {
  jet::Transaction transaction(query_->database());
  RequireUnchanged();
  OnlyTable().Update(cursor_->Row().front(), PendingValues());
  transaction.Commit();
  reader_->Forget();
}

void JetRecordset::EndEdit() noexcept {
  edit_mode_ = EditMode::kNone;
  pending_.clear();
}

void JetRecordset::CancelUpdate() {
  CheckOpen();
  EndEdit();
}

void JetRecordset::Delete() {
  CheckUpdatable();
  CheckNoEdit(message::kDeleting);
  session_->Reading([&] {
    RequireValues();
    cursor_->Place();
    if (!cursor_->OnRow()) ThrowDeleted();
  });
  session_->Guarded([&] {
    jet::Transaction transaction(query_->database());
    RequireUnchanged();
    OnlyTable().Delete(cursor_->Row().front());
    transaction.Commit();
    reader_->Forget();
    cursor_->Remove();
  });
}

}  // namespace recordset
