// SPDX-License-Identifier: MIT
#include "exchange/place.h"

namespace exchange {

messages::Message AtPlace(const Place& place, const messages::Message& reason) {
  if (place.line == 0) return reason;
  if (place.column == 0) {
    return {{kTextAtLine}, {{"<Line>", place.line}, {"<Text>", reason}}};
  }
  return {{kTextAtPlace}, {{"<Line>", place.line}, {"<Column>", place.column}, {"<Text>", reason}}};
}

}  // namespace exchange
