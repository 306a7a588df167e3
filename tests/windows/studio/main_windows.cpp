// SPDX-License-Identifier: MIT
// A studio for tests: a window with a tree, a message loop of its own, the add-in loaded from a
// file.
//   studio_host MODULE DATABASE.ovs PROJECT.vbp            until its window is closed
//   studio_host MODULE DATABASE.ovs PROJECT.vbp rounds N   N times: load, open, end, unload; then
//                                                          what that cost
//   studio_host MODULE DATABASE.ovs PROJECT.vbp bad        behaves badly in every way it knows
// Says what it found on standard output; the last line is "ended well" when all was well.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "com/late_bound.h"
#include "com/library.h"
#include "com/module.h"
#include "com/vbe_object.h"
#include "tests/windows/studio/studio_object_windows.h"

#include <psapi.h>

namespace studio_host {
namespace {

void Say(const std::string& line) {
  std::fprintf(stdout, "%s\n", line.c_str());
  std::fflush(stdout);
}

void Demand(bool is, const std::string& what) {
  if (!is) throw std::runtime_error(what);
}

// The module, from the file.
class Module {
 public:
  explicit Module(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
    Demand(module_ != nullptr, "the module cannot be loaded");
  }
  ~Module() {
    if (module_) FreeLibrary(module_);
  }
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  com::Reference<COV4Extensibility> Create() const {
    const auto get = Find<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
    void* factory = nullptr;
    com::Require(get(CLSID_Connect, IID_IClassFactory, &factory));
    const auto maker = com::Reference<IClassFactory>::Take(static_cast<IClassFactory*>(factory));
    void* created = nullptr;
    com::Require(maker->CreateInstance(nullptr, IID_COV4Extensibility, &created));
    return com::Reference<COV4Extensibility>::Take(static_cast<COV4Extensibility*>(created));
  }
  bool MayBeUnloaded() const {
    return Find<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")() == S_OK;
  }

