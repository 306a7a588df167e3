// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "com/ole.h"
#include "com/reference.h"

namespace embedded {

// A picture of that name as the picture object that hosts put into their trees. Raises
// com::Failure when there is none. The toolkit must run.
com::Reference<IDispatch> MakePicture(std::string_view name);

}  // namespace embedded
