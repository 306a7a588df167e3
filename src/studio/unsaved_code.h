// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "files/file_system.h"

namespace studio {

// Code that was typed and is in no module yet.
struct UnsavedCode {
  std::string module;  // path of its file
  std::string base;    // what the module held when the typing began
  std::string text;
};

// The unsaved code of the windows that show one project, a file each in a folder of the user's
// state, so that it outlives a program that is killed. A lock tells whether the window of a file
// still runs. Failures are files::Error.
class UnsavedCopies {
 public:
  // `folder` belongs to one project and is made when something is kept.
  UnsavedCopies(files::FileSystem& system, std::string folder)
      : system_(system), folder_(std::move(folder)) {}

  // Keeps the code in place of what this object kept before. A new file lets in whom the module's
  // lets in.
  void Keep(const UnsavedCode& code);
  // It was saved or given up.
  void Drop();

  // What a window that runs no longer left behind. It stays until RemoveLeft.
  std::optional<UnsavedCode> FindLeft();
  void RemoveLeft();

 private:
  void TakeName();

  files::FileSystem& system_;
  std::string folder_;
  std::string path_;  // of this object's file, "" before there was one
  std::string left_;  // of the file that FindLeft found
  std::unique_ptr<files::RandomAccessFile> lock_, left_lock_;
};

}  // namespace studio
