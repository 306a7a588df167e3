// SPDX-License-Identifier: MIT
#include "com/module.h"

#include <atomic>

namespace com {

namespace {
std::atomic<long> alive = 0;
}  // namespace

AliveInModule::AliveInModule() { ++alive; }
AliveInModule::~AliveInModule() { --alive; }

void LockModule(bool lock) { alive += lock ? 1 : -1; }
bool IsModuleAlive() { return alive != 0; }

}  // namespace com
