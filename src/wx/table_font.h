// SPDX-License-Identifier: MIT
// The font of all tables whose models name none.
#pragma once

#include <wx/font.h>

#include <functional>
#include <string>

#include "forms/observable.h"

namespace wx {

// The system's until the program sets another.
wxFont TableFont();
// Tables that are there follow. A font that is not valid stands for the system's.
void SetTableFont(const wxFont& font);
[[nodiscard]] forms::Subscription ObserveTableFont(std::function<void()> observer);

// The font of a description that FromWx(font.GetNativeFontInfoDesc()) made; one that is not valid
// for "" and for what is no description.
wxFont KeptFont(const std::string& description);

}  // namespace wx
