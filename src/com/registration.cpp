// SPDX-License-Identifier: MIT
#include "com/registration.h"

#include <vector>

#include "com/failure.h"
#include "com/registry_key.h"
#include "com/type_library.h"

namespace com {

namespace {

const std::wstring kClasses = L"Software\\Classes\\";
constexpr wchar_t kUniversalMarshaler[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kLibraryVersion[] = L"1.0";
// Programs of one kind do not see the other kind's classes and interfaces; names and type libraries
// belong to both.
constexpr bool kIs64Bit = sizeof(void*) == 8;
constexpr REGSAM kOtherKind = kIs64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
const std::wstring kLibraryOfKind = kIs64Bit ? L"\\1.0\\0\\win64" : L"\\1.0\\0\\win32";

std::wstring TextOf(const GUID& id) {
  wchar_t text[39] = {};
  StringFromGUID2(id, text, static_cast<int>(std::size(text)));
  return text;
}

std::wstring LibraryPath(const std::wstring& below = L"") {
  return kClasses + L"TypeLib\\" + TextOf(LibraryId()) + below;
}
std::wstring ClassPath(const ServedClass& served) {
  return kClasses + L"CLSID\\" + TextOf(*served.id);
}
std::wstring NamePath(const ServedClass& served) {
  return kClasses + kLibraryName + L"." + served.name;
}
std::wstring InterfacePath(const GUID& id) { return kClasses + L"Interface\\" + TextOf(id); }

class Registry {
 public:
  explicit Registry(Scope scope)
      : root_(scope == Scope::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE) {}

  void Set(const std::wstring& key, std::wstring_view text, const std::wstring& name = L"") const {
    RegistryKey::Create(root_, key).SetText(name, text);
  }
  void Remove(const std::wstring& key) const { RegistryKey::Remove(root_, key); }
  bool OtherKindHas(const std::wstring& key) const {
    return static_cast<bool>(RegistryKey::Open(root_, key, kOtherKind));
  }
  bool HasBelow(const std::wstring& key) const {
    return !RegistryKey::Open(root_, key).Subkeys().empty();
  }

 private:
  HKEY root_;
};

void WriteClass(const Registry& registry, const ServedClass& served, const std::wstring& module) {
  const std::wstring name = std::wstring(kLibraryName) + L"." + served.name;
  registry.Set(NamePath(served), served.description);
  registry.Set(NamePath(served) + L"\\CLSID", TextOf(*served.id));
  const std::wstring key = ClassPath(served);
  registry.Set(key, served.description);
  registry.Set(key + L"\\InprocServer32", module);
  registry.Set(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
  registry.Set(key + L"\\ProgID", name);
  registry.Set(key + L"\\Programmable", L"");
  registry.Set(key + L"\\TypeLib", TextOf(LibraryId()));
  registry.Set(key + L"\\Version", kLibraryVersion);
}

void WriteLibrary(const Registry& registry, const std::wstring& module) {
  const std::wstring version = LibraryPath(L"\\1.0");
  registry.Set(version, L"OrvanaStudio formula editor");
  registry.Set(LibraryPath(kLibraryOfKind), module);
  registry.Set(version + L"\\FLAGS", L"0");
  for (const LibraryInterface& each : LibraryInterfaces()) {
    const std::wstring key = InterfacePath(each.id);
    registry.Set(key, each.name);
    registry.Set(key + L"\\ProxyStubClsid32", kUniversalMarshaler);
    registry.Set(key + L"\\TypeLib", TextOf(LibraryId()));
    registry.Set(key + L"\\TypeLib", kLibraryVersion, L"Version");
  }
}

}  // namespace

std::wstring ModulePath() {
  HMODULE module = nullptr;
  // Any address in this module tells which it is.
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      kLibraryName, &module);
  std::wstring path(32768, L'\0');  // the longest that there can be
  path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

void RegisterModule(std::span<const ServedClass> classes, Scope scope) {
  const std::wstring module = ModulePath();
  try {
    const Registry registry(scope);
    for (const ServedClass& served : classes) WriteClass(registry, served, module);
    WriteLibrary(registry, module);
  } catch (const Failure&) {
    try {
      UnregisterModule(classes, scope);
    } catch (const Failure&) {
      // What could not be written cannot be removed either.
    }
    throw;
  }
}

void UnregisterModule(std::span<const ServedClass> classes, Scope scope) {
  const Registry registry(scope);
  for (const ServedClass& served : classes) {
    registry.Remove(ClassPath(served));
    if (!registry.OtherKindHas(ClassPath(served))) registry.Remove(NamePath(served));
  }
  for (const LibraryInterface& each : LibraryInterfaces()) {
    registry.Remove(InterfacePath(each.id));
  }
  registry.Remove(LibraryPath(kLibraryOfKind));
  if (!registry.HasBelow(LibraryPath(L"\\1.0\\0"))) registry.Remove(LibraryPath());
}

}  // namespace com
