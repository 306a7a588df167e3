// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/change_set.h"

namespace history {

// Code that a development environment has open: it is changed there, and the environment writes
// its files when it wants to. Contents are what is visible of a module, as bytes of its file.
class OpenCode {
 public:
  virtual ~OpenCode() = default;
  // What the open unit of work changed, by the paths of the modules' files. Raises what the
  // environment raises, and platform::Error for text that no file can hold.
  virtual std::vector<files::FileChange> Changes() = 0;
  // Nothing when no module has that file.
  virtual std::optional<std::string> Read(const std::string& path) = 0;
  // Makes it what the module holds, as an edit in the open unit.
  virtual void Write(const std::string& path, const std::string& contents) = 0;
};

}  // namespace history
