// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <streambuf>
#include <system_error>

#include "apps/process.h"

namespace apps {

// The buffer of a standard stream, read or written. It keeps why that failed.
class StandardBuffer : public std::streambuf {
 public:
  explicit StandardBuffer(StandardStream stream) : stream_(stream) {
    if (stream != kStandardInput) setp(block_.data(), block_.data() + block_.size());
  }
  ~StandardBuffer() override { Flush(); }
  StandardBuffer(const StandardBuffer&) = delete;
  StandardBuffer& operator=(const StandardBuffer&) = delete;

  const std::error_code& failure() const { return failure_; }

 protected:
  int_type underflow() override;
  int_type overflow(int_type c) override;
  int sync() override { return Flush() ? 0 : -1; }

 private:
  bool Flush();

  StandardStream stream_;
  std::array<char, 1 << 16> block_;
  std::error_code failure_;
};

}  // namespace apps
