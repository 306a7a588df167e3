// SPDX-License-Identifier: MIT
#pragma once

#include "files/file_identity.h"

// The reach of tests that are not about it.
inline const files::Reach kAnyFile = [](const std::string&) { return true; };
