// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "com/automation_object.h"
#include "platform/variant.h"

namespace com {

// The values of a command, in the order of the "?" of its text.
using CommandParameters = std::shared_ptr<std::vector<Reference<IDispatch>>>;

// OVFormulaEditor.Command: a query with parameters, with ADO's member names.
class CommandObject final : public Automation<CommandObject> {
 public:
  CommandObject() = default;

  static Reference<IUnknown> Create() { return Reference<IUnknown>::Take(new CommandObject); }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;

  const Reference<IDispatch>& connection() const { return connection_; }
  const std::string& text() const { return text_; }
  std::vector<platform::Variant> values() const;

  static const IID kOwnId;
  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Command";
  static const Member<CommandObject> kMembers[6];

 private:
  Value GetText(const Arguments&) { return Value(text_); }
  void PutText(const Arguments& arguments) { text_ = arguments.Text(0); }
  Value GetType(const Arguments&) { return Value(type_); }
  void PutType(const Arguments& arguments) { type_ = arguments.Long(0); }
  Value GetConnection(const Arguments&) { return Value(connection_); }
  void PutConnection(const Arguments& arguments);
  Value CreateParameter(const Arguments& arguments);
  Value Parameters(const Arguments& arguments);
  Value Execute(const Arguments& arguments);

  std::string text_;
  std::int32_t type_ = -1;
  Reference<IDispatch> connection_;
  CommandParameters parameters_ = std::make_shared<std::vector<Reference<IDispatch>>>();
};

}  // namespace com
