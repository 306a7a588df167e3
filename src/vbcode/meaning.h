// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbcode {

// What happens to something, as a set of bits.
using Effect = std::uint8_t;
inline constexpr Effect kReads = 1;
inline constexpr Effect kWrites = 2;
inline constexpr Effect kCalls = 4;
inline constexpr Effect kUndecided = 8;

// How sure it is what a name stands for.
enum class Sureness : std::uint8_t {
  kSure,        // the declaration, or the module, it was found to mean
  kUndeclared,  // nothing that the modules declare
  kDoubtful,    // a local variable, perhaps, that only some branches of #If declare
  kAnyMember,   // a member of an object of unknown class
  kForeign,     // something of which no module here knows
};

// What a reference stands for. Declarations are numbered through all modules.
struct Meaning {
  std::int32_t declaration = -1;  // -1: none
  std::int32_t module = -1;       // for the name of a module
  Effect effect = 0;
  Sureness sureness = Sureness::kUndeclared;
  bool other_object = false;  // a member of another object than Me
};

}  // namespace vbcode
