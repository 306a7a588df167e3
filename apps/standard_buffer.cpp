// SPDX-License-Identifier: MIT
#include "apps/standard_buffer.h"

namespace apps {

StandardBuffer::int_type StandardBuffer::underflow() {
  const std::size_t count = Read(stream_, block_.data(), block_.size(), failure_);
  setg(block_.data(), block_.data(), block_.data() + count);
  return count == 0 ? traits_type::eof() : traits_type::to_int_type(block_.front());
}

StandardBuffer::int_type StandardBuffer::overflow(int_type c) {
  if (!Flush()) return traits_type::eof();
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  return sputc(traits_type::to_char_type(c));
}

bool StandardBuffer::Flush() {
  if (!failure_) Write(stream_, pbase(), static_cast<std::size_t>(pptr() - pbase()), failure_);
  setp(block_.data(), block_.data() + block_.size());
  return !failure_;
}

}  // namespace apps
