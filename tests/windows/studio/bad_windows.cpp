// SPDX-License-Identifier: MIT
#include <functional>
#include <thread>
#include <utility>

#include "tests/windows/studio/modes.h"
#include "tests/windows/studio/studio_windows.h"

namespace studio_host {

namespace {

// Opens the dialog of a new formula and does something while it waits.
void DuringDialog(Studio& studio, const std::function<void()>& task) {
  studio.Click(L"FOR0");
  const DWORD thread = GetCurrentThreadId();
  std::thread other([&] {
    const auto waits = [&] {
      GUITHREADINFO info = {};
      info.cbSize = sizeof info;
      GetGUIThreadInfo(thread, &info);
      return info.hwndActive && info.hwndActive != studio.window() &&
             !IsWindowEnabled(studio.window());
    };
    constexpr DWORD kPoll = 20;
    while (!waits()) Sleep(kPoll);
    studio.AwaitIdle();
    studio.InThread(task);
  });
  studio.Key(L"FORF0", VK_F8);
  other.join();
}

}  // namespace

// Calls out of order, twice, from inside each other, from another thread; errors in every answer;
// an end inside a call, and none at all.
void BehaveBadly(const Files& files) {
  LONG result = 0;
  {
    Studio studio(files);
    studio.Load();
    studio.Click(L"FOR0");
    studio.Terminate();
    studio.Initialize();
    studio.Initialize();
    Demand(studio.object().NodeCount() == 1, "a second Initialize leaves another root");
    int inner = 0;
    studio.object().on_add = [&] {
      if (inner++ < 5) studio.Click(L"FOR0");
    };
    studio.Click(L"FOR0");
    studio.object().on_add = nullptr;
    Demand(inner > 0, "no node was added");
    HRESULT elsewhere = S_OK;
    std::thread([&] { elsewhere = studio.add_in()->StartupComplete(&result); }).join();
    Demand(elsewhere == RPC_E_WRONG_THREAD, "a call of another thread is not refused");
    Say("calls in calls, twice, of another thread");
    studio.Activate(L"FORF1");
    studio.object().Fail();
    studio.Click(L"FORF1");
    studio.Activate(L"FORF1");
    studio.Terminate();
    studio.Terminate();
    studio.Unload();
    Say("errors in every answer");
  }
  {
    Studio studio(files);
    studio.Load();
    studio.Initialize();
    bool ended = false;
    studio.object().on_add = [&] {
      if (!std::exchange(ended, true)) studio.Terminate();
    };
    studio.Click(L"FOR0");
    studio.object().on_add = nullptr;
    studio.Unload();
    Say("an end inside a click");
  }
  {
    Studio studio(files);
    studio.Load();
    studio.Initialize();
    studio.Click(L"FOR0");
    studio.Unload();
    Say("no end at all");
  }
  {
    Studio studio(files);
    studio.Load();
    studio.Initialize();
    DuringDialog(studio, [&] { studio.Terminate(); });
    studio.Unload();
    Say("an end during a dialog");
  }
  {
    Studio studio(files);
    studio.Load();
    studio.Initialize();
    DuringDialog(studio, [] { PostQuitMessage(0); });
    studio.Run();
    studio.Terminate();
    studio.Unload();
    Say("the end of the program during a dialog");
  }
  {
    Studio studio(files);
    studio.Load();
    studio.Initialize();
    studio.Click(L"FORF1");
    studio.Activate(L"FORF1");
    studio.DestroyWindow();
    studio.Click(L"FORF1");
    studio.Terminate();
    studio.Unload();
    Say("a window that goes before the end");
  }
  {
    Studio studio(files);
    studio.Load();
    studio.Initialize();
    DuringDialog(studio, [&] { studio.DestroyWindow(); });
    studio.Terminate();
    studio.Unload();
    Say("a window that goes during a dialog");
  }
}

}  // namespace studio_host
