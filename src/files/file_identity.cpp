// SPDX-License-Identifier: MIT
#include "files/file_identity.h"

#include <algorithm>

namespace files {
namespace {

char Fold(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool DiffersInCaseOnly(const std::string& one, const std::string& other) {
  return std::ranges::equal(one, other, {}, Fold, Fold);
}

}  // namespace

std::string FollowLink(FileSystem& system, const std::string& path) {
  if (!system.IsLink(path)) return path;
  if (system.Exists(path)) return system.Canonical(path);
  Raise(ErrorKind::kInTheWay, path, message::kCannotBeUsed, message::kLinkLeadsNowhere);
}

std::string ResolveTarget(FileSystem& system, const std::string& path) {
  const std::string target = FollowLink(system, path);
  if (system.Exists(target)) return system.Canonical(target);
  const std::string folder = system.Folder(target);
  return system.Join(system.Canonical(folder.empty() ? "." : folder), system.FileName(target));
}

bool IsSamePath(FileSystem& system, const std::string& one, const std::string& other) {
  if (one == other) return true;
  if (!DiffersInCaseOnly(one, other)) return false;
  const std::optional<FileStamp> first = system.Stamp(one);
  const std::optional<FileStamp> second = system.Stamp(other);
  return first && second && first->identity == second->identity;
}

void CheckOneName(FileSystem& system, const std::string& path, const Failure& failure) {
  if (system.NameCount(path) <= 1) return;
  Raise(ErrorKind::kManyNames, path, failure, message::kHasSeveralNames);
}

}  // namespace files
