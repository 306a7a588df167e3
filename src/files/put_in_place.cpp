// SPDX-License-Identifier: MIT
#include "files/put_in_place.h"

namespace files {
namespace {

constexpr std::uint64_t kChangeByte = std::uint64_t{1} << 62;  // behind the contents of any file

enum class Exchanged { kYes, kGone, kImpossible };

Exchanged Exchange(FileSystem& system, const std::string& temporary, const std::string& path) {
  try {
    return system.Exchange(temporary, path) ? Exchanged::kYes : Exchanged::kImpossible;
  } catch (const Error&) {
    if (system.Exists(temporary) && !system.Exists(path)) return Exchanged::kGone;
    throw;
  }
}

// The second of two exchanges: `temporary` is to be the file with that stamp again.
void TakeBack(FileSystem& system, const std::string& temporary, const std::string& path,
              const std::optional<FileStamp>& own) {
  try {
    system.Exchange(temporary, path);
    if (system.Stamp(temporary) == own) return;
    // Somebody wrote `path` meanwhile: that is the newest version, and the other one is not lost.
    system.Exchange(temporary, path);
    system.RenameNew(temporary, AsideName(system, path));
  } catch (const Error& error) {
    throw NotUndoneError(
        error.kind(), path,
        Joined({message::kOtherVersionIsNow, {{"<Path>", path}, {"<Name>", temporary}}},
               error.message()));
  }
}

}  // namespace

ChangeLock::ChangeLock(FileSystem& system, const std::string& path)
    : file_(system.Open(path, OpenMode::kReadWrite)) {
  const bool locked = file_->TryLock(kChangeByte, 1, LockMode::kExclusive);
  const std::optional<FileStamp> named = system.Stamp(path);
  if (locked && named && named->identity == file_->Stamp().identity) return;
  Raise(ErrorKind::kConflict, path, message::kIsNotChanged, message::kBeingChanged);
}

bool PutInPlace(FileSystem& system, const std::string& temporary, const std::string& path,
                const IsExpected& is_expected) {
  const std::optional<FileStamp> own = system.Stamp(temporary);
  switch (Exchange(system, temporary, path)) {
    case Exchanged::kGone:
      return false;
    case Exchanged::kImpossible:
      if (!is_expected(path)) return false;
      system.Rename(temporary, path);
      return true;
    case Exchanged::kYes:
      break;
  }
  try {
    if (is_expected(temporary)) return true;
  } catch (const Error&) {
    TakeBack(system, temporary, path, own);
    throw;
  }
  TakeBack(system, temporary, path, own);
  return false;
}

std::string AsideName(FileSystem& system, const std::string& path) {
  std::string name = path + ".edited";
  for (int number = 2; system.Exists(name); ++number) {
    name = path + ".edited-" + std::to_string(number);
  }
  return name;
}

}  // namespace files
