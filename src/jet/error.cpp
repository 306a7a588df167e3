// SPDX-License-Identifier: MIT
#include "jet/error.h"

namespace jet {
namespace {

std::string Message(const std::string& path, Place place, const std::string& cause,
                    const std::string& remedy) {
  std::string text = path;
  if (place.page != kNoPage) text += ", page " + std::to_string(place.page);
  if (place.row >= 0) text += ", row " + std::to_string(place.row);
  text += ": " + cause;
  if (!remedy.empty()) text += ' ' + remedy;
  return text;
}

}  // namespace

Error::Error(ErrorKind kind, const std::string& path, Place place, const std::string& cause,
             const std::string& remedy)
    : std::runtime_error(Message(path, place, cause, remedy)),
      kind_(kind),
      path_(path),
      place_(place),
      cause_(cause) {}

void ThrowDamaged(const std::string& path, Place place, const std::string& cause) {
  throw Error(ErrorKind::kDamaged, path, place, cause,
              "Restore the file from a backup, or let Access compact and repair it.");
}

}  // namespace jet
