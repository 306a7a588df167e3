// SPDX-License-Identifier: MIT
#include "files/error.h"

namespace files {
namespace {

using messages::Message;
using messages::Pattern;

constexpr Pattern kFailure{messages::kNoText, "<What>. <Remedy>"};
constexpr Pattern kFailureWithCause{messages::kNoText, "<What>: <Cause>. <Remedy>"};
constexpr Pattern kCausedBy{messages::kNoText, "<What>: <Cause>"};

// With the separators of every system; empty for a bare name.
std::string FolderOf(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? std::string() : path.substr(0, separator);
}

}  // namespace

Message Remedy(ErrorKind kind, const std::string& path) {
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
      return {message::kAgreeOrMove, {{"<Folder>", FolderOf(path)}}};
    case ErrorKind::kIo:
      break;
  }
  return message::kCheckMedium;
}

void Raise(ErrorKind kind, const std::string& path, const Failure& failure, const Message& cause) {
  const Message what(failure.pattern, {{"<Path>", path}, {failure.placeholder, failure.value}});
  const Message remedy = Remedy(kind, path);
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
