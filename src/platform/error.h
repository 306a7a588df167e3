// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "messages/error.h"

namespace platform {

// The kinds of failure that callers tell apart.
enum class ErrorKind {
  kRefused,   // the request cannot be carried out as things stand; nothing changed
  kNotFound,  // a named object does not exist
  kConflict,  // somebody else changed a file or row meanwhile
  kIo,        // a file cannot be opened, read or written, is locked or damaged
  kInternal,
};

// A failure reported by an implementation of a platform interface, as the error object of the
// object models carries it: number, source and description. The description is a whole sentence
// that names the place and the remedy.
class Error : public messages::Error {
 public:
  Error(ErrorKind kind, std::int32_t number, messages::Message message)
      : messages::Error(std::move(message)), kind_(kind), number_(number) {}

  ErrorKind kind() const { return kind_; }
  std::int32_t number() const { return number_; }
  // The message in English.
  std::string description() const { return what(); }

 private:
  ErrorKind kind_;
  std::int32_t number_;
};

}  // namespace platform