 private:
  template <class Function>
  Function Find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  HMODULE module_;
};

// A text for one call.
class Text {
 public:
  explicit Text(const std::wstring& text) : text_(SysAllocString(text.c_str())) {}
  ~Text() { SysFreeString(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  BSTR get() const { return text_; }

 private:
  BSTR text_;
};

struct Files {
  std::wstring module, database, project;
};

class Studio {
 public:
  explicit Studio(const Files& files) : files_(files) {
    current_ = this;
    WNDCLASSW description = {};
    description.lpfnWndProc = &Studio::OnMessage;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"StudioHost";
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, L"StudioHost", L"Studio", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                              700, 500, nullptr, nullptr, description.hInstance, nullptr);
    tree_ = CreateWindowExW(0, WC_TREEVIEWW, L"",
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS |
                                TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                            0, 0, 240, 460, window_, nullptr, description.hInstance, nullptr);
    object_ = com::Make<StudioObject>(window_, tree_);
    environment_ = LateEnvironment();
  }
  ~Studio() {
    object_ = {};
    environment_ = {};
    if (IsWindow(window_)) DestroyWindow(window_);
    current_ = nullptr;
  }
  Studio(const Studio&) = delete;
  Studio& operator=(const Studio&) = delete;

  void Load() {
    module_ = std::make_unique<Module>(files_.module);
    add_in_ = module_->Create();
  }
  void Initialize() {
    const Text project(files_.database), server(L"PumpServer");
    LONG result = 1;
    com::Require(add_in_->Initialize(project.get(), server.get(), object_.get(),
                                     environment_.object().get(), &result));
    Demand(result == 0, "Initialize answered something else than 0");
  }
  void Click(const std::wstring& key) {
    const Text project(L"Plant"), node(key), text(object_->TextOf(key));
    LONG result = 1;
    com::Require(add_in_->NodeClick(project.get(), node.get(), text.get(), &result));
    Demand(result == 0, "NodeClick answered something else than 0");
  }
  void Activate(const std::wstring& key) {
    object_->Select(key);
    const Text project(L"Plant"), node(key), text(object_->TextOf(key));
    LONG result = 1;
    com::Require(add_in_->NodeDblClick(project.get(), node.get(), text.get(), &result));
  }
  void Terminate() {
    LONG result = 1;
    com::Require(add_in_->Terminate(&result));
    Demand(result == 0, "Terminate answered something else than 0");
  }
  void Unload() {
    add_in_ = {};
    ServeMessages();
    Demand(module_->MayBeUnloaded(), "the module may not be unloaded");
    module_.reset();
    Demand(!GetModuleHandleW(L"OVFormulaEditor.dll"), "the module stays loaded");
  }
  void Save() { environment_.Get(L"Save"); }

  static void ServeMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  void Run() {
    SetFocus(tree_);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

  HWND window() const { return window_; }
  StudioObject& object() { return *object_; }
  com::Reference<COV4Extensibility>& add_in() { return add_in_; }

 private:
  com::LateBound LateEnvironment() const {
    com::LateBound environment(com::Reference<IDispatch>::Take(new com::VbeObject));
    environment.Get(L"Open", {com::Value(com::Utf8(files_.project))});
    return environment;
  }
  SHORT Shift() const {
    const auto down = [](int key) { return GetKeyState(key) < 0; };
    return static_cast<SHORT>((down(VK_SHIFT) ? 1 : 0) | (down(VK_CONTROL) ? 2 : 0) |
                              (down(VK_MENU) ? 4 : 0));
  }
  void OnKey(WORD code) {
    const std::wstring key = object_->SelectedKey();
    const Text project(L"Plant"), node(key), text(object_->TextOf(key));
    SHORT value = static_cast<SHORT>(code), shift = Shift();
    LONG result = 0;
    add_in_->NodeKeyDown(project.get(), node.get(), text.get(), &value, &shift, &result);
  }
  LRESULT OnTree(const NMHDR& what) {
    if (!add_in_) return 0;
    if (what.code == TVN_SELCHANGEDW || what.code == TVN_SELCHANGEDA) {
      const std::wstring key = object_->SelectedKey();
      if (!key.empty()) Click(key);
    } else if (what.code == NM_DBLCLK) {
      Activate(object_->SelectedKey());
      return 1;
    } else if (what.code == TVN_KEYDOWN) {
      OnKey(reinterpret_cast<const NMTVKEYDOWN&>(what).wVKey);
    }
    return 0;
  }
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (current_ && message == WM_NOTIFY) {
      return current_->OnTree(*reinterpret_cast<const NMHDR*>(second));
    }
    if (current_ && message == WM_SYSKEYDOWN && first == VK_F6 && current_->add_in_) {
      current_->OnKey(VK_F6);
      return 0;
    }
    if (message == WM_CLOSE) {
      PostQuitMessage(0);
      return 0;
    }
    if (current_ && message == WM_SETFOCUS) SetFocus(current_->tree_);
    return DefWindowProcW(window, message, first, second);
  }

  static inline Studio* current_ = nullptr;
  Files files_;
  HWND window_ = nullptr;
  HWND tree_ = nullptr;
  com::Reference<StudioObject> object_;
  com::LateBound environment_;
  std::unique_ptr<Module> module_;
  com::Reference<COV4Extensibility> add_in_;
};

// What the process holds, told by the numbers that new objects get: the lowest that are free. (Wine
// does not count them.)
struct Cost {
  std::uintptr_t handles = 0, gdi = 0, windows = 0;
  SIZE_T memory = 0;
};

Cost Measure() {
  Cost cost;
  HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  cost.handles = reinterpret_cast<std::uintptr_t>(event) / 4;
  CloseHandle(event);
  HBITMAP bitmap = CreateBitmap(1, 1, 1, 1, nullptr);
  cost.gdi = reinterpret_cast<std::uintptr_t>(bitmap) & 0xFFFF;
  DeleteObject(bitmap);
  HWND window =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  cost.windows = reinterpret_cast<std::uintptr_t>(window) & 0xFFFF;
  DestroyWindow(window);
  PROCESS_MEMORY_COUNTERS memory = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  cost.memory = memory.WorkingSetSize;
  return cost;
}

void Tell(const std::string& when, const Cost& cost) {
  Say(when + ": handle " + std::to_string(cost.handles) + ", GDI object " +
      std::to_string(cost.gdi) + ", window " + std::to_string(cost.windows) + ", " +
      std::to_string(cost.memory / 1024) + " KiB");
}

void Open(Studio& studio) {
  studio.Initialize();
  studio.Click(L"FOR0");
  studio.Activate(L"FORF1");
  Studio::ServeMessages();
  studio.Terminate();
  Demand(studio.object().NodeCount() == 0, "nodes stay in the tree");
}

// The editor again and again in a module that stays; then the module again and again. What each
// load leaves is the run-time library's (its record of the thread) and the system's.
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
  Demand(after.gdi <= before.gdi + 100, "GDI objects leak");
  Demand(after.windows <= before.windows + 4 * kFew, "windows leak");
  for (int i = 0; i < count / 5; ++i) {
    studio.Load();
    Open(studio);
    studio.Unload();
  }
  const Cost loaded = Measure();
  Tell("after " + std::to_string(count / 5) + " loads", loaded);
  constexpr std::uintptr_t kOfALoad = 5;
  Demand(loaded.handles <= after.handles + kFew + kOfALoad * static_cast<std::uintptr_t>(count / 5),
         "handles leak with the module");
}

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
}

void UntilClosed(const Files& files) {
  Studio studio(files);
  studio.Load();
  studio.Initialize();
  studio.Run();
  studio.Terminate();
  studio.Unload();
  studio.Save();
}

}  // namespace
}  // namespace studio_host

int wmain(int argc, wchar_t** argv) {
  if (argc < 4 || FAILED(OleInitialize(nullptr))) return 2;
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TREEVIEW_CLASSES};
  InitCommonControlsEx(&controls);
  const studio_host::Files files = {argv[1], argv[2], argv[3]};
  const std::wstring mode = argc > 4 ? argv[4] : L"";
  int outcome = EXIT_SUCCESS;
  try {
    if (mode == L"rounds") {
      studio_host::Rounds(files, argc > 5 ? _wtoi(argv[5]) : 100);
    } else if (mode == L"bad") {
      studio_host::BehaveBadly(files);
    } else {
      studio_host::UntilClosed(files);
    }
    studio_host::Say("ended well");
  } catch (const std::exception& error) {
    studio_host::Say(std::string("FAILED: ") + error.what());
    outcome = EXIT_FAILURE;
  }
  OleUninitialize();
  return outcome;
}
