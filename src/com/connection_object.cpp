// SPDX-License-Identifier: MIT
#include "com/connection_object.h"

#include "com/collection.h"
#include "com/own_object.h"
#include "com/recordset_object.h"
#include "com/schema_rows.h"
#include "com/values_object.h"
#include "files/file_system.h"
#include "recordset/jet_connection.h"

namespace com {

// {B3D4A1F2-61C9-4E0B-9A63-1C1C1E3C2C11}
const IID ConnectionObject::kOwnId = {
    0xb3d4a1f2, 0x61c9, 0x4e0b, {0x9a, 0x63, 0x1c, 0x1c, 0x1e, 0x3c, 0x2c, 0x11}};

const Member<ConnectionObject> ConnectionObject::kMembers[11] = {
    {L"ConnectionString", &ConnectionObject::GetConnectionString,
     &ConnectionObject::PutConnectionString},
    {L"State", &ConnectionObject::State},
    {L"Provider", &ConnectionObject::Provider},
    {L"Open", &ConnectionObject::Open},
    {L"Close", &ConnectionObject::Close},
    {L"Execute", &ConnectionObject::Execute},
    {L"BeginTrans", &ConnectionObject::BeginTrans},
    {L"CommitTrans", &ConnectionObject::CommitTrans},
    {L"RollbackTrans", &ConnectionObject::RollbackTrans},
    {L"Errors", &ConnectionObject::Errors},
    {L"OpenSchema", &ConnectionObject::OpenSchema},
};

ConnectionObject::ConnectionObject()
    : connection_(std::make_shared<recordset::JetConnection>(files::RealFileSystem())) {}

STDMETHODIMP ConnectionObject::QueryInterface(REFIID id, void** object) {
  if (!object || !IsEqualIID(id, kOwnId)) return AutomationObject::QueryInterface(id, object);
  *object = this;
  AddRef();
  return S_OK;
}

void ConnectionObject::PutConnectionString(const Arguments& arguments) {
  if (connection_->State() == platform::ObjectState::kOpen) {
    Require(ResultOf(platform::kErrObjectOpen));
  }
  connection_string_ = arguments.Text(0);
}

Value ConnectionObject::State(const Arguments&) {
  return Value(static_cast<std::int32_t>(connection_->State()));
}

Value ConnectionObject::Provider(const Arguments&) { return Value("Microsoft.Jet.OLEDB.4.0"); }

Value ConnectionObject::Open(const Arguments& arguments) {
  if (!arguments.Text(0).empty()) connection_string_ = arguments.Text(0);
  connection_->Open(connection_string_);
  return {};
}

Value ConnectionObject::Close(const Arguments&) {
  connection_->Close();
  transactions_ = 0;
  return {};
}

Value ConnectionObject::Execute(const Arguments& arguments) {
  arguments.Demand(1);
  const auto recordset = Make<RecordsetObject>();
  recordset->OpenOn(Reference<IDispatch>::Share(this), arguments.Text(0));
  return Value(recordset);
}

Value ConnectionObject::BeginTrans(const Arguments&) {
  connection_->BeginTrans();
  return Value(++transactions_);
}

Value ConnectionObject::CommitTrans(const Arguments&) {
  connection_->CommitTrans();
  --transactions_;
  return {};
}

Value ConnectionObject::RollbackTrans(const Arguments&) {
  connection_->RollbackTrans();
  --transactions_;
  return {};
}

Value ConnectionObject::Errors(const Arguments& arguments) {
  const auto connection = connection_;
  return Collection::Answer({[connection] { return connection->Errors().size(); },
                             [connection](std::size_t place) {
                               const platform::ProviderError& error = connection->Errors()[place];
                               return Value(Make<ValuesObject>(std::vector<ValuesObject::Entry>{
                                   {L"Description", Value(error.description)},
                                   {L"Number", Value(error.number)},
                                   {L"NativeError", Value(error.native_error)},
                                   {L"Source", Value("OVFormulaEditor.Connection")}}));
                             },
                             {},
                             0,
                             platform::kErrItemNotFound},
                            arguments);
}

Value ConnectionObject::OpenSchema(const Arguments& arguments) {
  arguments.Demand(1);
  return Value(OpenSchemaRows(*connection_, arguments.Long(0), ElementsOf(arguments.Raw(1))));
}

Reference<IDispatch> ConnectionOf(const Arguments& arguments, std::size_t place) {
  Reference<IDispatch> object = arguments.Object(place);
  if (!object && arguments.At(place).IsText()) {
    auto own = Make<ConnectionObject>();
    own->connection()->Open(arguments.Text(place));
    object = Reference<IDispatch>::Share(own.get());
  }
  if (!OwnObject<ConnectionObject>(object)) Require(ResultOf(platform::kErrInvalidArgument));
  return object;
}

const std::shared_ptr<platform::Connection>& EngineOf(const Reference<IDispatch>& connection) {
  return OwnObject<ConnectionObject>(connection)->connection();
}

}  // namespace com
