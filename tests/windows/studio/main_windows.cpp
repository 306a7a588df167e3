// SPDX-License-Identifier: MIT
// A studio for tests: a window with a tree, a message loop of its own, the add-in loaded from a
// file.
//   studio_host MODULE DATABASE.ovs PROJECT.vbp            until its window is closed
//   studio_host MODULE DATABASE.ovs PROJECT.vbp rounds N   N times: load, open, end, unload; then
//                                                          what that cost
//   studio_host MODULE DATABASE.ovs PROJECT.vbp opening    how long opening takes
//   studio_host MODULE DATABASE.ovs PROJECT.vbp bad        behaves badly in every way it knows
//   studio_host MODULE DATABASE.ovs PROJECT.vbp job STEPS  the main job by mouse and keys; copies
//                                                          of the project's folder go into STEPS
//   studio_host MODULE DATABASE.ovs PROJECT.vbp job STEPS provider  the same, but no undo
//   studio_host MODULE DATABASE.ovs PROJECT.vbp input      keys and dialogs in its message loop
// Says what it found on standard output; the last line is "ended well" when all was well.
#include <cstdlib>
#include <exception>
#include <string>

#include "tests/windows/studio/modes.h"

namespace studio_host {
namespace {

void UntilClosed(const Files& files) {
  Studio studio(files);
  studio.Load();
  studio.Initialize();
  studio.Run();
  studio.Terminate();
  studio.Unload();
  studio.Save();
}

void RunMode(const Files& files, const std::wstring& mode, const std::wstring& value,
             const std::wstring& provider) {
  if (mode == L"rounds") {
    Rounds(files, value.empty() ? 100 : std::stoi(value));
  } else if (mode == L"opening") {
    MeasureOpening(files);
  } else if (mode == L"bad") {
    BehaveBadly(files);
  } else if (mode == L"job") {
    MainJob(files, value, !provider.empty());
  } else if (mode == L"input") {
    Input(files);
  } else {
    UntilClosed(files);
  }
}

}  // namespace
}  // namespace studio_host

int wmain(int argc, wchar_t** argv) {
  if (argc < 4 || FAILED(OleInitialize(nullptr))) return 2;
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TREEVIEW_CLASSES};
  InitCommonControlsEx(&controls);
  int outcome = EXIT_SUCCESS;
  try {
    studio_host::RunMode({argv[1], argv[2], argv[3]}, argc > 4 ? argv[4] : L"",
                         argc > 5 ? argv[5] : L"", argc > 6 ? argv[6] : L"");
    studio_host::Say("ended well");
  } catch (const std::exception& error) {
    studio_host::Say(std::string("FAILED: ") + error.what());
    outcome = EXIT_FAILURE;
  }
  OleUninitialize();
  return outcome;
}
