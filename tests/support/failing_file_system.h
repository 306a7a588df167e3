// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/support/forwarding_file_system.h"

namespace files {

// Operations that can be made to fail.
enum class Operation {
  kOpen,
  kRead,
  kWrite,
  kTruncate,
  kSync,
  kLock,
  kList,
  kRename,
  kRemove,
  kCreateDirectories,
  kSyncDirectory,
  kCopyAttributes,
};

// Which operation fails, and how.
struct Fault {
  enum class Length {
    kOnce,     // only the n-th; all later ones succeed
    kLasting,  // the n-th and all later ones of the kinds
    kCrash,    // the n-th and from then on everything, as if the program had been killed there
  };

  std::set<Operation> kinds;  // counted; empty: all kinds
  int n = 1;                  // the n-th counted operation is the first to fail
  Length length = Length::kOnce;
  ErrorKind error = ErrorKind::kIo;
  // A write that fails has written about the first half: any bytes of it when the program goes
  // on and can see to that, whole sectors when it cannot.
  bool short_writes = false;
};

// Forwards to another file system until an armed fault fires. Files that it opened fail too.
class FailingFileSystem final : public ForwardingFileSystem {
 public:
  explicit FailingFileSystem(FileSystem& inner);
  ~FailingFileSystem() override;

  // Starts counting at zero.
  void Arm(const Fault& fault);
  void Disarm();
  bool fired() const;
  // Operations of the fault's kinds since Arm, and bytes written.
  int count() const;
  std::uint64_t bytes_written() const;

  std::unique_ptr<RandomAccessFile> OpenLike(const std::string& path, OpenMode mode,
                                             const std::string& like) override;
  std::vector<DirectoryEntry> List(const std::string& folder) override;
  void Rename(const std::string& from, const std::string& to) override;
  void RenameNew(const std::string& from, const std::string& to) override;
  bool Exchange(const std::string& one, const std::string& other) override;
  void Remove(const std::string& path) override;
  void CreateDirectories(const std::string& folder) override;
  void SyncDirectory(const std::string& folder) override;
  void CopyAttributes(const std::string& from, const std::string& to) override;

 private:
  struct Counter;
  class OpenFile;

  std::shared_ptr<Counter> counter_;
};

}  // namespace files
