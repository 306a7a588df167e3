// SPDX-License-Identifier: MIT
#include "files/replace_file.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <thread>

#include "files/put_in_place.h"
#include "files/random_number.h"

namespace files {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kDigitCount = 12;
constexpr std::string_view kExtension = ".tmp";

std::string RandomName() {
  std::string name;
  for (std::uint64_t number = RandomNumber(); name.size() < kDigitCount; number /= kDigits.size()) {
    name += kDigits[number % kDigits.size()];
  }
  return name;
}

// Nobody knows the temporary file's name: a failure names the file that it stands for.
std::unique_ptr<RandomAccessFile> OpenTemporary(FileSystem& system, const std::string& temporary,
                                                const std::string& target,
                                                const std::string& like) {
  try {
    return system.OpenLike(temporary, OpenMode::kCreateNew, system.Exists(target) ? target : like);
  } catch (const Error& error) {
    if (error.kind() == ErrorKind::kReadOnly) {
      Raise(error.kind(), target, message::kCannotBeWritten, message::kNoFileInFolder);
    }
    throw Error(error.kind(), target, error.message().Exchanged(temporary, target));
  }
}

void CheckWritable(FileSystem& system, const std::string& target, const std::string& path) {
  if (system.Exists(target) && !system.IsWritable(target)) {
    Raise(ErrorKind::kReadOnly, path, message::kCannotBeWritten, message::kWriteProtected);
  }
}

}  // namespace

void RemoveQuietly(FileSystem& system, const std::string& path) noexcept {
  try {
    system.Remove(path);
  } catch (const Error&) {
    // The failure that led here is reported; a left-over temporary file harms nobody.
  }
}

std::string TemporaryName(FileSystem& system, const std::string& target) {
  std::string name;
  do {
    name = target + "." + RandomName();
    name += kExtension;
  } while (system.Exists(name));
  return name;
}

bool IsTemporaryName(std::string_view name, std::string_view target) {
  if (!name.starts_with(target) || !name.ends_with(kExtension)) return false;
  name.remove_prefix(target.size());
  return name.size() == 1 + kDigitCount + kExtension.size() && name.front() == '.' &&
         name.substr(1, kDigitCount).find_first_not_of(kDigits) == std::string_view::npos;
}

void WriteTemporary(FileSystem& system, const std::string& temporary, const std::string& target,
                    std::string_view contents, const std::string& like) {
  TemporaryFile(system, temporary, target, contents, like).Sync();
}

TemporaryFile::TemporaryFile(FileSystem& system, std::string temporary, std::string target,
                             std::string_view contents, const std::string& like)
    : system_(system),
      temporary_(std::move(temporary)),
      target_(std::move(target)),
      file_(OpenTemporary(system, temporary_, target_, like)) {
  OrRemove([&] {
    file_->WriteAt(0, std::as_bytes(std::span(contents)));
    if (system.Exists(target_)) system.CopyAttributes(target_, temporary_);
  });
}

void TemporaryFile::Sync() {
  OrRemove([this] { file_->Sync(); });
  file_.reset();
}

template <typename Action>
void TemporaryFile::OrRemove(Action action) {
  try {
    action();
  } catch (const Error& error) {
    file_.reset();
    RemoveQuietly(system_, temporary_);
    throw Error(error.kind(), target_, error.message().Exchanged(temporary_, target_));
  } catch (...) {
    file_.reset();
    RemoveQuietly(system_, temporary_);
    throw;
  }
}

void ReplaceFile(FileSystem& system, const std::string& path, std::string_view contents,
                 const std::string& like) {
  const std::string target = ResolveTarget(system, path);
  CheckWritable(system, target, path);
  CheckOneName(system, target, message::kCannotBeWritten);
  const std::string temporary = TemporaryName(system, target);
  WriteTemporary(system, temporary, target, contents, like);
  try {
    system.Rename(temporary, target);
  } catch (...) {
    RemoveQuietly(system, temporary);
    throw;
  }
  system.SyncDirectory(system.Folder(target));
}

void ReplaceVersion(FileSystem& system, const std::string& path, std::string_view before,
                    std::string_view contents) {
  const std::string target = ResolveTarget(system, path);
  CheckWritable(system, target, path);
  CheckOneName(system, target, message::kCannotBeWritten);
  const ChangeLock lock(system, target);
  const std::string temporary = TemporaryName(system, target);
  WriteTemporary(system, temporary, target, contents);
  const auto holds = [&](const std::string& name) { return HoldsBytes(system, name, before); };
  bool done = false;
  try {
    done = holds(target) && PutInPlace(system, temporary, target, holds);
  } catch (const NotUndoneError&) {
    throw;
  } catch (...) {
    RemoveQuietly(system, temporary);
    throw;
  }
  if (system.Exists(temporary)) system.Remove(temporary);
  if (!done) {
    Raise(ErrorKind::kConflict, path, message::kIsNotChanged, message::kChangedMeanwhile);
  }
  system.SyncDirectory(system.Folder(target));
}

void UpdateFile(FileSystem& system, const std::string& path,
                const std::function<std::string(const std::string& before)>& change) {
  constexpr int kAttempts = 100, kMaxPauseMs = 20;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const bool exists = system.Exists(path);
    try {
      const std::string before = exists ? ReadFile(system, path) : std::string();
      const std::string after = change(before);
      if (after == before) return;
      if (!exists) return MakeFile(system, path, after);
      return ReplaceVersion(system, path, before, after);
    } catch (const Error& error) {
      // Not every system replaces a file in one step.
      const bool vanished = exists && error.kind() == ErrorKind::kNotFound;
      const bool again =
          vanished || error.kind() == ErrorKind::kConflict || error.kind() == ErrorKind::kExists;
      if (!again || attempt + 1 == kAttempts) throw;
    }
    // Whoever has the file waits for the medium.
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(attempt, kMaxPauseMs)));
  }
}

void MakeFile(FileSystem& system, const std::string& path, std::string_view contents) {
  const std::string target = ResolveTarget(system, path);
  const std::string temporary = TemporaryName(system, target);
  WriteTemporary(system, temporary, target, contents);
  try {
    system.RenameNew(temporary, target);
  } catch (...) {
    RemoveQuietly(system, temporary);
    throw;
  }
  system.SyncDirectory(system.Folder(target));
}

}  // namespace files
