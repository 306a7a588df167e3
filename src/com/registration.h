// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "com/served_class.h"

namespace com {

enum class Scope { kUser, kMachine };

// Writes what creating the classes of this module needs: classes, type library, the interfaces of
// the library for calls between apartments. For the user no rights are needed, for the machine an
// administrator's. Programs of 32 and of 64 bit see their own: both modules may be registered.
// Raises Failure; nothing is registered then.
void RegisterModule(std::span<const ServedClass> classes, Scope scope);

// Takes away all that RegisterModule wrote, but what the module of the other kind still needs.
void UnregisterModule(std::span<const ServedClass> classes, Scope scope);

// Path of the file of this module.
std::wstring ModulePath();

}  // namespace com
