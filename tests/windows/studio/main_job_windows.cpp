// SPDX-License-Identifier: MIT
#include <filesystem>
#include <iterator>
#include <string_view>

#include "com/value.h"
#include "tests/windows/studio/driver_windows.h"
#include "tests/windows/studio/modes.h"

namespace studio_host {

namespace {

namespace fs = std::filesystem;

constexpr wchar_t kFormulaDialog[] = L"Formula Definition";
constexpr wchar_t kArgumentDialog[] = L"Argument";
constexpr wchar_t kBox[] = L"OrvanaStudio Formula Editor";

// The user, and the steps as they are kept.
class Job {
 public:
  Job(Driver& driver, const Files& files, fs::path steps)
      : driver_(driver),
        folder_(fs::path(files.database).parent_path()),
        steps_(std::move(steps)) {}

  // Saves by the studio's own key and keeps what is on the disk then.
  void Keep(const char* name) {
    const int saved = driver_.studio().saved();
    driver_.Press('S', Driver::kControl);
    driver_.AwaitTrue("saving", [&] { return driver_.studio().saved() == saved + 1; });
    fs::copy(folder_, steps_ / name, fs::copy_options::recursive);
    Say(name);
  }
  void NewFormula(const std::string& name, int classes_down) {
    driver_.ClickNode(L"FORF0");
    driver_.Press(VK_F8);
    const HWND dialog = driver_.Await(kFormulaDialog);
    driver_.Type(name);
    driver_.Press(VK_TAB);
    for (int i = 0; i < classes_down; ++i) driver_.Press(VK_DOWN);
    driver_.Press(VK_RETURN);
    driver_.AwaitGone(dialog);
  }

 private:
  Driver& driver_;
  fs::path folder_;
  fs::path steps_;
};

// Whether an entry of the window's menus whose text begins so is grey.
bool IsGrey(HMENU menu, const std::wstring& text) {
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t caption[100] = L"";
    GetMenuStringW(menu, static_cast<UINT>(i), caption, static_cast<int>(std::size(caption)),
                   MF_BYPOSITION);
    if (std::wstring_view(caption).starts_with(text)) {
      return GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_GRAYED;
    }
    const HMENU nested = GetSubMenu(menu, i);
    if (nested && IsGrey(nested, text)) return true;
  }
  return false;
}

// A database provider keeps no history: the entries are grey, the keys say why.
void CheckNoUndo(Driver& driver, HWND editor) {
  Studio& studio = driver.studio();
  driver.Press('D', Driver::kAlt);
  driver.AwaitTrue("the menu", [&] { return driver.HasMenuOpen(); });
  const HMENU menu = GetMenu(editor);
  const bool grey = IsGrey(menu, L"&Undo") && IsGrey(menu, L"&Redo");
  driver.Press({VK_ESCAPE, VK_ESCAPE});
  Demand(grey, "undo is offered with a provider");
  driver.Press('Z', Driver::kControl);
  driver.AwaitTrue("why there is no undo", [&] {
    return Driver::TextOf(studio.window()).find(L"keeps no history") != std::wstring::npos;
  });
  Demand(!studio.object().Has(L"FORF1"), "undone with a provider");
  Say("undo is grey and says why");
}

}  // namespace

void MainJob(const Files& files, const std::wstring& steps, bool provider) {
  Studio studio(files);
  studio.Load();
  studio.Initialize();
  Driver::Run(studio, [&](Driver& driver) {
    Job job(driver, files, steps);
    driver.ClickNode(L"FOR0");
    driver.AwaitTrue("branch of formulas", [&] { return studio.object().Has(L"FORF0"); });
    driver.studio().InThread([&] { studio.object().Expand(L"FOR0"); });

    job.NewFormula("Fill", 1);
    job.Keep("1_new");

    driver.Press(VK_F6, Driver::kAlt);
    driver.Await(L"Fill");
    driver.Press(VK_F8);
    HWND dialog = driver.Await(kArgumentDialog);
    driver.Type("lev");
    driver.Press({VK_TAB, VK_SPACE, VK_RETURN});
    driver.AwaitGone(dialog);
    const HWND editor = driver.Active();
    driver.Press(VK_F4, Driver::kAlt);  // it hides; it would cover the tree
    driver.AwaitGone(editor);
    driver.Await(L"Studio");
    job.Keep("2_argument");

    driver.Press(VK_F9);
    dialog = driver.Await(kFormulaDialog);
    driver.Type("KeepLevel");
    driver.Press(VK_RETURN);
    driver.AwaitGone(dialog);
    job.Keep("3_name");

    driver.Press(VK_F9);
    dialog = driver.Await(kFormulaDialog);
    driver.Press({VK_TAB, VK_DOWN, VK_RETURN});
    driver.AwaitGone(dialog);
    job.Keep("4_class");

    job.NewFormula("Drain", 1);
    driver.ClickNode(L"FORF1");
    driver.Press(VK_DELETE, Driver::kControl);
    dialog = driver.Await(kBox);
    driver.Press({VK_LEFT, VK_RETURN});
    driver.AwaitGone(dialog);
    job.Keep("5_delete");

    driver.Press(VK_F6, Driver::kAlt);
    driver.AwaitTrue("the editor", [&] { return driver.Active() == editor; });
    driver.Settle();
    if (provider) return CheckNoUndo(driver, editor);
    driver.Press('Z', Driver::kControl);
    driver.AwaitTrue("the formula again", [&] { return studio.object().Has(L"FORF1"); });
    job.Keep("6_undo");
    driver.Press('Y', Driver::kControl);
    driver.AwaitTrue("its end again", [&] { return !studio.object().Has(L"FORF1"); });
    job.Keep("7_redo");
  });
  studio.Terminate();
  studio.Unload();
}

}  // namespace studio_host
