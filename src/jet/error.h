// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "jet/page.h"

namespace jet {

enum class ErrorKind {
  kForeign,      // not a Jet 4.0 database
  kUnsupported,  // another Jet version, encrypted, a password, a feature that is not supported
  kDamaged,      // the contents contradict themselves, or the file is cut off
  kReadOnly,     // the file, the table or the opening mode forbids writing
  kLocked,       // another program uses the file
  kConflict,     // somebody else changed the file meanwhile
  kTooLarge,     // the database would pass 2 GiB
  kDuplicate,    // a unique index holds the key already
  kRequired,     // a Null in a required column or a primary key
  kInvalid,      // a value that its column cannot hold
  kNotFound,     // no such table, index, column or row
  kExists,       // a table of that name exists already
};

// Where in a file something was met. The row is a slot number, -1 when the whole page is meant.
struct Place {
  PageNumber page = kNoPage;
  int row = -1;
};

// A failed database operation. what() is a whole message: path, place, cause and remedy.
class Error : public std::runtime_error {
 public:
  Error(ErrorKind kind, const std::string& path, Place place, const std::string& cause,
        const std::string& remedy = {});

  ErrorKind kind() const { return kind_; }
  const std::string& path() const { return path_; }
  Place place() const { return place_; }
  const std::string& cause() const { return cause_; }

 private:
  ErrorKind kind_;
  std::string path_;
  Place place_;
  std::string cause_;
};

// Raises kDamaged with the remedy that fits any damage.
[[noreturn]] void ThrowDamaged(const std::string& path, Place place, const std::string& cause);

}  // namespace jet
