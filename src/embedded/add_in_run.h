// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "com/connect_object.h"

namespace embedded {

// The add-in at work in the studio's process: with its windows, on the studio's objects. There is
// one at a time in a process: raises platform::Error while there is another.
std::unique_ptr<platform::COV4Extensibility> MakeAddIn(const com::ConnectObject::Given& given);

}  // namespace embedded
