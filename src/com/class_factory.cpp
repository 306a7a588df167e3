// SPDX-License-Identifier: MIT
#include "com/class_factory.h"

#include <algorithm>

#include "com/failure.h"
#include "com/module.h"

namespace com {

namespace {

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ServedClass& served) : served_(served) {}
  virtual ~ClassFactory() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IClassFactory)) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  // Free-threaded: hosts keep a factory for all of their threads.
  STDMETHODIMP_(ULONG) AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
  }
  STDMETHODIMP_(ULONG) Release() override {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return Guarded([&] { return served_.create()->QueryInterface(id, object); });
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    LockModule(lock != FALSE);
    return S_OK;
  }

 private:
  const ServedClass& served_;
  LONG references_ = 1;
  AliveInModule alive_;
};

}  // namespace

HRESULT GetClassObject(std::span<const ServedClass> classes, REFCLSID class_id, REFIID interface_id,
                       void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  const auto served = std::ranges::find_if(
      classes, [&](const ServedClass& candidate) { return IsEqualCLSID(*candidate.id, class_id); });
  if (served == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  return Guarded([&] { return Make<ClassFactory>(*served)->QueryInterface(interface_id, object); });
}

}  // namespace com
