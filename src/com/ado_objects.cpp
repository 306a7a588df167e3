// SPDX-License-Identifier: MIT
#include "com/ado_objects.h"

#include <map>
#include <memory>
#include <utility>

#include "com/failure.h"

namespace com {

namespace {

// Objects of registered classes. A class is looked up once: recordsets are made by the hundred.
class InstalledClasses {
 public:
  LateBound Make(const std::string& kind) {
    Reference<IClassFactory>& factory = factories_[kind];
    if (!factory) factory = FactoryOf("ADODB." + kind);
    void* made = nullptr;
    Require(factory->CreateInstance(nullptr, IID_IDispatch, &made));
    return LateBound(Reference<IDispatch>::Take(static_cast<IDispatch*>(made)));
  }

 private:
  static Reference<IClassFactory> FactoryOf(const std::string& prog_id) {
    CLSID id;
    Require(CLSIDFromProgID(Wide(prog_id).c_str(), &id));
    void* factory = nullptr;
    Require(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, &factory));
    return Reference<IClassFactory>::Take(static_cast<IClassFactory*>(factory));
  }

  std::map<std::string, Reference<IClassFactory>> factories_;
};

}  // namespace

AdoObjects AdoObjects::Installed() {
  return {[classes = std::make_shared<InstalledClasses>()](const std::string& kind) {
            return classes->Make(kind);
          },
          "Microsoft.Jet.OLEDB.4.0"};
}

}  // namespace com
