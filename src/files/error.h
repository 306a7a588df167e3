// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "files/messages.h"
#include "messages/error.h"

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

// A failed file operation. The message is a whole sentence: path, what failed, cause, remedy.
class Error : public messages::Error {
 public:
  Error(ErrorKind kind, std::string path, messages::Message message)
      : messages::Error(std::move(message)), kind_(kind), path_(std::move(path)) {}

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

// What a user can do about a failure of this kind with the file, one sentence.
messages::Message Remedy(ErrorKind kind, const std::string& path);

// What failed: "<Path> cannot be read", with another value beside the path or none.
struct Failure {
  Failure(const messages::Pattern& failure)  // NOLINT(google-explicit-constructor)
      : pattern(failure) {}
  Failure(const messages::Pattern& failure, std::string_view name, std::string_view text)
      : pattern(failure), placeholder(name), value(text) {}

  messages::Pattern pattern;
  std::string_view placeholder = {};  // of a literal, with its angle brackets
  std::string value = {};
};

// Throws Error with the message "<failure>: <cause>. <remedy>", such as
// "/p/a.cls cannot be written: no space left on the medium. Free some space ...".
[[noreturn]] void Raise(ErrorKind kind, const std::string& path, const Failure& failure,
                        const messages::Message& cause = {});

// "<What>: <Cause>", the cause a sentence of its own.
messages::Message CausedBy(const messages::Message& what, const messages::Message& cause);

}  // namespace files
