// SPDX-License-Identifier: MIT
// Numbers of the texts about the data flow.
#pragma once

#include <cstdint>

#include "messages/text_number.h"

namespace project {

inline constexpr messages::TextNumber kFlowTitle{3660};
inline constexpr messages::TextNumber kFlowLegend{3661};
inline constexpr messages::TextNumber kFlowItem{3662};
inline constexpr messages::TextNumber kFlowWrittenBy{3663};
inline constexpr messages::TextNumber kFlowReadBy{3664};
inline constexpr messages::TextNumber kFlowWriters{3665};
inline constexpr messages::TextNumber kFlowDisabled{3666};
inline constexpr messages::TextNumber kFlowLanguage{3667};
inline constexpr messages::TextNumber kFlowNone{3668};
inline constexpr messages::TextNumber kFlowByArgument{3669};
inline constexpr messages::TextNumber kFlowNoGraphviz{3670};
inline constexpr messages::TextNumber kFlowGraphvizFailed{3671};
inline constexpr messages::TextNumber kFlowTooLarge{3672};
inline constexpr messages::TextNumber kFlowScanTime{3673};
inline constexpr messages::TextNumber kExecutionTitle{3680};
inline constexpr messages::TextNumber kExecutionNone{3681};

}  // namespace project
