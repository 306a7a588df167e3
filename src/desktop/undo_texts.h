// SPDX-License-Identifier: MIT
#pragma once

#include "studio/undo_texts.h"

namespace desktop {

using enum studio::UndoText;

}  // namespace desktop
