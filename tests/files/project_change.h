// SPDX-License-Identifier: MIT
// A change of a database and three other files, the states before and after it, and the means to
// say which of them a file system is in.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "files/change_journal.h"
#include "files/memory_file_system.h"
#include "tests/support/any_file.h"

namespace files {

using Snapshot = std::map<std::string, std::string>;

inline constexpr std::size_t kPage = 4096;

inline std::span<const std::byte> Bytes(const std::string& text) {
  return std::as_bytes(std::span(text));
}

// Calls; returns the kind of the error raised, if any.
inline std::optional<ErrorKind> KindRaised(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.kind();
  }
  return std::nullopt;
}

// New bytes for places of an open file.
class TextRanges final : public RangeSource {
 public:
  TextRanges(RandomAccessFile& file, std::map<std::uint64_t, std::string> after,
             std::uint64_t size_after)
      : file_(file), after_(std::move(after)), size_(file.Size()), size_after_(size_after) {
    for (const auto& [offset, text] : after_) {
      std::string now(text.size(), '\0');
      now.resize(file.ReadAt(offset, std::as_writable_bytes(std::span(now))));
      before_[offset] = std::move(now);
    }
  }

  RandomAccessFile& File() override { return file_; }
  std::uint64_t SizeBefore() override { return size_; }
  std::uint64_t SizeAfter() override { return size_after_; }
  void ForEachRange(const std::function<void(const Range&)>& visit) override {
    for (const auto& [offset, text] : after_) {
      visit({offset, Bytes(before_.at(offset)), Bytes(text)});
    }
  }

 private:
  RandomAccessFile& file_;
  std::map<std::uint64_t, std::string> after_;
  std::map<std::uint64_t, std::string> before_;
  std::uint64_t size_;
  std::uint64_t size_after_;
};

// Commits new bytes for places of an open file, and other files with it.
inline void Commit(ChangeJournal& journal, RandomAccessFile& file,
                   const std::map<std::uint64_t, std::string>& after, std::uint64_t size_after,
                   std::vector<FileChange> others = {}) {
  TextRanges ranges(file, after, size_after);
  ChangeSet changes;
  changes.ranges.push_back(&ranges);
  changes.files = std::move(others);
  journal.Commit(changes);
}

// Copies all files with the times of their last changes.
inline void Copy(MemoryFileSystem& from, MemoryFileSystem& to) {
  for (const auto& [path, contents] : from.Snapshot()) {
    to.Put(path, contents);
    to.SetModified(path, from.Stamp(path)->modified_ns);
  }
}

class ProjectChange {
 public:
  static constexpr const char* kDatabase = "/p/plant.ovs";

  enum class Class { kSmall, kLarge };

  // Of a large class the journal holds only what changes.
  explicit ProjectChange(Class size = Class::kSmall) {
    std::string database(3 * kPage, 'd');
    before_[kDatabase] = database;
    pages_[0] = database.substr(0, kPage)
                    .replace(700, 20, "changed in two      ")
                    .replace(3000, 9, "places   ");
    pages_[2 * kPage] = std::string(kPage, 'n');
    pages_[3 * kPage] = std::string(kPage, 'g');  // the file grows
    for (const auto& [offset, text] : pages_) database.replace(offset, kPage, text);
    after_[kDatabase] = database;

    before_["/p/CPump.cls"] = "Public Sub Old()\r\nEnd Sub\r\n";
    after_["/p/CPump.cls"] = "Public Sub New_()\r\nEnd Sub\r\n";
    if (size == Class::kLarge) {
      const auto end = [this](const Snapshot& files) { return files.at("/p/CPump.cls").size(); };
      kept_ = {{end(before_), end(after_), 70'000}};
      std::string code;
      while (code.size() < 70'000) code += "' line " + std::to_string(code.size()) + "\r\n";
      code.resize(70'000);
      before_["/p/CPump.cls"] += code + "' the end\r\n";
      after_["/p/CPump.cls"] += code;
    }
    before_["/p/sub/CGone.cls"] = std::string(2000, 'r');
    after_["/p/sub/CNew.cls"] = "created";
    before_["/p/other.txt"] = after_["/p/other.txt"] = "not concerned";
  }

  const Snapshot& before() const { return before_; }
  const Snapshot& after() const { return after_; }

  template <typename System>
  void Put(System& system) const {
    for (const auto& [path, contents] : before_) system.Put(path, contents);
  }

  void Commit(FileSystem& system) const {
    const auto file = system.Open(kDatabase, OpenMode::kReadWrite);
    ChangeJournal journal(system, kDatabase, kAnyFile);
    Commit(*file, journal);
  }

  void Commit(RandomAccessFile& file, ChangeJournal& journal) const {
    std::vector<FileChange> others;
    for (const char* path : {"/p/CPump.cls", "/p/sub/CGone.cls", "/p/sub/CNew.cls"}) {
      others.push_back({path, Find(before_, path), Find(after_, path)});
    }
    others[0].kept = kept_;
    files::Commit(journal, file, pages_, after_.at(kDatabase).size(), std::move(others));
  }

  bool IsBefore(const MemoryFileSystem& system) const { return system.Snapshot() == before_; }
  bool IsAfter(const MemoryFileSystem& system) const { return system.Snapshot() == after_; }

  // Names the files that are in neither state.
  std::string Difference(const MemoryFileSystem& system) const {
    std::string text;
    const Snapshot now = system.Snapshot();
    for (const auto& [path, contents] : now) {
      const bool old = Find(before_, path) == contents;
      const bool fresh = Find(after_, path) == contents;
      text += path +
              (old && fresh ? " same"
               : old        ? " before"
               : fresh      ? " after"
                            : " neither") +
              "; ";
    }
    return text;
  }

 private:
  static Contents Find(const Snapshot& files, const std::string& path) {
    const auto it = files.find(path);
    return it == files.end() ? Contents() : Contents(it->second);
  }

  std::vector<KeptRange> kept_;
  Snapshot before_;
  Snapshot after_;
  std::map<std::uint64_t, std::string> pages_;
};

}  // namespace files
