// SPDX-License-Identifier: MIT
#include "vbfiles/module_file.h"

#include <algorithm>
#include <span>

#include "files/error.h"
#include "files/messages.h"
#include "vbfiles/errors.h"
#include "vbfiles/messages.h"
#include "vbfiles/path_resolver.h"

namespace vbfiles {

namespace {

// Headers of classes are hardly longer; forms describe their controls there.
constexpr std::size_t kFirstRead = 1024;
constexpr std::uint64_t kMaxFile = std::uint64_t{1} << 28;

std::size_t ReadAt(files::RandomAccessFile& file, std::uint64_t offset, std::span<char> out) {
  return file.ReadAt(offset, std::as_writable_bytes(out));
}

}  // namespace

void ModuleFile::AddTree(const std::string& folder) {
  if (std::ranges::find(trees_, folder) == trees_.end()) trees_.push_back(folder);
}

void ModuleFile::RefreshHeader() {
  if (header_stamp_ && Stamp() == header_stamp_) return;
  try {
    ReadHeader();
    problem_ = {};
  } catch (const files::Error& error) {
    header_ = ModuleHeader{};
    header_stamp_.reset();
    problem_ = messages::MessageOf(error);
  }
}

void ModuleFile::ReadHeader() {
  const auto file = state_.system.Open(path_, files::OpenMode::kRead);
  const files::FileStamp stamp = file->Stamp();
  std::string text;
  do {
    const std::size_t have = text.size();
    text.resize(have == 0 ? kFirstRead : have * 4);
    text.resize(have + ReadAt(*file, have, std::span(text).subspan(have)));
    header_ = ParseModuleHeader(text, text.size() >= stamp.size || text.size() == have);
  } while (!header_.complete);
  header_stamp_ = stamp;
}

ModuleFile::Version ModuleFile::Read() {
  try {
    const files::FileStamp stamp = state_.system.Stamp(path_).value_or(files::FileStamp{});
    return {files::ReadFile(state_.system, path_, kMaxFile), stamp};
  } catch (const files::Error& error) {
    throw FromFileError(error);
  }
}

bool ModuleFile::Holds(std::string_view bytes) {
  try {
    return files::HoldsBytes(state_.system, path_, bytes);
  } catch (const files::Error& error) {
    throw FromFileError(error);
  }
}

void ModuleFile::CheckWritable() {
  using platform::ErrorKind;
  using platform::kErrModuleNotEditable;
  if (!Stamp()) {
    throw platform::Error(
        ErrorKind::kNotFound, kErrModuleNotEditable,
        Joined({message::kFileMissing, {{"<Path>", path_}}}, message::kRestoreOrCorrectProject));
  }
  if (!IsInsideTrees()) {
    throw platform::Error(
        ErrorKind::kRefused, kErrModuleNotEditable,
        Joined({message::kOutsideProject, {{"<Path>", path_}, {"<Folder>", trees_.front()}}},
               messages::Message(files::message::kAgreeOrMove, {{"<Folder>", TargetFolder()}})));
  }
  if (!state_.system.IsWritable(path_)) {
    throw platform::Error(
        ErrorKind::kIo, kErrModuleNotEditable,
        Joined({message::kReadOnly, {{"<Path>", path_}}}, message::kRemoveProtection));
  }
}

bool ModuleFile::IsInsideTrees() {
  files::FileSystem& system = state_.system;
  try {
    const std::string target = system.Canonical(path_);
    auto holds = [&](const std::string& folder) {
      return system.Exists(folder) && IsInside(system, target, system.Canonical(folder));
    };
    const auto& agreed = state_.options.writable_folders;
    return std::ranges::any_of(trees_, holds) || std::ranges::any_of(agreed, holds);
  } catch (const files::Error& error) {
    throw FromFileError(error);
  }
}

std::string ModuleFile::TargetFolder() {
  try {
    return state_.system.Folder(state_.system.Canonical(path_));
  } catch (const files::Error& error) {
    throw FromFileError(error);
  }
}

}  // namespace vbfiles
