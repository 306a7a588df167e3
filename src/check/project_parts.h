// SPDX-License-Identifier: MIT
#pragma once

#include "check/check.h"
#include "project/project.h"

namespace check {

// What is looked at in an open project. `progress` is called while the database file is walked.
// The project must outlive the parts.
Parts PartsOf(project::Project& project, const Progress& progress = {});
// The same by the operations and the code of a host that works on the project; they, too, must
// outlive the parts.
Parts PartsOf(project::Project& project, store::Operations& operations,
              const codegen::CodeContext& code, const Progress& progress = {});

}  // namespace check
