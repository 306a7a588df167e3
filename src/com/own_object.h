// SPDX-License-Identifier: MIT
#pragma once

#include "com/ole.h"
#include "com/reference.h"

namespace com {

// Finds the C++ object behind an interface, if it is one of class T: T answers T::kOwnId, which no
// other class knows and no proxy carries over to another apartment. The object lives as long as
// the reference.
template <class T>
T* OwnObject(const Reference<IDispatch>& object) {
  void* found = nullptr;
  if (!object || FAILED(object->QueryInterface(T::kOwnId, &found))) return nullptr;
  object->Release();  // what QueryInterface counted
  return static_cast<T*>(found);
}

}  // namespace com
