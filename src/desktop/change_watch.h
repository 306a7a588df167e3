// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "check/finding.h"
#include "desktop/notice_bar.h"
#include "desktop/project_context.h"
#include "project/seen_files.h"

namespace desktop {

// What happens to a project beside the user's own commands, also while it was not open, and what of
// it they are told.
class ChangeWatch {
 public:
  struct Dependencies : ProjectContext {
    NoticeBar& notices;
    std::function<void()> check;  // the whole project, with its findings shown
  };

  // Takes part in the project's unit of work: the project goes before this object.
  explicit ChangeWatch(Dependencies own);
  // Keeps what is known of the files.
  ~ChangeWatch();
  ChangeWatch(const ChangeWatch&) = delete;
  ChangeWatch& operator=(const ChangeWatch&) = delete;

  // What of the Visual Basic projects cannot be read.
  void ShowProblems();
  // What cannot be done as the project stands: nothing can be changed, or there is no code.
  // `open_again` opens it once more, `choose_code` with other Visual Basic files.
  void ShowLimits(std::function<void()> open_again, std::function<void()> choose_code);
  // Called now and then while no operation runs.
  void Look();
  // The user has seen what is wrong in the project as it stands.
  void OnChecked();

 private:
  void LookForForeignChanges();
  // Checks the quick part of what other programs changed.
  void LookForFindings();
  void TellFindings(const std::vector<std::string>& changed,
                    const std::vector<check::Finding>& findings);
  void ShowReplacedCharacters();

  const Dependencies own_;
  const WindowParts& parts_ = own_.parts;
  project::SeenFiles seen_;
};

}  // namespace desktop
