// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/row_buffer.h"
#include "jet/table_state.h"
#include "messages/message.h"

namespace jet {

// Reads the rows of a table in stored order. What Scan is made of.
class TableScan {
 public:
  TableScan(TableState& table, std::span<const std::size_t> columns);
  // False at the end. Raises kDamaged for a page or row that cannot be read; a further call goes
  // on behind it.
  bool Next(RowBuffer& row);
  // A sentence when fewer rows were read than a user table's definition counts, else empty. To be
  // asked at the end, when nothing was changed meanwhile.
  messages::Message Shortfall();

 private:
  bool HasSlot() const;
  bool NextPage();

  ReadLock lock_;
  TableState& table_;
  std::vector<std::size_t> columns_;
  PageRef page_;
  PageNumber next_page_ = 0;
  std::size_t slot_ = 0;
  bool ended_ = false;
  std::uint64_t found_ = 0;
};

}  // namespace jet
