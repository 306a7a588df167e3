// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "platform/studio.h"

namespace embedded {

// wxWidgets in a process whose message loop is somebody else's: alive while somebody holds it.
// Deferred tasks, idle time and timers run from a window of ours that the host's loop serves; keys
// for our windows are taken from that loop before the host sees them.
class Runtime {
 public:
  // Starts it, or joins. Raises platform::Error where there is no display, and
  // std::runtime_error when it cannot be started.
  static std::shared_ptr<Runtime> Use();
  ~Runtime();
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  // Runs the task from the message loop, behind what waits there now. What waits still when the
  // runtime ends is run then.
  void CallLater(std::function<void()> task);
  // Whether a handler of one of our windows is running, or a dialog waits for its answer.
  static bool IsInHandler();
  // Closes the dialogs that wait, as if they were cancelled.
  static void CancelDialogs();

  // What the program does with an exception that a handler let go.
  std::function<void()> on_exception;

 private:
  class Loop;
  class Host;
  Runtime();

  std::unique_ptr<Host> host_;
};

// Destroys the object at once or, while a handler of ours is running, as soon as none is.
void DestroyOutsideHandlers(std::shared_ptr<Runtime> runtime, std::shared_ptr<void> object);

}  // namespace embedded
