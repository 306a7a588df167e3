// SPDX-License-Identifier: MIT
// One index page from the input; the bytes behind it are an entry to look for and insert.
#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "jet/index_page.h"
#include "jet/index_page_edit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::array<std::byte, jet::kPageSize> page = {};
  const auto* bytes = reinterpret_cast<const std::byte*>(data);
  const std::size_t head = std::min(size, page.size());
  std::copy(bytes, bytes + head, page.begin());
  if (jet::IndexPage::Fault(page.data()) != nullptr) return 0;

  const jet::ByteView target(bytes + head, std::min<std::size_t>(size - head, 300));
  const jet::IndexPage view(page.data());
  std::vector<std::byte> entry;
  for (std::size_t at = 0; at < view.Used(); at = view.After(at)) {
    view.Read(at, entry);
    if (view.Size(at) >= jet::kRowReferenceSize) (void)view.Row(at);
    (void)view.Child(at);
  }
  (void)view.Find(target, jet::Bound::kPast);
  const std::size_t position = view.Find(target, jet::Bound::kFirst);
  if (!target.empty()) (void)jet::InsertEntry(page.data(), position, target);
  // Not all: a page of thousands of long entries would take a second.
  for (int i = 0; i < 64 && view.Used() > 0; ++i) {
    if (jet::IndexPage::Fault(page.data()) != nullptr) break;
    jet::EraseEntry(page.data(), 0);
  }
  return 0;
}
