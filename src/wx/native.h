// SPDX-License-Identifier: MIT
// What wxWidgets does not offer and the native toolkit does.
#pragma once

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/menuitem.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>
#include <wx/window.h>

#include <functional>
#include <string>

namespace wx {

// Runs the program's application object to its end; what `main` is to return.
int RunApp(int argc, char** argv);

// Light or dark whatever the system says, where the program can choose. To be called before the
// first window.
enum class Look { kSystem, kLight, kDark };
bool HasLooks();
void SetLook(Look look);

// The libraries below wxWidgets and their licences, a line each.
wxString NativeParts();

// A label whose mnemonic moves to the control after it, and which is that control's name for
// screen readers.
wxStaticText* NewLabel(wxWindow* parent);
// A text that belongs to the control before it and names none.
wxStaticText* NewHint(wxWindow* parent);

// The size that the native widget asks for.
int NativeHeight(const wxWindow& window);
int NativeWidth(const wxWindow& window);

// Puts a control in front of those beside it. The keyboard stays where it is, in another window,
// too.
void RaiseControl(wxWindow& control);

// Hands over what the native toolkit reports to developers, in place of printing it. To be called
// once, before the first window.
void OnDiagnostic(std::function<void(const std::string& report)> handler);

// Gives a window that was not shown yet its size. The window system tells it later, and what is in
// it would be laid out in a few pixels until then.
void LayOutBeforeShow(wxTopLevelWindow& window);

// Runs the task from the message loop, after all events of the window system that are queued.
void CallWhenIdle(std::function<void()> task);

// Shows a shortcut beside a menu entry without making it an accelerator of the whole window: the
// part of the window that has the keyboard acts on the key.
void ShowShortcut(wxMenuItem& item, const wxString& shortcut);
// What it shows beside an entry; "" for nothing.
wxString ShownShortcut(const wxMenuItem& item);
// The key as it is shown there.
wxString KeyText(const wxString& shortcut);
// What ShowShortcut writes in place of a key's English name, where the system does not say it in
// the program's language by itself.
void NameKey(const wxString& english, const wxString& name);

// Whether the keyboard of the window is in a field whose text is typed, also in a cell of a list.
bool TextHasKeyboard(const wxTopLevelWindow& window);

// Name and description of a control for screen readers.
void SetAccessibleName(wxWindow& window, const wxString& name);
void SetAccessibleDescription(wxWindow& window, const wxString& description);

// Shows that a field holds what cannot be stored.
void MarkInvalid(wxWindow& window, bool invalid);

// The scrollbars of a native scrolled window stand beside its content, not over it.
void KeepScrollbarsBeside(wxWindow& window);
// A list that becomes too low for a vertical scrollbar goes without one until it has room again.
void LeaveOutScrollbarWithoutRoom(wxWindow& list);

// Where a context menu of the window opens, in its coordinates: below the row with the keyboard
// when a key asks for the menu, else at the mouse.
wxPoint PopupPlace(wxWindow& window);

// Enter in a closed drop-down presses the button instead of opening the list, as it does in every
// other field.
void PressByEnter(wxChoice& field, wxButton& button);

// The window takes keys and clicks also while a dialog of the program waits for its answer.
void KeepUsableDuringDialogs(wxTopLevelWindow& window);

}  // namespace wx
