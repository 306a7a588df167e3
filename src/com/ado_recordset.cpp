// SPDX-License-Identifier: MIT
// Opening, moving and searching. Fields and edits have a file of their own.
#include "com/ado_recordset.h"

#include <utility>

#include "com/ado_command.h"
#include "com/ado_field.h"
#include "recordset/messages.h"

namespace com {

namespace {

using platform::EditMode;
using platform::ObjectState;
using platform::SearchDirection;

template <class Enumeration>
std::int32_t Number(Enumeration value) {
  return static_cast<std::int32_t>(value);
}

}  // namespace

AdoRecordset::AdoRecordset(std::shared_ptr<AdoSession> session) : session_(std::move(session)) {}

AdoRecordset::~AdoRecordset() { Abandon(); }

void AdoRecordset::CheckClosed() const {
  if (rows_) Refuse(platform::kErrObjectOpen, recordset::message::kRecordsetOpen);
}

const LateBound& AdoRecordset::Rows() const {
  if (!rows_) Refuse(platform::kErrObjectClosed, recordset::message::kRecordsetClosed);
  return rows_;
}

void AdoRecordset::CheckNoEdit(const messages::Pattern& action) const {
  if (GetEditMode() == EditMode::kNone) return;
  Refuse(platform::kErrNotAllowedHere,
         {recordset::message::kRowPending, {{"<Action>", messages::Message(action)}}});
}

void AdoRecordset::Call(const wchar_t* method, LateBound::Arguments arguments) const {
  session_->Driving([&] { Rows().Get(method, std::move(arguments)); });
}

platform::Variant AdoRecordset::Ask(const wchar_t* property) const {
  return session_->Driving([&] { return Rows().Get(property).ToVariant(); });
}

// --- Settings ---

void AdoRecordset::SetSource(std::string_view source) {
  CheckClosed();
  settings_.source = source;
}

void AdoRecordset::SetCursorLocation(platform::CursorLocation location) {
  CheckClosed();
  settings_.location = Number(location);
}

void AdoRecordset::SetCursorType(platform::CursorType type) {
  CheckClosed();
  settings_.cursor = Number(type);
}

void AdoRecordset::SetLockType(platform::LockType type) {
  CheckClosed();
  settings_.lock = Number(type);
}

void AdoRecordset::SetCommandType(platform::CommandType type) {
  CheckClosed();
  settings_.command = Number(type);
}

void AdoRecordset::SetIndex(std::string_view name) {
  CheckClosed();
  settings_.index = name;
}

void AdoRecordset::SetParameters(std::vector<platform::Variant> values) {
  CheckClosed();
  settings_.parameters = std::move(values);
}

// --- Opening ---

LateBound AdoRecordset::OpenRows() const {
  const LateBound& connection = session_->OpenConnection();
  LateBound rows = session_->Make("Recordset");
  rows.Put(L"CursorLocation", Value(settings_.location));
  if (!settings_.index.empty()) rows.Put(L"Index", Value(settings_.index));
  const Value cursor(settings_.cursor), lock(settings_.lock);
  if (settings_.parameters.empty()) {
    rows.Get(L"Open", {Value(settings_.source), Value(connection.object()), cursor, lock,
                       Value(settings_.command)});
  } else {
    // A command brings its connection and its kind along.
    const LateBound command =
        MakeCommand(*session_, connection, settings_.source, settings_.parameters);
    rows.Get(L"Open",
             {Value(command.object()), Value::Missing(), cursor, lock, Value(std::int32_t{-1})});
  }
  return rows;
}

void AdoRecordset::Take(LateBound rows) {
  rows_ = std::move(rows);
  cancel_failed_ = false;
  names_.clear();
  columns_.clear();
}

void AdoRecordset::Open() {
  CheckClosed();
  Take(session_->Driving([&] { return OpenRows(); }));
  filter_.clear();
  bookmarks_ = std::make_shared<AdoBookmarks>();
  session_->Register(shared_from_this());
}

// With an object of its own again: a transaction that was rolled back may have ended the other.
void AdoRecordset::Requery() {
  CheckNoEdit(recordset::message::kRequerying);
  session_->Driving([&] {
    LateBound rows = OpenRows();
    if (!filter_.empty()) rows.Put(L"Filter", Value(filter_));
    Take(std::move(rows));
  });
  bookmarks_ = std::make_shared<AdoBookmarks>();
}

void AdoRecordset::LetGo() noexcept {
  Take({});
  fields_.clear();
}

// Only an edit that is pending keeps it open; all else ends with the object.
void AdoRecordset::Close() {
  try {
    Call(L"Close");
  } catch (const platform::Error& error) {
    if (!rows_) throw;
    if (error.number() == platform::kErrNotAllowedHere && !cancel_failed_) throw;
  }
  LetGo();
}

void AdoRecordset::Abandon() noexcept {
  if (!rows_) return;
  for (const wchar_t* method : {L"CancelUpdate", L"Close"}) {
    try {
      rows_.Get(method);
    } catch (const std::exception&) {
      // It ends with its last reference.
    }
  }
  LetGo();
}

ObjectState AdoRecordset::State() const {
  return rows_ ? ObjectState::kOpen : ObjectState::kClosed;
}

std::shared_ptr<platform::Recordset> AdoRecordset::Clone() {
  auto clone = std::make_shared<AdoRecordset>(session_);
  clone->settings_ = settings_;
  clone->Take(session_->Driving([&] { return Rows().Object(L"Clone"); }));
  clone->bookmarks_ = bookmarks_;
  session_->Register(clone);
  return clone;
}

// --- Moving ---

bool AdoRecordset::BOF() const { return Ask(L"BOF").ToBool(); }

bool AdoRecordset::EOF_() const { return Ask(L"EOF").ToBool(); }

void AdoRecordset::MoveFirst() { Call(L"MoveFirst"); }

void AdoRecordset::MoveLast() { Call(L"MoveLast"); }

void AdoRecordset::MoveNext() { Call(L"MoveNext"); }

void AdoRecordset::MovePrevious() { Call(L"MovePrevious"); }

std::int32_t AdoRecordset::Walk(bool to_current) const {
  return session_->Driving([&] {
    const LateBound& rows = Rows();
    const bool at_begin = rows.Get(L"BOF").ToBool(), at_end = rows.Get(L"EOF").ToBool();
    if (at_begin && at_end) return 0;
    const bool on_row = !at_begin && !at_end;
    const Value here = on_row ? rows.Get(L"Bookmark") : Value();
    const platform::Variant current = here.ToVariant();
    std::int32_t count = 0;
    for (rows.Get(L"MoveFirst"); !rows.Get(L"EOF").ToBool(); rows.Get(L"MoveNext")) {
      ++count;
      if (to_current && rows.Get(L"Bookmark").ToVariant() == current) return count;
    }
    if (on_row) rows.Put(L"Bookmark", here);
    if (at_begin) {
      rows.Get(L"MoveFirst");
      rows.Get(L"MovePrevious");
    }
    return count;
  });
}

std::int32_t AdoRecordset::RecordCount() const {
  const std::int32_t count = Ask(L"RecordCount").ToLong();
  return count < 0 ? Walk(false) : count;
}

std::int32_t AdoRecordset::AbsolutePosition() const {
  if (BOF() || EOF_() || GetEditMode() == EditMode::kAdd) return 0;
  const std::int32_t position = Ask(L"AbsolutePosition").ToLong();
  // Access' provider takes places and does not tell them.
  return position < 0 ? Walk(true) : position;
}

void AdoRecordset::SetAbsolutePosition(std::int32_t position) {
  const std::int32_t count = RecordCount();
  if (position < 1 || position > count) {
    Refuse(platform::kErrInvalidArgument,
           {recordset::message::kNoSuchPosition, {{"<Position>", position}, {"<Count>", count}}});
  }
  session_->Driving([&] { Rows().Put(L"AbsolutePosition", Value(position)); });
}

platform::Bookmark AdoRecordset::GetBookmark() const {
  return session_->Driving([&] { return bookmarks_->Keep(Rows().Get(L"Bookmark")); });
}

void AdoRecordset::SetBookmark(platform::Bookmark bookmark) {
  const LateBound& rows = Rows();
  const Value* value = bookmarks_->Find(bookmark);
  if (!value) Refuse(platform::kErrInvalidArgument, recordset::message::kBookmarkUnknown);
  session_->Driving([&] { rows.Put(L"Bookmark", *value); });
}

// --- Searching ---

void AdoRecordset::SetFilter(std::string_view criterion) {
  constexpr std::int32_t kNoFilter = 0;
  CheckNoEdit(recordset::message::kFiltering);
  session_->Driving(
      [&] { Rows().Put(L"Filter", criterion.empty() ? Value(kNoFilter) : Value(criterion)); });
  filter_ = criterion;
}

std::string AdoRecordset::Filter() const {
  Rows();
  return filter_;
}

// The objects may refuse to search from behind the ends.
void AdoRecordset::Find(std::string_view criterion, SearchDirection direction) {
  const LateBound::Arguments arguments = {Value(criterion), Value(0), Value(Number(direction))};
  try {
    return Call(L"Find", arguments);
  } catch (const platform::Error& error) {
    if (error.number() != platform::kErrNoCurrentRecord) throw;
  }
  const bool forward = direction == SearchDirection::kForward;
  if (forward ? EOF_() : BOF()) return;
  forward ? MoveFirst() : MoveLast();
  Call(L"Find", arguments);
}

void AdoRecordset::Seek(const std::vector<platform::Variant>& key, platform::SeekOption option) {
  std::vector<Value> values;
  for (const platform::Variant& value : key) values.emplace_back(value);
  Call(L"Seek", {Value::Array(std::move(values)), Value(Number(option))});
}

}  // namespace com
