// SPDX-License-Identifier: MIT
#include "codegen/data_type.h"

namespace codegen {

std::string_view GetDataType(std::int32_t variant_type) {
  switch (variant_type) {
    case 2:
    case 18:
      return "Integer";
    case 3:
    case 19:
    case 22:
    case 23:
      return "Long";
    case 4:
      return "Single";
    case 5:
      return "Double";
    case 6:
      return "Currency";
    case 7:
      return "Date";
    case 8:
      return "String";
    case 11:
      return "Boolean";
    case 16:
    case 17:
      return "Byte";
    default:
      return "Variant";
  }
}

}  // namespace codegen
