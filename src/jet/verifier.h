// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "jet/catalog.h"
#include "jet/database.h"
#include "jet/index_check.h"
#include "jet/index_key.h"
#include "jet/session.h"
#include "jet/table_state.h"
#include "messages/message.h"

namespace jet {

// Walks a database: catalog, definitions, maps, rows, long values and index entries. Nothing that
// the file holds makes it fail; what is wrong becomes a finding.
class Verifier {
 public:
  using Progress = std::function<void(std::uint64_t, std::uint64_t)>;
  Verifier(Session& session, Catalog& catalog, Progress progress);
  VerifyResult Run();

 private:
  struct TableWalk;
  using Use = std::uint32_t;  // position in uses_

  void VerifyTable(const CatalogEntry& entry);
  void ReachMap(RowId record, const messages::Message& user);
  std::vector<PageNumber> Members(RowId record);
  void WalkRows(TableWalk& walk);
  void WalkPage(TableWalk& walk, PageNumber number);
  void VerifyRow(TableWalk& walk, RowId id, const PageRef& page);
  void VerifyLongValues(TableWalk& walk, RowId id, const StoredRow& stored);
  void ReachLongValuePages(TableWalk& walk);
  void ExpectEntries(TableWalk& walk, RowId id, const RowBuffer& row);
  void CheckFreeMap(TableWalk& walk);
  void CheckTargets(TableWalk& walk);
  void CheckCounters(TableWalk& walk);
  void CheckFreePages();
  // The number of a use of pages; uses of the same name are one.
  Use UseOf(const messages::Message& name);
  // Notes that a page is in use; a page must be used once.
  void Reach(PageNumber page, Use use);
  void Report(Place place, const messages::Message& text);
  // Runs a step; what it raises about the file becomes a finding.
  template <class Step>
  bool Try(Step step);

  Session& session_;
  Pager& pager_;
  Catalog& catalog_;
  Progress progress_;
  VerifyResult result_;
  std::string table_;                    // the table that is being walked
  std::vector<messages::Message> uses_;  // what pages are used for
  std::map<std::string, Use> use_numbers_;
  std::vector<Use> use_of_page_;  // 0: not reached
  std::uint64_t reached_ = 0;
  std::set<RowId> map_records_;
  std::set<RowId> long_records_;
};

}  // namespace jet
