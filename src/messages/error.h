// SPDX-License-Identifier: MIT
// The base of the failures that layers report: an exception that carries what it has to say.
#pragma once

#include <exception>
#include <stdexcept>
#include <utility>

#include "messages/message.h"

namespace messages {

// what() is the English sentence.
class Error : public std::runtime_error {
 public:
  explicit Error(Message message)
      : std::runtime_error(message.English()), message_(std::move(message)) {}

  const Message& message() const { return message_; }

 private:
  Message message_;
};

// What an exception has to say; of one that is not ours its own words.
Message MessageOf(const std::exception& error);

}  // namespace messages
