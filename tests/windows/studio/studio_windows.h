// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "com/late_bound.h"
#include "com/library.h"
#include "tests/windows/studio/studio_object_windows.h"

namespace studio_host {

void Say(const std::string& line);
// Raises std::runtime_error.
void Demand(bool is, const std::string& what);

struct Files {
  std::wstring module, database, project;
};

// The module, from the file.
class Module {
 public:
  explicit Module(const std::wstring& path);
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  com::Reference<COV4Extensibility> Create() const;
  bool MayBeUnloaded() const;

 private:
  template <class Function>
  Function Find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  HMODULE module_;
};

// A window with a menu, a tree and a field, the add-in in it, and our own environment over the
// project's files. One at a time.
class Studio {
 public:
  explicit Studio(const Files& files);
  ~Studio();
  Studio(const Studio&) = delete;
  Studio& operator=(const Studio&) = delete;

  // --- The add-in ---
  void Load();
  void Initialize();
  void Click(const std::wstring& key);
  // As a double click does.
  void Activate(const std::wstring& key);
  // A key on the node; returns when what it opens is closed.
  void Key(const std::wstring& key, WORD code);
  void Terminate();
  void Unload();
  // Destroys the main window, as a studio does that ends in the wrong order.
  void DestroyWindow();

  // Writes what the environment holds; the menu's command, with Ctrl+S.
  void Save();
  int saved() const { return saved_; }

  // --- Messages ---
  static void ServeMessages();
  // Until the window is closed.
  void Run();
  // Runs the task in the studio's thread, from another one, whatever window waits there;
  // raises what it raises.
  void InThread(const std::function<void()>& task) const;
  // Waits in another thread until the studio's has nothing left to do.
  void AwaitIdle() const;

  HWND window() const { return window_; }
  HWND tree() const { return tree_; }
  StudioObject& object() { return *object_; }
  com::Reference<COV4Extensibility>& add_in() { return add_in_; }

 private:
  com::LateBound OpenEnvironment() const;
  void OnRightClick();
  LRESULT OnTree(const NMHDR& what);
  LRESULT OnMessage(HWND window, UINT message, WPARAM first, LPARAM second);
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);

  static inline Studio* current_ = nullptr;
  Files files_;
  HWND window_ = nullptr;
  HWND tree_ = nullptr;
  HACCEL keys_ = nullptr;
  HANDLE idle_ = nullptr;
  int saved_ = 0;
  com::Reference<StudioObject> object_;
  com::LateBound environment_;
  std::unique_ptr<Module> module_;
  com::Reference<COV4Extensibility> add_in_;
};

}  // namespace studio_host
