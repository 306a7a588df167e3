// SPDX-License-Identifier: MIT
#include "files/error.h"

namespace files {
namespace {

using messages::Message;
using messages::Pattern;

constexpr Pattern kFailure{0, "<What>. <Remedy>"};
constexpr Pattern kFailureWithCause{0, "<What>: <Cause>. <Remedy>"};
constexpr Pattern kCausedBy{0, "<What>: <Cause>"};

}  // namespace

const Pattern& Remedy(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::kNotFound:
      return message::kCheckPath;
    case ErrorKind::kExists:
      return message::kChooseOtherName;
    case ErrorKind::kReadOnly:
      return message::kRemoveProtection;
    case ErrorKind::kLocked:
      return message::kCloseProgram;
    case ErrorKind::kFull:
      return message::kFreeSpace;
    case ErrorKind::kDamaged:
      return message::kRestoreFromBackup;
    case ErrorKind::kConflict:
      return message::kReadAgain;
    case ErrorKind::kNotAFile:
      return message::kNameAFile;
    case ErrorKind::kInTheWay:
      return message::kRemoveOrRename;
    case ErrorKind::kManyNames:
      return message::kLeaveOneName;
    case ErrorKind::kOutside:
      return message::kAgreeOrMove;
    case ErrorKind::kIo:
      break;
  }
  return message::kCheckMedium;
}

void Raise(ErrorKind kind, const std::string& path, const Failure& failure, const Message& cause) {
  const Message what(failure.pattern, {{"<Path>", path}, {failure.placeholder, failure.value}});
  const Message remedy = Remedy(kind);
  if (cause.empty()) {
    throw Error(kind, path, {kFailure, {{"<What>", what}, {"<Remedy>", remedy}}});
  }
  throw Error(kind, path,
              {kFailureWithCause, {{"<What>", what}, {"<Cause>", cause}, {"<Remedy>", remedy}}});
}

Message CausedBy(const Message& what, const Message& cause) {
  return {kCausedBy, {{"<What>", what}, {"<Cause>", cause}}};
}

}  // namespace files
