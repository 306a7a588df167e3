// SPDX-License-Identifier: MIT
// The system's own header for sources that end in _windows.cpp, without the names that it takes
// away from everybody else.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#undef ChooseFont
#undef CopyFile
#undef CreateDialog
#undef CreateFile
#undef CreateWindow
#undef DeleteFile
#undef FindText
#undef GetForm
#undef GetMessage
#undef GetObject
#undef MessageBox
#undef MoveFile
#undef OpenDesktop
#undef RegisterClass
#undef ReplaceFile
#undef UnregisterClass
#undef far
#undef interface
#undef near
