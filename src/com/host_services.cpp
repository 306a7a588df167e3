// SPDX-License-Identifier: MIT
#include "com/host_services.h"

#include "com/failure.h"
#include "com/studio_names.h"

namespace com {

void HostComponentList::Open(std::string_view project) {
  list_.Get(names::kOpen, {Value(project)});
}

void HostComponentList::Add(std::string_view key, std::string_view value) {
  list_.Get(names::kAdd, {Value(key), Value(value)});
}

void HostComponentList::Remove(std::string_view key, std::string_view value) {
  list_.Get(names::kRemove, {Value(key), Value(value)});
}

void HostComponentList::Commit() { list_.Get(names::kCommit); }

std::optional<std::int32_t> HostItems::VariantTypeOf(std::string_view item) try {
  const platform::Variant type = items_.Get(names::kVariantType, {Value(item)}).ToVariant();
  if (type.IsEmpty() || type.IsNull()) return std::nullopt;
  return type.ToLong();
} catch (const Failure&) {
  return std::nullopt;
}

namespace {

class HostReport final : public platform::ReportAddIn {
 public:
  explicit HostReport(LateBound report) : report_(std::move(report)) {}

  void Show(std::string_view report_type, std::string& text, std::int32_t number) override {
    LateBound::Arguments arguments = {Value(report_type), Value(text), Value(number)};
    report_.CallByReference(names::kShow, arguments);
    text = arguments[1].ToText();
  }

 private:
  LateBound report_;
};

}  // namespace

std::shared_ptr<platform::Object> HostObjects::Create(std::string_view prog_id) {
  return std::make_shared<HostReport>(CreateByName(std::string(prog_id)));
}

}  // namespace com
