// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "com/automation_object.h"
#include "platform/ado.h"

namespace com {

// What OpenSchema answers: a recordset, with ADO's member names, that is only walked forward.
class SchemaRows final : public Automation<SchemaRows> {
 public:
  using Row = std::vector<Value>;
  SchemaRows(std::vector<std::wstring> columns, std::vector<Row> rows)
      : columns_(std::move(columns)), rows_(std::move(rows)) {}

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Recordset";
  static const Member<SchemaRows> kMembers[8];

 private:
  Value Fields(const Arguments& arguments);
  Value IsAtEnd(const Arguments&) { return Value(next_ >= rows_.size()); }
  Value IsEmpty(const Arguments&) { return Value(rows_.empty()); }
  Value RecordCount(const Arguments&) { return Value(static_cast<std::int32_t>(rows_.size())); }
  Value State(const Arguments&) { return Value(open_ ? 1 : 0); }
  Value MoveFirst(const Arguments&);
  Value MoveNext(const Arguments&);
  Value Close(const Arguments&);

  std::vector<std::wstring> columns_;
  std::vector<Row> rows_;
  std::size_t next_ = 0;
  bool open_ = true;
};

// The definitions of a database as ADO's schema recordsets, with the columns of the provider that
// have a value. Restrictions: the table's name, in ADO's place. Raises kErrFeatureNotAvailable for
// other queries and restrictions.
Reference<SchemaRows> OpenSchemaRows(platform::Connection& connection, std::int32_t query,
                                     const std::vector<Value>& restrictions);

}  // namespace com
