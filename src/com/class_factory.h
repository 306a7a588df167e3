// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "com/served_class.h"

namespace com {

// What DllGetClassObject answers: the factory of one of the classes.
// CLASS_E_CLASSNOTAVAILABLE when it is none of them.
HRESULT GetClassObject(std::span<const ServedClass> classes, REFCLSID class_id, REFIID interface_id,
                       void** object);

}  // namespace com
