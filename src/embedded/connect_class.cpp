// SPDX-License-Identifier: MIT
#include "embedded/connect_class.h"

#include "com/library.h"
#include "embedded/add_in_run.h"

namespace embedded {

com::ServedClass ConnectClass() {
  return {&CLSID_Connect, L"Connect", L"OrvanaStudio formula editor: add-in",
          [] { return com::Reference<IUnknown>::Take(new com::ConnectObject(&MakeAddIn)); }};
}

}  // namespace embedded
