// SPDX-License-Identifier: MIT
#include "com/value.h"
#include "tests/windows/studio/driver_windows.h"
#include "tests/windows/studio/modes.h"

namespace studio_host {

namespace {

constexpr wchar_t kStudio[] = L"Studio";
constexpr wchar_t kFormulaDialog[] = L"Formula Definition";
constexpr wchar_t kBox[] = L"OrvanaStudio Formula Editor";

// A dialog of a formula, opened from the tree: it has the studio's attention while it waits.
void CheckDialog(Driver& driver) {
  Studio& studio = driver.studio();
  driver.ClickNode(L"FORF0");
  driver.Press(VK_F8);
  const HWND dialog = driver.Await(kFormulaDialog);
  Demand(!IsWindowEnabled(studio.window()), "the studio is enabled during a dialog");
  Demand(GetWindow(dialog, GW_OWNER) == studio.window(), "the dialog is not the studio's");
  const HWND name = driver.Focus();
  driver.Type("ab");
  driver.Press(VK_LEFT);
  driver.Type("c");
  Demand(Driver::TextOf(name) == L"acb", "an arrow key does not move in a text");
  driver.Press(VK_TAB);
  Demand(driver.Focus() != name, "Tab does not leave a field");
  driver.Press(VK_TAB, Driver::kShift);
  Demand(driver.Focus() == name, "Shift+Tab does not come back");
  driver.Press(VK_F1);
  const HWND help = driver.Await(L"Help");
  driver.Press(VK_ESCAPE);
  if (IsWindowVisible(help)) driver.Press(VK_F4, Driver::kAlt);
  driver.AwaitGone(help);
  driver.Await(kFormulaDialog);
  driver.Press(VK_ESCAPE);
  driver.AwaitGone(dialog);
  driver.Await(kStudio);
  Demand(IsWindowEnabled(studio.window()), "the studio stays disabled");
  Demand(!studio.object().Has(L"FORF2"), "Esc makes a formula");
  Say("dialog: owner, Tab, arrows, F1, Esc");
}

// A question has No as its default.
void CheckMessageBox(Driver& driver) {
  Studio& studio = driver.studio();
  studio.InThread([&] { studio.object().Select(L"FORF1"); });
  driver.Press(VK_DELETE, Driver::kControl);
  HWND box = driver.Await(kBox);
  Demand(!IsWindowEnabled(studio.window()), "the studio is enabled during a message box");
  driver.Press(VK_RETURN);
  driver.AwaitGone(box);
  driver.Await(kStudio);
  Demand(studio.object().Has(L"FORF1"), "No deletes");
  Say("message box: owner, default button");
}

// The editor beside the studio, in the studio's loop.
void CheckEditor(Driver& driver) {
  Studio& studio = driver.studio();
  driver.Press(VK_F6, Driver::kAlt);
  const HWND editor = driver.Await(L"FillTank");
  Demand(GetWindow(editor, GW_OWNER) == studio.window(), "the editor is not the studio's");
  Demand(IsWindowEnabled(studio.window()), "the editor disables the studio");

  const int saved = studio.saved();
  driver.Press('S', Driver::kControl);
  driver.AwaitTrue("the studio's own key in the editor", [&] { return studio.saved() > saved; });

  driver.Press('X', Driver::kAlt);  // no menu of that letter
  driver.Press('E', Driver::kAlt);
  driver.AwaitTrue("menu of a mnemonic", [&] { return driver.HasMenuOpen(); });
  driver.Press({VK_ESCAPE, VK_ESCAPE});
  driver.AwaitTrue("end of the menu", [&] { return !driver.HasMenuOpen(); });

  driver.Press('F', Driver::kControl);
  driver.AwaitTrue("field to find in", [&] { return Driver::ClassOf(driver.Focus()) == L"Edit"; });
  const HWND field = driver.Focus();
  driver.Type("lex");
  driver.Press(VK_BACK);
  driver.Type("v");
  Demand(Driver::TextOf(field) == L"lev", "typing does not arrive in a field");
  driver.Press(VK_ESCAPE);
  driver.AwaitTrue("end of finding", [&] { return !IsWindowVisible(field); });

  driver.Press(VK_F8);
  const HWND dialog = driver.Await(L"Argument");
  Demand(!IsWindowEnabled(studio.window()) && !IsWindowEnabled(editor),
         "a dialog leaves a window enabled");
  const HWND alias = driver.Focus();
  driver.Press('S', Driver::kAlt);
  driver.AwaitTrue("field of a letter", [&] {
    const HWND focus = driver.Focus();
    return focus != alias && Driver::ClassOf(focus) == L"Edit";
  });
  driver.Press(VK_ESCAPE);
  driver.AwaitGone(dialog);
  driver.Await(L"FillTank");
  driver.Press(VK_F6, Driver::kAlt);
  driver.Await(kStudio);
  Say("editor: keys of the studio, mnemonics, typing, dialogs, back to the tree");
}

}  // namespace

void Input(const Files& files) {
  Studio studio(files);
  studio.Load();
  studio.Initialize();
  Driver::Run(studio, [&](Driver& driver) {
    driver.ClickNode(L"FOR0");
    driver.AwaitTrue("branch of formulas", [&] { return studio.object().Has(L"FORF0"); });
    studio.InThread([&] { studio.object().Expand(L"FOR0"); });
    CheckDialog(driver);
    CheckMessageBox(driver);
    CheckEditor(driver);
  });
  studio.Terminate();
  studio.Unload();
}

}  // namespace studio_host
