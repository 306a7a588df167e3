// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "jet/index_page.h"

namespace jet {

// The complete entries of a page, for what cannot be done in place: another prefix, a split.
class IndexEntries {
 public:
  // How a run of entries is stored.
  struct Form {
    std::size_t prefix = 0;
    std::size_t size = 0;
  };

  explicit IndexEntries(IndexPage page);

  std::size_t size() const { return ends_.size(); }
  ByteView operator[](std::size_t i) const {
    return {bytes_.data() + Begin(i), ends_[i] - Begin(i)};
  }
  // The number of entries before the position of the page that was read.
  std::size_t IndexOf(IndexPage page, std::size_t position) const;

  void Insert(std::size_t i, ByteView entry);
  void Erase(std::size_t i);

  // The form of the entries [from, to): without prefix if they fit so into `capacity` bytes.
  Form FormOf(std::size_t from, std::size_t to, std::size_t capacity) const;
  // Stores the entries [from, to) on a page, whose head stays. REQUIRES: form.size is not above
  // kIndexCapacity.
  void Store(std::size_t from, std::size_t to, Form form, std::byte* page) const;

 private:
  std::size_t Begin(std::size_t i) const { return i == 0 ? 0 : ends_[i - 1]; }
  std::size_t SharedPrefix(std::size_t from, std::size_t to) const;

  std::vector<std::byte> bytes_;
  std::vector<std::size_t> ends_;
};

}  // namespace jet
