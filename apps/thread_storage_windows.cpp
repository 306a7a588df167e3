// SPDX-License-Identifier: MIT
// What the compiler's run-time library keeps for each thread, by the system's own means. Its thread
// library would keep four handles and a place of thread storage for it that a module does not give
// back when it is unloaded; after a thousand loads there is no such place left, and it ends the
// program. The linker sends the calls here (--wrap).
#include "files/windows_api.h"

#include <pthread.h>

#include <cerrno>
#include <cstdlib>

// The run-time library's own: gives back the memory that it keeps for exceptions without memory.
namespace __gnu_cxx {
void __freeres();
}

namespace {

struct Key {
  DWORD index;
  void (*destroy)(void*);
};

struct Slot {
  void* value;
  void (*destroy)(void*);
};

// At the end of a thread or of the key.
void WINAPI Destroy(void* given) {
  Slot* const slot = static_cast<Slot*>(given);
  if (!slot) return;
  if (slot->value && slot->destroy) slot->destroy(slot->value);
  std::free(slot);
}

// The run-time library has a few of them, which it makes when it first needs them.
class Keys {
 public:
  constexpr Keys() = default;
  ~Keys() {
    for (Key& key : keys_) {
      if (key.index != 0) FlsFree(key.index);
      key.index = FLS_OUT_OF_INDEXES;
    }
    __gnu_cxx::__freeres();
  }
  Keys(const Keys&) = delete;
  Keys& operator=(const Keys&) = delete;

  int Create(pthread_key_t& key, void (*destroy)(void*)) {
    const LONG place = InterlockedIncrement(&count_) - 1;
    if (place >= kMost) return EAGAIN;
    const DWORD index = FlsAlloc(&Destroy);
    keys_[place] = {index, destroy};
    key = static_cast<pthread_key_t>(place);
    return index == FLS_OUT_OF_INDEXES ? EAGAIN : 0;
  }
  const Key& operator[](pthread_key_t key) const { return keys_[key]; }

 private:
  static constexpr LONG kMost = 8;
  Key keys_[kMost] = {};
  LONG count_ = 0;
};

// Constructed first, so that it ends after every other object of the module.
constexpr int kFirst = 101;
__attribute__((init_priority(kFirst))) constinit Keys keys;

}  // namespace

extern "C" {

int __wrap_pthread_key_create(pthread_key_t* key, void (*destroy)(void*)) {
  return keys.Create(*key, destroy);
}

// The keys end with the module.
int __wrap_pthread_key_delete(pthread_key_t) { return 0; }

void* __wrap_pthread_getspecific(pthread_key_t key) {
  const auto* const slot = static_cast<const Slot*>(FlsGetValue(keys[key].index));
  return slot ? slot->value : nullptr;
}

int __wrap_pthread_setspecific(pthread_key_t key, const void* value) {
  const Key& known = keys[key];
  auto* slot = static_cast<Slot*>(FlsGetValue(known.index));
  if (!slot) {
    slot = static_cast<Slot*>(std::calloc(1, sizeof(Slot)));
    if (!slot || !FlsSetValue(known.index, slot)) {
      std::free(slot);
      return ENOMEM;
    }
    slot->destroy = known.destroy;
  }
  slot->value = const_cast<void*>(value);
  return 0;
}

int __wrap_pthread_once(pthread_once_t* once, void (*routine)()) {
  constexpr LONG kNew = PTHREAD_ONCE_INIT, kRunning = kNew + 1, kDone = kNew + 2;
  auto* const state = reinterpret_cast<volatile LONG*>(once);
  while (*state != kDone) {
    if (InterlockedCompareExchange(state, kRunning, kNew) != kNew) {
      Sleep(0);
      continue;
    }
    routine();
    InterlockedExchange(state, kDone);
  }
  return 0;
}

}  // extern "C"
