// SPDX-License-Identifier: MIT
// The identifiers of the type library are defined here, once.
#define INITGUID
#include "com/library.h"
