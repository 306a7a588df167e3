// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "history/record.h"
#include "jet/row_log.h"

namespace history {

// The rows that a transaction changed, each once: as it found them, and as it leaves them. Those
// that are as they were do not count. Rows are read when they are asked for; a change of 100,000
// is never held as a whole. Only while the transaction is open. Raises jet::Error.
class RowChanges final : public RowSource {
 public:
  explicit RowChanges(const jet::RowLog& log);

  std::size_t size() const override { return rows_.size(); }
  void ForEach(const Visitor& visit) const override;

 private:
  // Numbers of entries of the log.
  struct Ends {
    std::int32_t id = 0;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
  };
  void FindRows();
  ChangedRow RowOf(const Ends& row) const;

  const jet::RowLog& log_;
  std::vector<Ends> rows_;
};

}  // namespace history
