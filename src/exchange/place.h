// SPDX-License-Identifier: MIT
// Where something stands in a list, and what is wrong there.
#pragma once

#include <compare>
#include <cstdint>

#include "exchange/exchange_texts.h"
#include "messages/error.h"

namespace exchange {

// Counted from 1. The column is the number of a cell in a table, of a character in JSON; 0 means
// the line as a whole, line 0 nothing of the file.
struct Place {
  std::uint32_t line = 0;
  std::uint32_t column = 0;
  // NOLINTNEXTLINE(modernize-use-nullptr): it takes the comparison's own 0 for a pointer.
  friend auto operator<=>(const Place&, const Place&) = default;
};

// Something that a line gets wrong. The others can do without it.
struct Problem {
  Place place;
  messages::Message reason;
};

// "line 3, column 2: ..."
messages::Message AtPlace(const Place& place, const messages::Message& reason);

// Raised for a file that as a whole is no list.
class FormatError : public messages::Error {
 public:
  FormatError(const Place& place, const messages::Message& reason)
      : messages::Error(AtPlace(place, reason)), place_(place) {}

  const Place& place() const { return place_; }

 private:
  Place place_;
};

}  // namespace exchange
