// SPDX-License-Identifier: MIT
#include "com/command_object.h"

#include <utility>

#include "com/collection.h"
#include "com/connection_object.h"
#include "com/own_object.h"
#include "com/recordset_object.h"
#include "platform/ado.h"

namespace com {

namespace {

// A parameter of a command. Its type does not matter: the engine compares by the field's.
class ParameterObject final : public Automation<ParameterObject> {
 public:
  ParameterObject(std::string name, platform::Variant value)
      : name_(std::move(name)), value_(std::move(value)) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object || !IsEqualIID(id, kOwnId)) return AutomationObject::QueryInterface(id, object);
    *object = this;
    AddRef();
    return S_OK;
  }
  const platform::Variant& value() const { return value_; }

  static const IID kOwnId;
  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Parameter";
  static const Member<ParameterObject> kMembers[2];

 private:
  Value GetValue(const Arguments&) { return Value(value_); }
  void PutValue(const Arguments& arguments) { value_ = arguments.At(0); }
  Value Name(const Arguments&) { return Value(name_); }

  std::string name_;
  platform::Variant value_;
};

// {5C0E6E52-6D5E-4B4F-8E0C-2F0B2E0C9B02}
const IID ParameterObject::kOwnId = {
    0x5c0e6e52, 0x6d5e, 0x4b4f, {0x8e, 0x0c, 0x2f, 0x0b, 0x2e, 0x0c, 0x9b, 0x02}};

const Member<ParameterObject> ParameterObject::kMembers[2] = {
    {L"Value", &ParameterObject::GetValue, &ParameterObject::PutValue},
    {L"Name", &ParameterObject::Name},
};

class ParametersObject final : public Automation<ParametersObject> {
 public:
  explicit ParametersObject(CommandParameters parameters) : parameters_(std::move(parameters)) {}

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Parameters";
  static const Member<ParametersObject> kMembers[3];
  static Collection::Source Source(const CommandParameters& parameters) {
    return {[parameters] { return parameters->size(); },
            [parameters](std::size_t place) { return Value((*parameters)[place]); },
            {},
            0,
            platform::kErrItemNotFound};
  }

 private:
  Value Item(const Arguments& arguments) {
    arguments.Demand(1);
    return Collection::Find(Source(parameters_), arguments.At(0));
  }
  Value Count(const Arguments&) { return Value(static_cast<std::int32_t>(parameters_->size())); }
  Value Append(const Arguments& arguments) {
    const Reference<IDispatch> parameter = arguments.Object(0);
    if (!OwnObject<ParameterObject>(parameter)) Require(ResultOf(platform::kErrInvalidArgument));
    parameters_->push_back(parameter);
    return {};
  }

  CommandParameters parameters_;
};

const Member<ParametersObject> ParametersObject::kMembers[3] = {
    {L"Item", &ParametersObject::Item},
    {L"Count", &ParametersObject::Count},
    {L"Append", &ParametersObject::Append},
};

}  // namespace

// {5C0E6E52-6D5E-4B4F-8E0C-2F0B2E0C9B01}
const IID CommandObject::kOwnId = {
    0x5c0e6e52, 0x6d5e, 0x4b4f, {0x8e, 0x0c, 0x2f, 0x0b, 0x2e, 0x0c, 0x9b, 0x01}};

const Member<CommandObject> CommandObject::kMembers[6] = {
    {L"CommandText", &CommandObject::GetText, &CommandObject::PutText},
    {L"CommandType", &CommandObject::GetType, &CommandObject::PutType},
    {L"ActiveConnection", &CommandObject::GetConnection, &CommandObject::PutConnection},
    {L"CreateParameter", &CommandObject::CreateParameter},
    {L"Parameters", &CommandObject::Parameters},
    {L"Execute", &CommandObject::Execute},
};

STDMETHODIMP CommandObject::QueryInterface(REFIID id, void** object) {
  if (!object || !IsEqualIID(id, kOwnId)) return AutomationObject::QueryInterface(id, object);
  *object = this;
  AddRef();
  return S_OK;
}

std::vector<platform::Variant> CommandObject::values() const {
  std::vector<platform::Variant> values;
  for (const auto& parameter : *parameters_) {
    values.push_back(OwnObject<ParameterObject>(parameter)->value());
  }
  return values;
}

void CommandObject::PutConnection(const Arguments& arguments) {
  connection_ = ConnectionOf(arguments, 0);
}

// Name, Type, Direction, Size, Value
Value CommandObject::CreateParameter(const Arguments& arguments) {
  return Value(Make<ParameterObject>(arguments.Text(0), arguments.At(4)));
}

Value CommandObject::Parameters(const Arguments& arguments) {
  if (arguments.size() > 0) {
    return Collection::Find(ParametersObject::Source(parameters_), arguments.At(0));
  }
  return Value(Make<ParametersObject>(parameters_));
}

Value CommandObject::Execute(const Arguments&) {
  if (!connection_) Require(ResultOf(platform::kErrObjectClosed));
  const auto recordset = Make<RecordsetObject>();
  recordset->OpenOn(connection_, text_, values());
  return Value(recordset);
}

}  // namespace com
