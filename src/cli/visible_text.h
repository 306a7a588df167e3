// SPDX-License-Identifier: MIT
// Text that a terminal shows and does not obey.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace cli {

// The text with its control characters, and those that turn the direction of writing, as "\u001B",
// and bytes that are no UTF-8 as "\x9B". Tabs and line ends stay.
std::string VisibleText(std::string_view text);

// Writes what VisibleText makes of its text to a stream.
class VisibleBuffer : public std::streambuf {
 public:
  explicit VisibleBuffer(std::ostream& target) : target_(target) {}
  ~VisibleBuffer() override;
  VisibleBuffer(const VisibleBuffer&) = delete;
  VisibleBuffer& operator=(const VisibleBuffer&) = delete;

 protected:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;

 private:
  std::ostream& target_;
  std::string held_;  // the beginning of a character
};

}  // namespace cli
