// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "com/ado_bookmarks.h"
#include "com/ado_session.h"
#include "com/late_bound.h"
#include "platform/ado.h"

namespace com {

// A recordset over a late-bound object of ADO's model. The object is made when the recordset is
// opened, or its rows are read anew, and let go when it is closed. What the interface promises and
// the model leaves to the provider (an edit that is pending, places of rows, rows behind the ends)
// is settled here.
class AdoRecordset final : public platform::Recordset,
                           public std::enable_shared_from_this<AdoRecordset> {
 public:
  explicit AdoRecordset(std::shared_ptr<AdoSession> session);
  ~AdoRecordset() override;

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
  // Closes whatever the object says to that; what is pending is lost.
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

  platform::EditMode GetEditMode() const override;
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
  class AdoField;
  struct Settings {
    std::string source;
    std::string index;
    std::int32_t location = static_cast<std::int32_t>(platform::CursorLocation::kServer);
    std::int32_t cursor = static_cast<std::int32_t>(platform::CursorType::kUnspecified);
    std::int32_t lock = static_cast<std::int32_t>(platform::LockType::kUnspecified);
    std::int32_t command = static_cast<std::int32_t>(platform::CommandType::kUnspecified);
    std::vector<platform::Variant> parameters;
  };

  void CheckClosed() const;
  // The object. Raises kErrObjectClosed when there is none.
  const LateBound& Rows() const;
  void CheckNoEdit(const messages::Pattern& action) const;
  void Call(const wchar_t* method, LateBound::Arguments arguments = {}) const;
  void CallOrCancel(const wchar_t* method, LateBound::Arguments arguments);
  platform::Variant Ask(const wchar_t* property) const;

  LateBound OpenRows() const;
  void Take(LateBound rows);
  void LetGo() noexcept;
  // Rows from the first one to the current one, or to the last; stands where it stood then.
  std::int32_t Walk(bool to_current) const;
  const std::vector<std::string>& Names() const;
  std::size_t FieldIndex(std::string_view name) const;
  const LateBound& Column(std::size_t field) const;

  std::shared_ptr<AdoSession> session_;
  Settings settings_;
  LateBound rows_;
  bool cancel_failed_ = false;  // an edit that nobody wants is pending still
  std::string filter_;
  std::shared_ptr<AdoBookmarks> bookmarks_;  // of the clones, too
  mutable std::vector<std::string> names_;   // read when they are needed first
  mutable std::vector<LateBound> columns_;   // likewise
  std::vector<std::unique_ptr<AdoField>> fields_;
};

}  // namespace com
