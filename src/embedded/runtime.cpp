// SPDX-License-Identifier: MIT
#include "embedded/runtime.h"

// Before our own header for the system's, which takes names away that this one needs.
#include <wx/msw/private.h>

#include <wx/debug.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/init.h>
#include <wx/window.h>

#include <deque>
#include <stdexcept>
#include <utility>

#include "com/module.h"
#include "com/ole.h"
#include "platform/ado.h"
#include "platform/error.h"
#include "wx/application.h"

namespace embedded {

namespace {

constexpr UINT kWake = WM_APP + 1;
constexpr UINT_PTR kTasks = 1, kIdle = 2;  // timers
constexpr wchar_t kWindowClass[] = L"OVFormulaEditor.Loop";
constexpr messages::TextNumber kNoDisplay{4005};

int handlers = 0;  // that are running

HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      kWindowClass, &module);
  return module;
}

// Whether windows can be seen: the toolkit takes that for granted.
bool HasDisplay() {
  const HWND window = ::CreateWindowExW(0, kWindowClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr,
                                        nullptr, ThisModule(), nullptr);
  return window && ::DestroyWindow(window);
}

class App final : public wxApp {
 public:
  bool OnInit() override { return true; }  // the command line is the host's
  void CallEventHandler(wxEvtHandler* handler, wxEventFunctor& functor,
                        wxEvent& event) const override {
    const Running running;
    wxApp::CallEventHandler(handler, functor, event);
  }
  bool OnExceptionInMainLoop() override {
    if (on_exception && *on_exception) (*on_exception)();
    return true;
  }

  using wxApp::DeletePendingObjects;

  const std::function<void()>* on_exception = nullptr;

 private:
  struct Running {
    Running() { ++handlers; }
    ~Running() { --handlers; }
  };
};

bool IsNavigation(const MSG& message) {
  if (message.message == WM_SYSCHAR) return true;
  if (message.message != WM_KEYDOWN) return false;
  switch (message.wParam) {
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
      return true;
    default:
      return false;
  }
}

wxWindow* OwnWindowOf(HWND window) {
  for (; window; window = ::GetAncestor(window, GA_PARENT)) {
    if (wxWindow* own = wxFindWinFromHandle(window)) return own;
  }
  return nullptr;
}

}  // namespace

// Stands for the host's loop: it is never run, but it is the active one while no dialog is open.
class Runtime::Loop final : public wxGUIEventLoop {
 public:
  explicit Loop(HWND window) : window_(window) {}

  void WakeUp() override {
    if (std::exchange(woken_, true)) return;
    // Idle time that asks for more comes after the host's input, painting and timers.
    if (idle_) {
      ::SetTimer(window_, kIdle, USER_TIMER_MINIMUM, nullptr);
    } else {
      ::PostMessageW(window_, kWake, 0, 0);
    }
  }
  void Woken() {
    ::KillTimer(window_, kIdle);
    woken_ = false;
    if (!wxTheApp) return;
    idle_ = true;
    wxTheApp->ProcessPendingEvents();
    if (wxTheApp->ProcessIdle()) WakeUp();
    idle_ = false;
  }
  // Whether a key was for one of our windows and has had its effect.
  bool TakesKey(MSG& message) {
    wxWindow* window = OwnWindowOf(message.hwnd);
    for (wxWindow* each = window; each; each = each->GetParent()) {
      if (each->MSWTranslateMessage(reinterpret_cast<WXMSG*>(&message))) return true;
      if (each->IsTopLevel()) break;
    }
    return window && IsNavigation(message) && PreProcessMessage(reinterpret_cast<WXMSG*>(&message));
  }

 private:
  HWND window_;
  bool woken_ = false;
  bool idle_ = false;
};

