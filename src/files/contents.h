// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace files {

// All bytes of a file, or that there is no file. Copies share the bytes, which never change.
class Contents {
 public:
  Contents() = default;
  Contents(std::nullopt_t) {}  // NOLINT(google-explicit-constructor): stands for "no file"
  Contents(std::string bytes)  // NOLINT(google-explicit-constructor): they are the bytes
      : bytes_(std::make_shared<const std::string>(std::move(bytes))) {}
  Contents(const char* text)
      : Contents(std::string(text)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return bytes_ != nullptr; }
  bool has_value() const { return bytes_ != nullptr; }
  // REQUIRES: has_value().
  const std::string& operator*() const { return *bytes_; }
  const std::string* operator->() const { return bytes_.get(); }

  friend bool operator==(const Contents& a, const Contents& b) {
    return a.bytes_ == b.bytes_ || (a.bytes_ && b.bytes_ && *a.bytes_ == *b.bytes_);
  }

 private:
  std::shared_ptr<const std::string> bytes_;
};

}  // namespace files
