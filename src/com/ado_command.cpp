// SPDX-License-Identifier: MIT
#include "com/ado_command.h"

#include <algorithm>

#include "platform/ado.h"

namespace com {

namespace {

struct ParameterType {
  platform::DataType type;
  std::int32_t size;  // characters or bytes; at least 1 where the type needs one
};

struct TypeOfValue {
  static constexpr std::int32_t kShortText = 255;

  ParameterType operator()(bool) const { return {platform::DataType::kBoolean, 0}; }
  ParameterType operator()(std::int32_t) const { return {platform::DataType::kInteger, 0}; }
  ParameterType operator()(double) const { return {platform::DataType::kDouble, 0}; }
  ParameterType operator()(platform::Date) const { return {platform::DataType::kDate, 0}; }
  ParameterType operator()(const std::string& text) const {
    const auto length = static_cast<std::int32_t>(Wide(text).size());
    return {length > kShortText ? platform::DataType::kLongVarWChar : platform::DataType::kVarWChar,
            std::max(length, 1)};
  }
  ParameterType operator()(const std::vector<std::uint8_t>& bytes) const {
    return {platform::DataType::kVarBinary, std::max(static_cast<std::int32_t>(bytes.size()), 1)};
  }
  // Null and what is no value have the type that converts to any other.
  template <class Other>
  ParameterType operator()(const Other&) const {
    return {platform::DataType::kVarWChar, 1};
  }
};

}  // namespace

LateBound MakeCommand(const AdoSession& session, const LateBound& connection,
                      const std::string& text, const std::vector<platform::Variant>& values) {
  constexpr std::int32_t kInput = 1;
  LateBound command = session.Make("Command");
  command.PutObject(L"ActiveConnection", connection);
  command.Put(L"CommandText", Value(text));
  command.Put(L"CommandType", Value(static_cast<std::int32_t>(platform::CommandType::kText)));
  const LateBound parameters = command.Object(L"Parameters");
  for (const platform::Variant& value : values) {
    const ParameterType type = std::visit(TypeOfValue{}, value.storage());
    parameters.Get(L"Append", {command.Get(L"CreateParameter",
                                           {Value(""), Value(static_cast<std::int32_t>(type.type)),
                                            Value(kInput), Value(type.size), Value(value)})});
  }
  return command;
}

}  // namespace com
