// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "check/check.h"
#include "check/repair.h"
#include "desktop/check_pane.h"
#include "desktop/code_lookup.h"
#include "desktop/project_context.h"

namespace desktop {

// Checks the open project, shows what is found, goes there and repairs what is selected.
class CheckList {
 public:
  // All of it outlives this object.
  struct Dependencies : ProjectContext {
    CodeLookup& lookup;
    CheckPane& pane;
  };

  explicit CheckList(const Dependencies& own);
  // The pane closes.
  ~CheckList();
  CheckList(const CheckList&) = delete;
  CheckList& operator=(const CheckList&) = delete;

  // Looks at everything and shows what is found; the user may stop it.
  void Check();

  std::function<void()> on_checked;   // what was found is shown
  std::function<void()> on_repaired;  // rows and code are others now

 private:
  void Show(std::vector<check::Finding> findings);
  void ShowSelected();
  void GoTo(const check::Finding& finding);
  void GoToRow(const check::Where& where);
  void Repair();
  // Repairs under the hourglass, and shows how far it is; the user may stop it.
  check::RepairResult Mend(const check::Parts& parts, const std::vector<check::Finding>& findings,
                           store::OperationOptions options);
  // What a repair would change; empty when it is refused or changes nothing, which is told.
  std::string Preview(const check::Parts& parts, const std::vector<check::Finding>& findings);
  // True when it was done; otherwise why not is told.
  bool TellFailure(const store::OperationResult& result);
  // Selected and repairable.
  std::vector<check::Finding> ToRepair() const;
  std::string PlaceOf(const check::Where& where) const;
  std::string Title() const;

  const Dependencies own_;
  std::vector<check::Finding> findings_;  // that the pane shows
};

}  // namespace desktop
