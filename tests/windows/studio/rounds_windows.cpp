// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/windows/studio/modes.h"
#include "tests/windows/studio/studio_windows.h"

#include <psapi.h>

namespace studio_host {
namespace {

// What the process holds, told by the numbers that new objects get. (Wine does not count them.)
struct Cost {
  std::uintptr_t handles = 0, gdi = 0, windows = 0;
  DWORD storage = 0;  // places of threads
  SIZE_T memory = 0;
};

// More than there are free numbers: the highest one tells how many are taken.
std::uintptr_t GdiObjects() {
  constexpr std::size_t kMany = 3000;
  std::vector<HBITMAP> bitmaps(kMany);
  std::uintptr_t highest = 0;
  for (HBITMAP& bitmap : bitmaps) {
    bitmap = CreateBitmap(1, 1, 1, 1, nullptr);
    highest = std::max(highest, reinterpret_cast<std::uintptr_t>(bitmap) & 0xFFFF);
  }
  for (const HBITMAP bitmap : bitmaps) DeleteObject(bitmap);
  return highest - kMany;
}

Cost Measure() {
  Cost cost;
  HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  cost.handles = reinterpret_cast<std::uintptr_t>(event) / 4;
  CloseHandle(event);
  cost.gdi = GdiObjects();
  HWND window =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  cost.windows = reinterpret_cast<std::uintptr_t>(window) & 0xFFFF;
  DestroyWindow(window);
  const DWORD place = TlsAlloc(), place_of_fibers = FlsAlloc(nullptr);
  cost.storage = place + place_of_fibers;
  TlsFree(place);
  FlsFree(place_of_fibers);
  PROCESS_MEMORY_COUNTERS memory = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  cost.memory = memory.WorkingSetSize;
  return cost;
}

void Tell(const std::string& when, const Cost& cost) {
  Say(when + ": handle " + std::to_string(cost.handles) + ", GDI object " +
      std::to_string(cost.gdi) + ", window " + std::to_string(cost.windows) + ", storage " +
      std::to_string(cost.storage) + ", " + std::to_string(cost.memory / 1024) + " KiB");
}

void Open(Studio& studio) {
  studio.Initialize();
  studio.Click(L"FOR0");
  studio.Activate(L"FORF1");
  Studio::ServeMessages();
  studio.Terminate();
  Demand(studio.object().NodeCount() == 0, "nodes stay in the tree");
}

}  // namespace

void Rounds(const Files& files, int count) {
  Studio studio(files);
  studio.Load();
  constexpr int kWarming = 20;
  for (int i = 0; i < kWarming; ++i) Open(studio);
  const Cost before = Measure();
  Tell("before", before);
  const ULONGLONG start = GetTickCount64();
  for (int i = 0; i < count; ++i) Open(studio);
  Say(std::to_string((GetTickCount64() - start) / static_cast<ULONGLONG>(count)) + " ms a round");
  const Cost after = Measure();
  Tell("after " + std::to_string(count), after);
  studio.Unload();
  constexpr std::uintptr_t kFew = 10;
  Demand(after.handles <= before.handles + kFew, "handles leak");
  Demand(after.gdi <= before.gdi + kFew, "GDI objects leak");
  Demand(after.windows <= before.windows + 4 * kFew, "windows leak");
  for (int i = 0; i < count; ++i) {
    studio.Load();
    Open(studio);
    studio.Unload();
  }
  const Cost loaded = Measure();
  Tell("after " + std::to_string(count) + " loads", loaded);
  // Wine's printing library (winspool), which the file dialogs' needs, costs one alone.
  const std::uintptr_t of_the_system = static_cast<std::uintptr_t>(count);
  Demand(loaded.handles <= after.handles + kFew + of_the_system, "handles leak with the module");
  Demand(loaded.storage <= after.storage, "thread storage leaks with the module");
  constexpr SIZE_T kMuch = 8 * 1024 * 1024;
  Demand(loaded.memory <= after.memory + kMuch, "memory leaks with the module");
}

void MeasureOpening(const Files& files) {
  Studio studio(files);
  studio.Load();
  const ULONGLONG start = GetTickCount64();
  studio.Initialize();
  studio.Click(L"FOR0");
  studio.Activate(L"FORF1");
  Studio::ServeMessages();
  Say("open " + std::to_string(GetTickCount64() - start) + " ms, " +
      std::to_string(studio.object().NodeCount()) + " nodes");
  studio.Terminate();
  studio.Unload();
}

}  // namespace studio_host
