// SPDX-License-Identifier: MIT
// What is alive in this module: it may be unloaded when nothing is.
#pragma once

namespace com {

// Counts one thing that lives, for as long as the object does.
class AliveInModule {
 public:
  AliveInModule();
  AliveInModule(const AliveInModule&) : AliveInModule() {}
  AliveInModule& operator=(const AliveInModule&) = default;
  ~AliveInModule();
};

// Of class factories that hosts lock.
void LockModule(bool lock);
bool IsModuleAlive();

}  // namespace com
