// SPDX-License-Identifier: MIT
// Numbers of the texts about the data flow.
#pragma once

#include <cstdint>

namespace project {

enum FlowText : std::int32_t {
  kFlowTitle = 3660,
  kFlowLegend,
  kFlowItem,
  kFlowWrittenBy,
  kFlowReadBy,
  kFlowWriters,
  kFlowDisabled,
  kFlowLanguage,
  kFlowNone,
  kFlowByArgument,
  kFlowNoGraphviz,
  kFlowGraphvizFailed,
  kFlowTooLarge,
  kFlowScanTime,
  kExecutionTitle = 3680,
  kExecutionNone,
};

}  // namespace project
