// SPDX-License-Identifier: MIT
#include "vbfiles/errors.h"

namespace vbfiles {

namespace {

constexpr std::int32_t kErrFileNotFound = 53;
constexpr std::int32_t kErrDeviceIo = 57;
constexpr std::int32_t kErrDiskFull = 61;
constexpr std::int32_t kErrPermissionDenied = 70;

std::int32_t NumberOf(files::ErrorKind kind) {
  switch (kind) {
    case files::ErrorKind::kNotFound:
      return kErrFileNotFound;
    case files::ErrorKind::kReadOnly:
    case files::ErrorKind::kManyNames:
    case files::ErrorKind::kOutside:
      return platform::kErrModuleNotEditable;
    case files::ErrorKind::kLocked:
    case files::ErrorKind::kConflict:
      return kErrPermissionDenied;
    case files::ErrorKind::kFull:
      return kErrDiskFull;
    case files::ErrorKind::kExists:
    case files::ErrorKind::kDamaged:
    case files::ErrorKind::kNotAFile:
    case files::ErrorKind::kInTheWay:
    case files::ErrorKind::kIo:
      break;
  }
  return kErrDeviceIo;
}

}  // namespace

platform::Error FromFileError(const files::Error& error) {
  const platform::ErrorKind kind =
      error.kind() == files::ErrorKind::kNotFound   ? platform::ErrorKind::kNotFound
      : error.kind() == files::ErrorKind::kConflict ? platform::ErrorKind::kConflict
                                                    : platform::ErrorKind::kIo;
  return platform::Error(kind, NumberOf(error.kind()), messages::MessageOf(error));
}

platform::Error SubscriptError(const messages::Message& message) {
  return platform::Error(platform::ErrorKind::kRefused, platform::kErrSubscript, message);
}

}  // namespace vbfiles
