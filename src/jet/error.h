// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "jet/messages.h"
#include "jet/page.h"
#include "messages/error.h"

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

// A failed database operation. Its message is whole: path, place, cause and remedy.
class Error : public messages::Error {
 public:
  Error(ErrorKind kind, const std::string& path, Place place, const messages::Message& cause,
        const messages::Message& remedy = {});

  ErrorKind kind() const { return kind_; }
  const std::string& path() const { return path_; }
  Place place() const { return place_; }
  const messages::Message& cause() const { return cause_; }

 private:
  ErrorKind kind_;
  std::string path_;
  Place place_;
  messages::Message cause_;
};

// Raises kDamaged with the remedy that fits any damage.
[[noreturn]] void ThrowDamaged(const std::string& path, Place place,
                               const messages::Message& cause);

}  // namespace jet
