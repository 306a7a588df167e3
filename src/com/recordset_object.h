// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "com/automation_object.h"
#include "com/collection.h"
#include "platform/ado.h"

namespace com {

// OVFormulaEditor.Recordset: rows of our own engine, with ADO's member names and defaults (read
// only unless a lock type says otherwise).
class RecordsetObject final : public Automation<RecordsetObject> {
 public:
  RecordsetObject() = default;

  static Reference<IUnknown> Create() { return Reference<IUnknown>::Take(new RecordsetObject); }

  // Opens on a connection of ours.
  void OpenOn(const Reference<IDispatch>& connection, const std::string& source,
              std::vector<platform::Variant> parameters = {});
  // Null while it was never opened.
  const std::shared_ptr<platform::Recordset>& rows() const { return rows_; }

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Recordset";
  static const Member<RecordsetObject> kMembers[32];

 private:
  struct Settings {
    std::string source;
    std::string index;
    std::int32_t cursor_location = static_cast<std::int32_t>(platform::CursorLocation::kServer);
    std::int32_t cursor_type = static_cast<std::int32_t>(platform::CursorType::kForwardOnly);
    std::int32_t lock_type = static_cast<std::int32_t>(platform::LockType::kReadOnly);
    std::int32_t command_type = static_cast<std::int32_t>(platform::CommandType::kUnspecified);
    std::vector<platform::Variant> parameters;
  };

  // The rows, open or not. Raises kErrObjectClosed when there are none yet.
  platform::Recordset& Rows() const;
  bool IsOpen() const { return rows_ && rows_->State() == platform::ObjectState::kOpen; }
  void RequireClosed() const;
  void OpenRows();
  Collection::Source FieldSource() const;

  // Settings.
  Value GetActiveConnection(const Arguments&) { return Value(connection_); }
  void PutActiveConnection(const Arguments& arguments);
  Value GetSource(const Arguments&) { return Value(settings_.source); }
  void PutSource(const Arguments& arguments);
  Value GetIndex(const Arguments&) { return Value(settings_.index); }
  void PutIndex(const Arguments& arguments);
  Value GetCursorLocation(const Arguments&) { return Value(settings_.cursor_location); }
  void PutCursorLocation(const Arguments& arguments);
  Value GetCursorType(const Arguments&) { return Value(settings_.cursor_type); }
  void PutCursorType(const Arguments& arguments);
  Value GetLockType(const Arguments&) { return Value(settings_.lock_type); }
  void PutLockType(const Arguments& arguments);

  // Opening and place.
  Value Open(const Arguments& arguments);
  Value Close(const Arguments&);
  Value State(const Arguments&) { return Value(IsOpen() ? 1 : 0); }
  Value BOF(const Arguments&) { return Value(Rows().BOF()); }
  Value AtEnd(const Arguments&) { return Value(Rows().EOF_()); }
  Value RecordCount(const Arguments&) { return Value(Rows().RecordCount()); }
  Value MoveFirst(const Arguments&);
  Value MoveLast(const Arguments&);
  Value MoveNext(const Arguments&);
  Value MovePrevious(const Arguments&);
  Value Move(const Arguments& arguments);
  Value GetAbsolutePosition(const Arguments&) { return Value(Rows().AbsolutePosition()); }
  void PutAbsolutePosition(const Arguments& arguments);
  Value GetBookmark(const Arguments&);
  void PutBookmark(const Arguments& arguments);
  Value Clone(const Arguments&);

  // Finding.
  Value GetFilter(const Arguments&) { return Value(Rows().Filter()); }
  void PutFilter(const Arguments& arguments);
  Value Find(const Arguments& arguments);
  Value Seek(const Arguments& arguments);

  // Contents.
  Value Fields(const Arguments& arguments);
  void PutField(const Arguments& arguments);
  Value GetRows(const Arguments& arguments);
  Value EditMode(const Arguments&);
  Value AddNew(const Arguments& arguments);
  Value Update(const Arguments& arguments);
  Value CancelUpdate(const Arguments&);
  Value Delete(const Arguments&);
  Value Requery(const Arguments&);
  Value Resync(const Arguments&);

  Reference<IDispatch> connection_;
  std::shared_ptr<platform::Recordset> rows_;
  Settings settings_;
};

}  // namespace com
