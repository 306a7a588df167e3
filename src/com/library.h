// SPDX-License-Identifier: MIT
// What the compiler of the type library made of OVFormulaEditor.idl.
#pragma once

#include "com/ole.h"
#define interface struct
#include "OVFormulaEditor.h"
#undef interface
