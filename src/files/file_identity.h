// SPDX-License-Identifier: MIT
// Which file a path means, decided here for everybody: the journal, the .ldb file and the locks
// of a database, and whatever is written over a file.
#pragma once

#include <functional>
#include <string>

#include "files/file_system.h"

namespace files {

// Which whole files a change may write, and a journal may name, besides its database. Asked with
// absolute paths, links resolved; empty means none.
using Reach = std::function<bool(const std::string& path)>;

// The path, or what it leads to when its last step is a link. What stands beside a file stands
// beside this one. Raises kInTheWay for a link that leads nowhere.
std::string FollowLink(FileSystem& system, const std::string& path);

// The file that `path` names, absolute and with links resolved, so that a link is kept and what
// it points to is changed. The file need not exist, its folder must. Raises as FollowLink.
std::string ResolveTarget(FileSystem& system, const std::string& path);

// Whether both resolved paths are one path. A file system that ignores the case of letters shows
// one file under several spellings.
bool IsSamePath(FileSystem& system, const std::string& one, const std::string& other);

// Raises kManyNames for a file with several names (hard links): they cannot be kept as one file
// when it is replaced, and what stands beside one of them does not stand beside the others.
void CheckOneName(FileSystem& system, const std::string& path, const Failure& failure);

}  // namespace files
