// SPDX-License-Identifier: MIT
// The exports of OVFormulaEditor.dll.
#include "apps/addin_classes.h"
#include "com/class_factory.h"
#include "com/failure.h"
#include "com/module.h"
#include "com/registration.h"

namespace {

HRESULT Register(com::Scope scope) {
  return com::Guarded([&] {
    com::RegisterModule(apps::AddInClasses(), scope);
    return S_OK;
  });
}

HRESULT Unregister(com::Scope scope) {
  return com::Guarded([&] {
    com::UnregisterModule(apps::AddInClasses(), scope);
    return S_OK;
  });
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID class_id, REFIID interface_id, void** object) {
  return com::GetClassObject(apps::AddInClasses(), class_id, interface_id, object);
}

STDAPI DllCanUnloadNow() { return com::IsModuleAlive() ? S_FALSE : S_OK; }

// For the user who registers: needs no administrator.
STDAPI DllRegisterServer() { return Register(com::Scope::kUser); }
STDAPI DllUnregisterServer() { return Unregister(com::Scope::kUser); }

// regsvr32 /n /i:machine registers for all users of the machine, /i:user for this one.
STDAPI DllInstall(BOOL install, const wchar_t* for_whom) {
  const bool machine = for_whom && lstrcmpiW(for_whom, L"machine") == 0;
  if (!machine && for_whom && *for_whom && lstrcmpiW(for_whom, L"user") != 0) return E_INVALIDARG;
  const com::Scope scope = machine ? com::Scope::kMachine : com::Scope::kUser;
  return install ? Register(scope) : Unregister(scope);
}