// The window that the host's loop serves for us, and the hook on that loop.
class Runtime::Host {
 public:
  explicit Host(Runtime& runtime) {
    current_ = this;
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.lpfnWndProc = &Host::OnMessage;
    description.hInstance = ThisModule();
    description.lpszClassName = kWindowClass;
    ::RegisterClassExW(&description);
    window_ = ::CreateWindowExW(0, kWindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                ThisModule(), nullptr);
    if (!HasDisplay()) {
      RemoveWindow();
      throw platform::Error(platform::ErrorKind::kRefused, platform::kErrUnspecified,
                            messages::Message({kNoDisplay, {}}));
    }
    wxDisableAsserts();  // the host's user can do nothing about a finding of the library
    wxSetInstance(ThisModule());
    auto* app = new App;
    app->on_exception = &runtime.on_exception;
    wxApp::SetInstance(app);
    if (!window_ || !wxEntryStart(ThisModule()) || !app->CallOnInit()) {
      RemoveWindow();
      throw std::runtime_error("The window library cannot be started.");
    }
    app->SetExitOnFrameDelete(false);
    loop_ = std::make_unique<Loop>(window_);
    activator_ = std::make_unique<wxEventLoopActivator>(loop_.get());
    hook_ = ::SetWindowsHookExW(WH_GETMESSAGE, &Host::OnLoop, nullptr, ::GetCurrentThreadId());
  }
  ~Host() {
    ::UnhookWindowsHookEx(hook_);
    while (!tasks_.empty()) RunTasks();
    // Windows that nobody waits for: help.
    const wxWindowList left = wxTopLevelWindows;
    for (wxWindow* window : left) window->Destroy();
    while (wxTheApp->HasPendingEvents()) wxTheApp->ProcessPendingEvents();
    static_cast<App*>(wxTheApp)->DeletePendingObjects();
    activator_.reset();
    loop_.reset();
    wxTheApp->OnExit();
    wxEntryCleanup();
    RemoveWindow();
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  void CallLater(std::function<void()> task) {
    tasks_.push_back(std::move(task));
    // Timers are told when nothing else waits.
    ::SetTimer(window_, kTasks, USER_TIMER_MINIMUM, nullptr);
  }

 private:
  void RemoveWindow() {
    if (window_) ::DestroyWindow(window_);
    ::UnregisterClassW(kWindowClass, ThisModule());
    current_ = nullptr;
  }
  // Those that wait now. The last one may end the runtime.
  static void RunTasks() {
    ::KillTimer(current_->window_, kTasks);
    for (std::size_t count = current_->tasks_.size(); current_ && count > 0; --count) {
      std::function<void()> task = std::move(current_->tasks_.front());
      current_->tasks_.pop_front();
      task();
    }
  }

  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) try {
    if (current_ && (message == kWake || (message == WM_TIMER && first == kIdle))) {
      if (current_->loop_) current_->loop_->Woken();
      return 0;
    }
    if (current_ && message == WM_TIMER && first == kTasks) {
      RunTasks();
      return 0;
    }
    return ::DefWindowProcW(window, message, first, second);
  } catch (const std::exception&) {
    return 0;  // handlers have told of it
  }

  static LRESULT CALLBACK OnLoop(int code, WPARAM removed, LPARAM given) {
    if (code == HC_ACTION && removed == PM_REMOVE && current_ && current_->loop_) {
      auto& message = *reinterpret_cast<MSG*>(given);
      current_->Look(message);
    }
    return ::CallNextHookEx(nullptr, code, removed, given);
  }
  void Look(MSG& message) {
    if (wxEventLoopBase::GetActive() != loop_.get()) {
      // A dialog of ours has a loop of its own, which looks after its keys. The end of the program
      // ends that loop; it is the next one's, too.
      if (message.message == WM_QUIT) ::PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    const bool input = (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ||
                       (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST);
    if (!input || !OwnWindowOf(message.hwnd)) return;
    const bool key = message.message <= WM_KEYLAST;
    if (key && loop_->TakesKey(message)) message.message = WM_NULL;
    loop_->WakeUp();  // idle time follows input
  }

  static inline Host* current_ = nullptr;
  com::AliveInModule alive_;
  HWND window_ = nullptr;
  HHOOK hook_ = nullptr;
  std::unique_ptr<Loop> loop_;
  std::unique_ptr<wxEventLoopActivator> activator_;
  std::deque<std::function<void()>> tasks_;
};

std::shared_ptr<Runtime> Runtime::Use() {
  static std::weak_ptr<Runtime> running;
  std::shared_ptr<Runtime> runtime = running.lock();
  if (!runtime) {
    runtime.reset(new Runtime);
    running = runtime;
  }
  return runtime;
}

Runtime::Runtime() : host_(std::make_unique<Host>(*this)) {}
Runtime::~Runtime() = default;

void Runtime::CallLater(std::function<void()> task) { host_->CallLater(std::move(task)); }

bool Runtime::IsInHandler() { return handlers > 0; }

void Runtime::CancelDialogs() {
  for (wxWindow* window : wxTopLevelWindows) {
    auto* dialog = dynamic_cast<wxDialog*>(window);
    if (dialog && dialog->IsModal()) dialog->EndModal(wxID_CANCEL);
  }
}

void DestroyOutsideHandlers(std::shared_ptr<Runtime> runtime, std::shared_ptr<void> object) {
  if (!Runtime::IsInHandler()) return;  // the caller's was the last
  Runtime& target = *runtime;
  target.CallLater([runtime = std::move(runtime), object = std::move(object)]() mutable {
    DestroyOutsideHandlers(std::move(runtime), std::move(object));
  });
}

}  // namespace embedded
