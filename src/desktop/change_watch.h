// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "desktop/notice_bar.h"
#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "project/project.h"
#include "studio/add_in_session.h"

namespace desktop {

// What happens to an open project beside the user's own commands, and what of it they are told.
class ChangeWatch {
 public:
  // All of it outlives this object.
  ChangeWatch(const WindowParts& parts, const WindowMessages& messages, project::Project& opened,
              studio::AddInSession& session, NoticeBar& notices)
      : parts_(parts),
        messages_(messages),
        project_(opened),
        session_(session),
        notices_(notices) {}

  // What of the Visual Basic projects cannot be read.
  void ShowProblems();
  // What cannot be done as the project stands: nothing can be changed, or there is no code.
  // `open_again` opens it once more, `choose_code` with other Visual Basic files.
  void ShowLimits(std::function<void()> open_again, std::function<void()> choose_code);
  // Called now and then while no operation runs.
  void Look();

 private:
  void LookForForeignChanges();
  void ShowReplacedCharacters();

  const WindowParts& parts_;
  const WindowMessages& messages_;
  project::Project& project_;
  studio::AddInSession& session_;
  NoticeBar& notices_;
};

}  // namespace desktop
