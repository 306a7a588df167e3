// SPDX-License-Identifier: MIT
#include "files/error.h"

namespace files {

std::string_view Remedy(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::kNotFound:
      return "Check the path.";
    case ErrorKind::kExists:
      return "Choose another name, or move the existing file away.";
    case ErrorKind::kReadOnly:
      return "Remove the write protection, or ask for the right to write there.";
    case ErrorKind::kLocked:
      return "Close the other program that uses it, or wait until it has finished.";
    case ErrorKind::kFull:
      return "Free some space on the medium and try again.";
    case ErrorKind::kDamaged:
      return "Restore it from a backup.";
    case ErrorKind::kConflict:
      return "Read it again and repeat the change.";
    case ErrorKind::kNotAFile:
      return "Name a file.";
    case ErrorKind::kInTheWay:
      return "Remove or rename it.";
    case ErrorKind::kManyNames:
      return "Leave it one name, and make copies or symbolic links of the others.";
    case ErrorKind::kOutside:
      return "Agree to changes in its folder (--allow-folder), or move it into the project.";
    case ErrorKind::kIo:
      break;
  }
  return "Check the medium and the connection to it, and try again.";
}

void Raise(ErrorKind kind, const std::string& path, std::string_view failure,
           std::string_view cause) {
  std::string text = path;
  text.append(" ").append(failure);
  if (!cause.empty()) text.append(": ").append(cause);
  text.append(". ").append(Remedy(kind));
  throw Error(kind, path, text);
}

}  // namespace files
