// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "com/automation_object.h"
#include "platform/ado.h"

namespace com {

// OVFormulaEditor.Connection: a connection of our own engine, with ADO's member names. What is
// pending when the last reference goes is lost.
class ConnectionObject final : public Automation<ConnectionObject> {
 public:
  ConnectionObject();
  // Shows a connection that somebody else has made.
  explicit ConnectionObject(std::shared_ptr<platform::Connection> connection)
      : connection_(std::move(connection)) {}

  static Reference<IUnknown> Create() { return Reference<IUnknown>::Take(new ConnectionObject); }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  const std::shared_ptr<platform::Connection>& connection() const { return connection_; }

  static const IID kOwnId;
  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Connection";
  static const Member<ConnectionObject> kMembers[11];

 private:
  Value GetConnectionString(const Arguments&) { return Value(connection_string_); }
  void PutConnectionString(const Arguments& arguments);
  Value State(const Arguments&);
  Value Provider(const Arguments&);
  Value Open(const Arguments& arguments);
  Value Close(const Arguments&);
  Value Execute(const Arguments& arguments);
  Value BeginTrans(const Arguments&);
  Value CommitTrans(const Arguments&);
  Value RollbackTrans(const Arguments&);
  Value Errors(const Arguments& arguments);
  Value OpenSchema(const Arguments& arguments);

  std::shared_ptr<platform::Connection> connection_;
  std::string connection_string_;
  std::int32_t transactions_ = 0;
};

// The connection that an argument names: an object of ours, or a text that a connection of its own
// is opened with. Raises kErrInvalidArgument for anything else.
Reference<IDispatch> ConnectionOf(const Arguments& arguments, std::size_t place);
// Of an object that ConnectionOf returned.
const std::shared_ptr<platform::Connection>& EngineOf(const Reference<IDispatch>& connection);

}  // namespace com
