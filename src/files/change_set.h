// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "files/contents.h"
#include "files/random_access_file.h"

namespace files {

// New bytes for ranges of one open file. The ranges are delivered one at a time, so that a change
// of any size needs bounded memory.
class RangeSource {
 public:
  struct Range {
    std::uint64_t offset = 0;
    std::span<const std::byte> before;  // bytes of the file now; shorter at the end of the file
    std::span<const std::byte> after;   // ends at the latest at SizeAfter
  };

  virtual ~RangeSource() = default;
  virtual RandomAccessFile& File() = 0;  // open for writing
  virtual std::uint64_t SizeBefore() = 0;
  // A file that grows behind the last range is filled with zeros; one that shrinks is cut.
  virtual std::uint64_t SizeAfter() = 0;
  // Calls `visit` with every range in rising order of offset, without overlap; the same ranges
  // at every call. Called twice by a commit; the bytes are asked for before the file is written.
  virtual void ForEachRange(const std::function<void(const Range&)>& visit) = 0;
};

// Bytes that a file's contents before and after a change have in common.
struct KeptRange {
  std::uint64_t before = 0;  // offset in the contents before
  std::uint64_t after = 0;   // offset in the contents after
  std::uint64_t length = 0;
};

// A whole file that is written, replaced or removed. Links are resolved, not replaced; an
// existing file keeps its permissions, owner and extended attributes.
struct FileChange {
  std::string path;
  Contents before;  // expected now; nothing: must not exist
  Contents after;   // nothing: the file is removed
  // Large parts that stay, in the order of both contents, as far as known. They are compared; those
  // that hold spare the journal a copy.
  std::vector<KeptRange> kept = {};
};

// Bytes behind the end of the file beside the database that only grows (carried_append.h). They
// follow a change that is made: that they cannot be written is told and changes nothing else.
struct FileAppend {
  using Sink = std::function<void(std::string_view)>;
  // The size of the file; 0: there is none. Asked once, before the bytes are, when the file has all
  // that earlier commits appended: what it ends with decides about them.
  std::function<std::uint64_t()> offset;
  // Hands the bytes to the sink, in pieces of any size. Called once, before a file is changed; that
  // it raises something is a failure, too.
  std::function<void(const Sink&)> write;
  std::function<void(const std::exception&)> on_failure;
};

// All that one commit changes.
struct ChangeSet {
  std::vector<RangeSource*> ranges;  // not owned; alive until the commit returned
  std::vector<FileChange> files;
  std::optional<FileAppend> append = {};
  bool empty() const { return ranges.empty() && files.empty(); }
};

}  // namespace files
