// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "files/hash.h"

namespace files {

// All bytes of a file, or that there is no file. Copies share the bytes, which never change.
class Contents {
 public:
  Contents() = default;
  Contents(std::nullopt_t) {}  // NOLINT(google-explicit-constructor): stands for "no file"
  Contents(std::string bytes)  // NOLINT(google-explicit-constructor): they are the bytes
      : shared_(std::make_shared<Shared>(Shared{std::move(bytes), {}})) {}
  Contents(const char* text)
      : Contents(std::string(text)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return shared_ != nullptr; }
  bool has_value() const { return shared_ != nullptr; }
  // REQUIRES: has_value().
  const std::string& operator*() const { return shared_->bytes; }
  const std::string* operator->() const { return &shared_->bytes; }

  // Hash64 of the bytes, made once. Not for several threads at once. REQUIRES: has_value().
  std::uint64_t Hash() const {
    if (!shared_->hash) shared_->hash = Hash64(std::as_bytes(std::span(shared_->bytes)));
    return *shared_->hash;
  }

  // Gives up the bytes, for their room; "" when others share them. There is no file afterwards.
  std::string Release() {
    const std::shared_ptr<Shared> shared = std::move(shared_);
    return shared && shared.use_count() == 1 ? std::move(shared->bytes) : std::string();
  }

  friend bool operator==(const Contents& a, const Contents& b) {
    return a.shared_ == b.shared_ ||
           (a.shared_ && b.shared_ && a.shared_->bytes == b.shared_->bytes);
  }

 private:
  struct Shared {
    std::string bytes;
    std::optional<std::uint64_t> hash;
  };
  std::shared_ptr<Shared> shared_;
};

}  // namespace files
