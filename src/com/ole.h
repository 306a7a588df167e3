// SPDX-License-Identifier: MIT
// The system's headers of COM and Automation, without the names that they take away from everybody
// else.
#pragma once

#include "files/windows_api.h"
#define interface struct  // as those headers expect it
#include <dispex.h>
#include <ole2.h>
#include <oleauto.h>
#include <olectl.h>

// Interfaces have no virtual destructor; objects of ours are destroyed by their last Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace com {

// The same value for functions that only read it and do not say so.
inline VARIANT* Plain(const VARIANT& value) { return const_cast<VARIANT*>(&value); }

}  // namespace com

#undef FindText
#undef GetObject
#undef MessageBox
#undef interface
