// SPDX-License-Identifier: MIT
#include "jet/error.h"

namespace jet {
namespace {

using messages::Message;

constexpr messages::Pattern kPlaceAndCause{messages::kNoText, "<Place>: <Cause>"};

Message PlaceOf(const std::string& path, Place place) {
  if (place.page == kNoPage) return Message::Verbatim(path);
  if (place.row < 0) return {message::kPathPage, {{"<Path>", path}, {"<Page>", place.page}}};
  return {message::kPathPageRow, {{"<Path>", path}, {"<Page>", place.page}, {"<Row>", place.row}}};
}

}  // namespace

Error::Error(ErrorKind kind, const std::string& path, Place place, const Message& cause,
             const Message& remedy)
    : messages::Error({kPlaceAndCause,
                       {{"<Place>", PlaceOf(path, place)}, {"<Cause>", Joined(cause, remedy)}}}),
      kind_(kind),
      path_(path),
      place_(place),
      cause_(cause) {}

void ThrowDamaged(const std::string& path, Place place, const Message& cause) {
  throw Error(ErrorKind::kDamaged, path, place, cause, message::kRestoreOrRepair);
}

}  // namespace jet
