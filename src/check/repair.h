// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "check/check.h"
#include "store/operation_result.h"

namespace check {

struct RepairResult {
  store::OperationResult operation;
  std::vector<Finding> mended;  // of those that were to be
  std::vector<Finding> left;    // of everything, looked at again
};

// Mends those of the findings that can be mended by themselves, as one unit of work. No line that
// an engineer wrote and no row with something that is kept nowhere else is lost: a row that goes is
// told in its finding. Where the database file has faults nothing is mended. What is left is looked
// for with `options`; the operation's progress is told of that, too, and may stop it. Raises only
// what counting the faults raises besides errors of files; unless the operation is done nothing was
// changed.
RepairResult Repair(const Parts& parts, const std::vector<Finding>& findings,
                    const Options& options, store::OperationOptions operation = {});

}  // namespace check
