// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace com {

// A counted reference to a COM object; null when default constructed.
template <class T>
class Reference {
 public:
  Reference() = default;
  // Takes over a reference that the caller owns.
  static Reference Take(T* object) {
    Reference result;
    result.object_ = object;
    return result;
  }
  // Adds a reference of its own.
  static Reference Share(T* object) {
    if (object) object->AddRef();
    return Take(object);
  }
  Reference(const Reference& other) : object_(other.object_) {
    if (object_) object_->AddRef();
  }
  Reference(Reference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Reference& operator=(Reference other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Reference() {
    if (object_) object_->Release();
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }
  // Gives the reference to the caller.
  T* Release() { return std::exchange(object_, nullptr); }
  // Where a function puts a reference for the caller. REQUIRES: null.
  T** Out() { return &object_; }

  // The object's other interface; null when it has none of that kind.
  template <class Other>
  Reference<Other> As() const {
    Reference<Other> result;
    if (object_) {
      void* found = nullptr;
      if (object_->QueryInterface(__uuidof(Other), &found) >= 0) {
        result = Reference<Other>::Take(static_cast<Other*>(found));
      }
    }
    return result;
  }

 private:
  T* object_ = nullptr;
};

// A new object; its constructor counts the first reference.
template <class T, class... Arguments>
Reference<T> Make(Arguments&&... arguments) {
  return Reference<T>::Take(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace com
