// SPDX-License-Identifier: MIT
#include "tests/windows/studio/studio_windows.h"

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <utility>

#include "com/module.h"
#include "com/vbe_object.h"

namespace studio_host {

namespace {

constexpr UINT kTask = WM_APP + 1, kAwaitIdle = WM_APP + 2;
constexpr UINT_PTR kIdleTimer = 1;
constexpr WORD kSaveCommand = 100;

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

SHORT Shift() {
  const auto down = [](int key) { return GetKeyState(key) < 0; };
  return static_cast<SHORT>((down(VK_SHIFT) ? 1 : 0) | (down(VK_CONTROL) ? 2 : 0) |
                            (down(VK_MENU) ? 4 : 0));
}

HMENU MakeMenu() {
  HMENU file = CreatePopupMenu();
  AppendMenuW(file, MF_STRING, kSaveCommand, L"&Save\tCtrl+S");
  HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&File");
  return bar;
}

}  // namespace

void Say(const std::string& line) {
  std::fprintf(stdout, "%s\n", line.c_str());
  std::fflush(stdout);
}

void Demand(bool is, const std::string& what) {
  if (!is) throw std::runtime_error(what);
}

// --- Module ---

Module::Module(const std::wstring& path) : module_(LoadLibraryW(path.c_str())) {
  Demand(module_ != nullptr, "the module cannot be loaded");
}

Module::~Module() {
  if (module_) FreeLibrary(module_);
}

com::Reference<COV4Extensibility> Module::Create() const {
  const auto get = Find<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
  void* factory = nullptr;
  com::Require(get(CLSID_Connect, IID_IClassFactory, &factory));
  const auto maker = com::Reference<IClassFactory>::Take(static_cast<IClassFactory*>(factory));
  void* created = nullptr;
  com::Require(maker->CreateInstance(nullptr, IID_COV4Extensibility, &created));
  return com::Reference<COV4Extensibility>::Take(static_cast<COV4Extensibility*>(created));
}

bool Module::MayBeUnloaded() const {
  return Find<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")() == S_OK;
}

// --- Studio ---

Studio::Studio(const Files& files) : files_(files) {
  current_ = this;
  WNDCLASSW description = {};
  description.lpfnWndProc = &Studio::Procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = L"StudioHost";
  description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  RegisterClassW(&description);
  window_ = CreateWindowExW(0, L"StudioHost", L"Studio", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                            700, 500, nullptr, MakeMenu(), description.hInstance, nullptr);
  tree_ = CreateWindowExW(0, WC_TREEVIEWW, L"",
                          WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASLINES | TVS_HASBUTTONS |
                              TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                          0, 0, 240, 440, window_, nullptr, description.hInstance, nullptr);
  ACCEL save = {FCONTROL | FVIRTKEY, 'S', kSaveCommand};
  keys_ = CreateAcceleratorTableW(&save, 1);
  idle_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  object_ = com::Make<StudioObject>(window_, tree_);
  environment_ = OpenEnvironment();
}

Studio::~Studio() {
  object_ = {};
  environment_ = {};
  if (IsWindow(window_)) ::DestroyWindow(window_);
  DestroyAcceleratorTable(keys_);
  CloseHandle(idle_);
  current_ = nullptr;
}

com::LateBound Studio::OpenEnvironment() const {
  com::LateBound environment(com::Reference<IDispatch>::Take(new com::VbeObject));
  environment.Get(L"Open", {com::Value(com::Utf8(files_.project))});
  return environment;
}

void Studio::Load() {
  module_ = std::make_unique<Module>(files_.module);
  add_in_ = module_->Create();
}

void Studio::Initialize() {
  const Text project(files_.database), server(L"PumpServer");
  LONG result = 1;
  com::Require(add_in_->Initialize(project.get(), server.get(), object_.get(),
                                   environment_.object().get(), &result));
  Demand(result == 0, "Initialize answered something else than 0");
}

void Studio::Click(const std::wstring& key) {
  const Text project(L"Plant"), node(key), text(object_->TextOf(key));
  LONG result = 1;
  com::Require(add_in_->NodeClick(project.get(), node.get(), text.get(), &result));
  Demand(result == 0, "NodeClick answered something else than 0");
}

void Studio::Activate(const std::wstring& key) {
  object_->Select(key);
  const Text project(L"Plant"), node(key), text(object_->TextOf(key));
  LONG result = 1;
  com::Require(add_in_->NodeDblClick(project.get(), node.get(), text.get(), &result));
}

void Studio::Terminate() {
  LONG result = 1;
  com::Require(add_in_->Terminate(&result));
  Demand(result == 0, "Terminate answered something else than 0");
}

void Studio::Unload() {
  add_in_ = {};
  ServeMessages();
  Demand(module_->MayBeUnloaded(), "the module may not be unloaded");
  module_.reset();
  Demand(!GetModuleHandleW(L"OVFormulaEditor.dll"), "the module stays loaded");
}

void Studio::DestroyWindow() { ::DestroyWindow(window_); }

void Studio::Save() {
  environment_.Get(L"Save");
  ++saved_;
}

// --- Messages ---

void Studio::ServeMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Studio::Run() {
  SetFocus(tree_);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateAcceleratorW(window_, keys_, &message)) continue;
    // The tree keeps this key from its window.
    if (message.hwnd == tree_ && message.message == WM_SYSKEYDOWN && message.wParam == VK_F6) {
      Key(object_->SelectedKey(), VK_F6);
      continue;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Studio::InThread(const std::function<void()>& task) const {
  std::exception_ptr raised;
  const std::function<void()> guarded = [&] {
    try {
      task();
    } catch (...) {
      raised = std::current_exception();
    }
  };
  SendMessageW(window_, kTask, 0, reinterpret_cast<LPARAM>(&guarded));
  if (raised) std::rethrow_exception(raised);
}

// A timer is told when neither messages nor input wait.
void Studio::AwaitIdle() const {
  PostMessageW(window_, kAwaitIdle, 0, 0);
  constexpr DWORD kLongest = 20000;
  Demand(WaitForSingleObject(idle_, kLongest) == WAIT_OBJECT_0, "the studio hangs");
}

void Studio::Key(const std::wstring& key, WORD code) {
  const Text project(L"Plant"), node(key), text(object_->TextOf(key));
  SHORT value = static_cast<SHORT>(code), shift = Shift();
  LONG result = 0;
  add_in_->NodeKeyDown(project.get(), node.get(), text.get(), &value, &shift, &result);
}

void Studio::OnRightClick() {
  const std::wstring key = object_->SelectedKey();
  const Text project(L"Plant"), node(key), text(object_->TextOf(key));
  LONG result = 0;
  constexpr SHORT kRight = 2;
  add_in_->NodeMouseUp(project.get(), node.get(), text.get(), kRight, Shift(), 0, 0, &result);
}

LRESULT Studio::OnTree(const NMHDR& what) {
  if (!add_in_) return 0;
  if (what.code == TVN_SELCHANGEDW || what.code == TVN_SELCHANGEDA) {
    const std::wstring key = object_->SelectedKey();
    if (!key.empty()) Click(key);
  } else if (what.code == NM_DBLCLK) {
    Activate(object_->SelectedKey());
    return 1;
  } else if (what.code == NM_RCLICK) {
    OnRightClick();
    return 1;
  } else if (what.code == TVN_KEYDOWN) {
    Key(object_->SelectedKey(), reinterpret_cast<const NMTVKEYDOWN&>(what).wVKey);
  }
  return 0;
}

LRESULT Studio::OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_NOTIFY:
      return OnTree(*reinterpret_cast<const NMHDR*>(second));
    case WM_COMMAND:
      if (LOWORD(first) == kSaveCommand) Save();
      return 0;
    case WM_SETFOCUS:
      if (tree_) SetFocus(tree_);
      return 0;
    case WM_CLOSE:
      PostQuitMessage(0);
      return 0;
    case kTask:
      (*reinterpret_cast<const std::function<void()>*>(second))();
      return 0;
    case kAwaitIdle:
      SetTimer(window, kIdleTimer, USER_TIMER_MINIMUM, nullptr);
      return 0;
    case WM_TIMER:
      KillTimer(window, first);
      SetEvent(idle_);
      return 0;
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

LRESULT CALLBACK Studio::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (!current_) return DefWindowProcW(window, message, first, second);
  return current_->OnMessage(window, message, first, second);
}

}  // namespace studio_host
