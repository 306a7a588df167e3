// SPDX-License-Identifier: MIT
// Members of a recordset: settings, opening, moving. Contents have a file of their own.
#include "com/recordset_object.h"

#include <utility>

#include "com/command_object.h"
#include "com/connection_object.h"
#include "com/own_object.h"

namespace com {

const Member<RecordsetObject> RecordsetObject::kMembers[32] = {
    {L"Fields", &RecordsetObject::Fields, &RecordsetObject::PutField},
    {L"ActiveConnection", &RecordsetObject::GetActiveConnection,
     &RecordsetObject::PutActiveConnection},
    {L"Source", &RecordsetObject::GetSource, &RecordsetObject::PutSource},
    {L"Index", &RecordsetObject::GetIndex, &RecordsetObject::PutIndex},
    {L"CursorLocation", &RecordsetObject::GetCursorLocation, &RecordsetObject::PutCursorLocation},
    {L"CursorType", &RecordsetObject::GetCursorType, &RecordsetObject::PutCursorType},
    {L"LockType", &RecordsetObject::GetLockType, &RecordsetObject::PutLockType},
    {L"Open", &RecordsetObject::Open},
    {L"Close", &RecordsetObject::Close},
    {L"State", &RecordsetObject::State},
    {L"BOF", &RecordsetObject::BOF},
    {L"EOF", &RecordsetObject::AtEnd},
    {L"RecordCount", &RecordsetObject::RecordCount},
    {L"MoveFirst", &RecordsetObject::MoveFirst},
    {L"MoveLast", &RecordsetObject::MoveLast},
    {L"MoveNext", &RecordsetObject::MoveNext},
    {L"MovePrevious", &RecordsetObject::MovePrevious},
    {L"Move", &RecordsetObject::Move},
    {L"AbsolutePosition", &RecordsetObject::GetAbsolutePosition,
     &RecordsetObject::PutAbsolutePosition},
    {L"Bookmark", &RecordsetObject::GetBookmark, &RecordsetObject::PutBookmark},
    {L"Clone", &RecordsetObject::Clone},
    {L"Filter", &RecordsetObject::GetFilter, &RecordsetObject::PutFilter},
    {L"Find", &RecordsetObject::Find},
    {L"Seek", &RecordsetObject::Seek},
    {L"GetRows", &RecordsetObject::GetRows},
    {L"EditMode", &RecordsetObject::EditMode},
    {L"AddNew", &RecordsetObject::AddNew},
    {L"Update", &RecordsetObject::Update},
    {L"CancelUpdate", &RecordsetObject::CancelUpdate},
    {L"Delete", &RecordsetObject::Delete},
    {L"Requery", &RecordsetObject::Requery},
    {L"Resync", &RecordsetObject::Resync},
};

platform::Recordset& RecordsetObject::Rows() const {
  if (!rows_) Require(ResultOf(platform::kErrObjectClosed));
  return *rows_;
}

void RecordsetObject::RequireClosed() const {
  if (IsOpen()) Require(ResultOf(platform::kErrObjectOpen));
}

// --- Settings ---

void RecordsetObject::PutActiveConnection(const Arguments& arguments) {
  RequireClosed();
  connection_ = ConnectionOf(arguments, 0);
}

void RecordsetObject::PutSource(const Arguments& arguments) {
  RequireClosed();
  settings_.source = arguments.Text(0);
}

void RecordsetObject::PutIndex(const Arguments& arguments) {
  RequireClosed();
  settings_.index = arguments.Text(0);
}

void RecordsetObject::PutCursorLocation(const Arguments& arguments) {
  RequireClosed();
  settings_.cursor_location = arguments.Long(0);
}

void RecordsetObject::PutCursorType(const Arguments& arguments) {
  RequireClosed();
  settings_.cursor_type = arguments.Long(0);
}

void RecordsetObject::PutLockType(const Arguments& arguments) {
  RequireClosed();
  settings_.lock_type = arguments.Long(0);
}

// --- Opening ---

void RecordsetObject::OpenRows() {
  if (!connection_) Require(ResultOf(platform::kErrObjectClosed));
  rows_ = EngineOf(connection_)->CreateRecordset();
  rows_->SetSource(settings_.source);
  rows_->SetIndex(settings_.index);
  rows_->SetCursorLocation(static_cast<platform::CursorLocation>(settings_.cursor_location));
  rows_->SetCursorType(static_cast<platform::CursorType>(settings_.cursor_type));
  rows_->SetLockType(static_cast<platform::LockType>(settings_.lock_type));
  rows_->SetCommandType(static_cast<platform::CommandType>(settings_.command_type));
  rows_->SetParameters(settings_.parameters);
  rows_->Open();
}

void RecordsetObject::OpenOn(const Reference<IDispatch>& connection, const std::string& source,
                             std::vector<platform::Variant> parameters) {
  RequireClosed();
  connection_ = connection;
  settings_.source = source;
  settings_.parameters = std::move(parameters);
  OpenRows();
}

Value RecordsetObject::Open(const Arguments& arguments) {
  RequireClosed();
  settings_.cursor_type = arguments.Long(2, settings_.cursor_type);
  settings_.lock_type = arguments.Long(3, settings_.lock_type);
  settings_.command_type =
      arguments.Long(4, static_cast<std::int32_t>(platform::CommandType::kUnspecified));
  if (const Reference<IDispatch> source = arguments.Object(0)) {
    const auto* command = OwnObject<CommandObject>(source);
    if (!command) Require(ResultOf(platform::kErrInvalidArgument));
    OpenOn(command->connection(), command->text(), command->values());
    return {};
  }
  if (arguments.Has(0)) settings_.source = arguments.Text(0);
  if (arguments.Has(1)) connection_ = ConnectionOf(arguments, 1);
  settings_.parameters.clear();
  OpenRows();
  return {};
}

Value RecordsetObject::Close(const Arguments&) {
  Rows().Close();
  return {};
}

// --- Moving ---

Value RecordsetObject::MoveFirst(const Arguments&) {
  Rows().MoveFirst();
  return {};
}

Value RecordsetObject::MoveLast(const Arguments&) {
  Rows().MoveLast();
  return {};
}

Value RecordsetObject::MoveNext(const Arguments&) {
  Rows().MoveNext();
  return {};
}

Value RecordsetObject::MovePrevious(const Arguments&) {
  Rows().MovePrevious();
  return {};
}

Value RecordsetObject::Move(const Arguments& arguments) {
  arguments.Demand(1);
  platform::Recordset& rows = Rows();
  std::int32_t count = arguments.Long(0);
  for (; count > 0 && !rows.EOF_(); --count) rows.MoveNext();
  for (; count < 0 && !rows.BOF(); ++count) rows.MovePrevious();
  return {};
}

void RecordsetObject::PutAbsolutePosition(const Arguments& arguments) {
  Rows().SetAbsolutePosition(arguments.Long(0));
}

Value RecordsetObject::GetBookmark(const Arguments&) {
  return Value(static_cast<double>(Rows().GetBookmark().value));
}

void RecordsetObject::PutBookmark(const Arguments& arguments) {
  Rows().SetBookmark({static_cast<std::uint64_t>(arguments.At(0).ToDouble())});
}

Value RecordsetObject::Clone(const Arguments&) {
  const auto clone = Make<RecordsetObject>();
  clone->connection_ = connection_;
  clone->settings_ = settings_;
  clone->rows_ = Rows().Clone();
  return Value(clone);
}

}  // namespace com
