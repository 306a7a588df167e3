// SPDX-License-Identifier: MIT
#include "com/type_library.h"

#include "com/failure.h"
#include "com/library.h"
#include "com/registration.h"

namespace com {

const GUID& LibraryId() { return LIBID_OVFormulaEditor; }

Reference<ITypeLib> LoadLibraryOfModule() {
  Reference<ITypeLib> library;
  Require(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Out()));
  return library;
}

std::vector<LibraryInterface> LibraryInterfaces() {
  const Reference<ITypeLib> library = LoadLibraryOfModule();
  std::vector<LibraryInterface> interfaces;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    TYPEKIND kind = TKIND_MAX;
    Require(library->GetTypeInfoType(i, &kind));
    if (kind != TKIND_DISPATCH && kind != TKIND_INTERFACE) continue;
    Reference<ITypeInfo> info;
    Require(library->GetTypeInfo(i, info.Out()));
    TYPEATTR* attributes = nullptr;
    Require(info->GetTypeAttr(&attributes));
    const GUID id = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    BSTR name = nullptr;
    Require(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
    interfaces.push_back({id, std::wstring(name, SysStringLen(name))});
    SysFreeString(name);
  }
  return interfaces;
}

}  // namespace com
