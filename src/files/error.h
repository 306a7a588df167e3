// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace files {

enum class ErrorKind {
  kNotFound,   // file or folder does not exist
  kExists,     // it exists already
  kReadOnly,   // no permission, read-only file or folder
  kLocked,     // another program holds a conflicting lock
  kFull,       // no space left
  kDamaged,    // contents contradict themselves (journal)
  kConflict,   // somebody else changed the file meanwhile
  kNotAFile,   // a folder or a device stands under the name
  kInTheWay,   // a link or somebody's own file stands under a name that we need
  kManyNames,  // the file has several names (hard links)
  kOutside,    // the file is none that the project may write
  kIo,         // any other failure of the operating system
};

// A failed file operation. The text is a whole sentence: path, what failed, cause, remedy.
class Error : public std::runtime_error {
 public:
  Error(ErrorKind kind, std::string path, const std::string& text)
      : std::runtime_error(text), kind_(kind), path_(std::move(path)) {}

  ErrorKind kind() const { return kind_; }
  const std::string& path() const { return path_; }

 private:
  ErrorKind kind_;
  std::string path_;
};

// A change failed and could not be put back at once. The journal stands; the next start puts the
// change back, or keeps it when all of it is on the medium.
class NotUndoneError : public Error {
 public:
  using Error::Error;
};

// What a user can do about a failure of this kind, one sentence.
std::string_view Remedy(ErrorKind kind);

// Throws Error with the text "<path> <failure>: <cause>. <remedy>", such as
// "/p/a.cls cannot be written: no space left on device. Free some space ...".
[[noreturn]] void Raise(ErrorKind kind, const std::string& path, std::string_view failure,
                        std::string_view cause = {});

}  // namespace files
