// SPDX-License-Identifier: MIT
#pragma once

#include "platform/error.h"

namespace codegen {

// What was asked for cannot be done in the code; nothing changed. number() is the text's.
class Refused : public platform::Error {
 public:
  using platform::Error::Error;
};

}  // namespace codegen
