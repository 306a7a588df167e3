// SPDX-License-Identifier: MIT
#include "com/ado_objects.h"

namespace com {

AdoObjects AdoObjects::Installed() {
  return {[](const std::string& kind) { return CreateByName("ADODB." + kind); },
          "Microsoft.Jet.OLEDB.4.0"};
}

}  // namespace com
