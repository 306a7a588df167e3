// SPDX-License-Identifier: MIT
// What the host can be asked to do. Each raises std::exception when it finds a fault.
#pragma once

#include "tests/windows/studio/studio_windows.h"

namespace studio_host {

// The editor again and again, then the module again and again; what that cost.
void Rounds(const Files& files, int count);
// How long the first click and the first look at the editor take.
void MeasureOpening(const Files& files);
// Calls out of order, twice, from inside each other, from another thread; errors in every answer;
// an end inside a call, none at all, and windows that are gone before it.
void BehaveBadly(const Files& files);
// The main job by mouse and keys. After each step a copy of the project's folder is put into
// `steps`, under the step's name. With a provider, undo is refused in the end, not done.
void MainJob(const Files& files, const std::wstring& steps, bool provider);
// Keys, dialogs and message boxes in the studio's message loop.
void Input(const Files& files);

}  // namespace studio_host
