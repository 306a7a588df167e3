// SPDX-License-Identifier: MIT
// A file of unsaved code: a line with the format, one with the module's path, one with the size of
// the base in bytes, then base and text.
#include "studio/unsaved_code.h"

#include <charconv>
#include <string_view>

#include "files/replace_file.h"

namespace studio {

namespace {

constexpr std::string_view kFormat = "unsaved code 1";
constexpr std::string_view kCopy = ".code", kLock = ".lock";
constexpr int kMaxWindows = 100;

std::string Encoded(const UnsavedCode& code) {
  std::string bytes(kFormat);
  bytes += '\n' + code.module + '\n' + std::to_string(code.base.size()) + '\n';
  return bytes + code.base + code.text;
}

std::optional<std::string_view> TakeLine(std::string_view& bytes) {
  const std::size_t end = bytes.find('\n');
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view line = bytes.substr(0, end);
  bytes.remove_prefix(end + 1);
  return line;
}

std::optional<UnsavedCode> Decoded(std::string_view bytes) {
  if (TakeLine(bytes) != kFormat) return std::nullopt;
  const auto module = TakeLine(bytes), size = TakeLine(bytes);
  std::size_t base = 0;
  if (!size || std::from_chars(size->data(), size->data() + size->size(), base).ec != std::errc() ||
      base > bytes.size())
    return std::nullopt;
  return UnsavedCode{std::string(*module), std::string(bytes.substr(0, base)),
                     std::string(bytes.substr(base))};
}

// The lock of a file, null while another window holds it.
std::unique_ptr<files::RandomAccessFile> Lock(files::FileSystem& system, const std::string& path) {
  auto lock = system.Open(path + std::string(kLock), files::OpenMode::kCreateOrOpen);
  return lock->TryLock(0, 1, files::LockMode::kExclusive) ? std::move(lock) : nullptr;
}

}  // namespace

// Where nothing can be locked the last name has to do.
void UnsavedCopies::TakeName() {
  system_.CreateDirectories(folder_);
  for (int i = 0; i < kMaxWindows && !lock_; ++i) {
    path_ = system_.Join(folder_, std::to_string(i));
    if (!system_.Exists(path_ + std::string(kCopy))) lock_ = Lock(system_, path_);
  }
}

void UnsavedCopies::Keep(const UnsavedCode& code) {
  if (path_.empty()) TakeName();
  files::ReplaceFile(system_, path_ + std::string(kCopy), Encoded(code), code.module);
}

void UnsavedCopies::Drop() {
  if (path_.empty()) return;
  const std::string copy = path_ + std::string(kCopy);
  if (system_.Exists(copy)) system_.Remove(copy);
}

std::optional<UnsavedCode> UnsavedCopies::FindLeft() {
  if (!system_.IsDirectory(folder_)) return std::nullopt;
  for (const files::DirectoryEntry& entry : system_.List(folder_)) {
    if (!std::string_view(entry.name).ends_with(kCopy)) continue;
    const std::string copy = system_.Join(folder_, entry.name);
    left_ = copy.substr(0, copy.size() - kCopy.size());
    if (left_ == path_) continue;
    left_lock_ = Lock(system_, left_);
    if (!left_lock_) continue;
    if (auto code = Decoded(files::ReadFile(system_, copy))) return code;
  }
  left_.clear();
  left_lock_.reset();
  return std::nullopt;
}

void UnsavedCopies::RemoveLeft() {
  if (left_.empty()) return;
  system_.Remove(left_ + std::string(kCopy));
  left_.clear();
  left_lock_.reset();
}

}  // namespace studio
