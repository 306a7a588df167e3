// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "codegen/data_type.h"
#include "platform/studio.h"

namespace dialogs {

// The hidden form that hosts the studio's item browser and answers the type of an item.
class FDummyVarOCX {
 public:
  // The control may be null: every item is a Variant then.
  explicit FDummyVarOCX(platform::OVItems* items) : ovi(items) {}

  // The Visual Basic type name of the process variable.
  std::string GetDataType(std::string_view item) {
    constexpr std::int32_t kVariant = 12;
    const auto type = ovi ? ovi->VariantTypeOf(item) : std::nullopt;
    return std::string(codegen::GetDataType(type.value_or(kVariant)));
  }

  platform::OVItems* ovi;
};

}  // namespace dialogs
