// SPDX-License-Identifier: MIT
// The studio's smaller objects.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "com/late_bound.h"
#include "platform/studio.h"

namespace com {

// The host project's component list.
class HostComponentList final : public platform::ComponentList {
 public:
  explicit HostComponentList(LateBound list) : list_(std::move(list)) {}

  void Open(std::string_view project) override;
  void Add(std::string_view key, std::string_view value) override;
  void Remove(std::string_view key, std::string_view value) override;
  void Commit() override;

 private:
  LateBound list_;
};

// The studio's item browser.
class HostItems final : public platform::OVItems {
 public:
  explicit HostItems(LateBound items) : items_(std::move(items)) {}

  // Nothing also when the browser raises an error: the item is one that it does not know.
  std::optional<std::int32_t> VariantTypeOf(std::string_view item) override;

 private:
  LateBound items_;
};

// Creates the report add-in of the studio, the one object that the editor asks for by name.
class HostObjects final : public platform::ObjectFactory {
 public:
  std::shared_ptr<platform::Object> Create(std::string_view prog_id) override;
};

}  // namespace com
