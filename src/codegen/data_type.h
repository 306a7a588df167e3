// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace codegen {

// The Visual Basic type name under which a process variable is declared, for the variant type
// code of its value. Unsigned types take the name of the signed type of their width, the signed
// 8-bit type is a "Byte", and every code that is not listed is a "Variant".
std::string_view GetDataType(std::int32_t variant_type);

}  // namespace codegen
