// SPDX-License-Identifier: MIT
#include "files/replace_file.h"

#include <span>

#include "files/random_number.h"

namespace files {
namespace {

void RemoveQuietly(FileSystem& system, const std::string& path) noexcept {
  try {
    system.Remove(path);
  } catch (const Error&) {
    // The failure that led here is reported; a left-over temporary file harms nobody.
  }
}

std::string RandomName() {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string name;
  for (std::uint64_t number = RandomNumber(); name.size() < 12; number /= kDigits.size()) {
    name += kDigits[number % kDigits.size()];
  }
  return name;
}

}  // namespace

std::string ResolveTarget(FileSystem& system, const std::string& path) {
  if (system.Exists(path)) return system.Canonical(path);
  const std::string folder = system.Folder(path);
  return system.Join(system.Canonical(folder.empty() ? "." : folder), system.FileName(path));
}

std::string TemporaryName(FileSystem& system, const std::string& target) {
  std::string name;
  do {
    name = target + "." + RandomName() + ".tmp";
  } while (system.Exists(name));
  return name;
}

void WriteTemporary(FileSystem& system, const std::string& temporary, const std::string& target,
                    std::string_view contents) {
  auto file = system.Open(temporary, OpenMode::kCreateNew);
  try {
    file->WriteAt(0, std::as_bytes(std::span(contents)));
    if (system.Exists(target)) system.CopyAttributes(target, temporary);
    file->Sync();
  } catch (...) {
    file.reset();
    RemoveQuietly(system, temporary);
    throw;
  }
}

void ReplaceFile(FileSystem& system, const std::string& path, std::string_view contents) {
  const std::string target = ResolveTarget(system, path);
  if (system.Exists(target) && !system.IsWritable(target)) {
    Raise(ErrorKind::kReadOnly, path, "cannot be written", "it is write-protected");
  }
  const std::string temporary = TemporaryName(system, target);
  WriteTemporary(system, temporary, target, contents);
  try {
    system.Rename(temporary, target);
  } catch (...) {
    RemoveQuietly(system, temporary);
    throw;
  }
  system.SyncDirectory(system.Folder(target));
}

}  // namespace files
