// SPDX-License-Identifier: MIT
// The bands and tools of the editor window's menu and toolbar control.
#pragma once

#include "forms/menu_control.h"

namespace editor {

// Names of the bands.
inline constexpr const char* kMainBand = "mnuMain";
inline constexpr const char* kFunctionBand = "mnuFunction";
inline constexpr const char* kParameterBand = "mnuParameter";
inline constexpr const char* kAliasBand = "mnuAlias";
inline constexpr const char* kOptionBand = "mnuOption";
inline constexpr const char* kShowEditorBand = "mnuShowEditorHelper";
// What the function toolbar shows in the two views.
inline constexpr const char* kArgumentToolbar = "tbrArguments";
inline constexpr const char* kAliasToolbar = "tbrAliases";

// Builds all bands. Captions are the tools' tags, which LocaliseTools turns into texts.
void BuildBands(forms::MenuControl& menu, const forms::TextLookup& text);

}  // namespace editor
