// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "store/operation_result.h"

namespace store {

// The rows that an operation and its parts wrote, in order.
class RowChangeLog {
 public:
  // Empties the log. `kept`: whether rows are to be added to it.
  void Begin(bool kept) {
    changes_.clear();
    kept_ = kept;
  }
  bool kept() const { return kept_; }
  void Add(RowChange change) { changes_.push_back(std::move(change)); }
  std::size_t size() const { return changes_.size(); }
  // Forgets what was added since the log had this size.
  void TakeBack(std::size_t size) { changes_.resize(size); }
  // Each row once, as the first change found it and the last left it; the log is empty then.
  std::vector<RowChange> Take();

 private:
  std::vector<RowChange> changes_;
  bool kept_ = true;
};

}  // namespace store
