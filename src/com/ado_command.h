// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "com/ado_session.h"
#include "com/late_bound.h"
#include "platform/variant.h"

namespace com {

// A query with the values of its "?", in order. Raises Failure.
LateBound MakeCommand(const AdoSession& session, const LateBound& connection,
                      const std::string& text, const std::vector<platform::Variant>& values);

}  // namespace com
