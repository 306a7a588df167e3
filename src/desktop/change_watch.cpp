// SPDX-License-Identifier: MIT
#include "desktop/change_watch.h"

#include <string>
#include <utility>

#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

using studio::TextNumber;

namespace {

constexpr std::int32_t kRefreshView = 162;

}  // namespace

void ChangeWatch::ShowProblems() {
  std::string problems;
  for (const messages::Message& problem : project_.vb()->Problems())
    problems += (problems.empty() ? "" : "\n") + parts_.texts.Sentence(problem);
  if (problems.empty()) return;
  messages_.Warn(parts_.texts.Text(TextNumber::kTextIncomplete, {{"<File>", project_.path()}}),
                 problems);
}

void ChangeWatch::Look() {
  project_.items().Refresh();
  LookForForeignChanges();
  ShowReplacedCharacters();
  if (editor::frmtabgrid* editor = session_.add_in().EditorWindow()) editor->ShowUnreadable();
}

// What the tree shows may be out of date then. Everything that the user does works on what the
// database holds, so reading it anew can wait until they want it.
void ChangeWatch::LookForForeignChanges() {
  const auto kind = NoticeBar::Kind::kForeignChange;
  if (notices_.Tells(kind) || !project_.foreign_changes().Look()) return;
  project_.foreign_changes().Accept();
  notices_.Tell(kind, {parts_.texts.Text(TextNumber::kTextFileChanged,
                                         {{"<File>", parts_.files.FileName(project_.path())}}),
                       parts_.Text(kRefreshView), [this] { session_.add_in().RebuildViews(); }});
}

void ChangeWatch::ShowLimits(std::function<void()> open_again, std::function<void()> choose_code) {
  const std::string reason = parts_.texts.Sentence(project_.ReadOnlyReason());
  if (!reason.empty()) {
    notices_.Tell(NoticeBar::Kind::kReadOnly,
                  {parts_.texts.Text(TextNumber::kTextReadOnly, {{"<Text>", reason}}),
                   parts_.Text(TextNumber::kTextOpenAgain), std::move(open_again)});
  }
  if (!project_.vb()->VBProjects().empty()) return;
  notices_.Tell(NoticeBar::Kind::kNoCode,
                {parts_.Text(TextNumber::kTextNoCode), parts_.Text(TextNumber::kTextChooseCode),
                 std::move(choose_code)});
}

// Characters that an operation could not write in a comment.
void ChangeWatch::ShowReplacedCharacters() {
  std::string places;
  for (const auto& replaced : project_.vb()->TakeReplacedCharacters()) {
    places +=
        (places.empty() ? "" : "\n") +
        parts_.texts.Text(TextNumber::kTextReplacedAt, {{"<File>", replaced.file},
                                                        {"<Line>", std::to_string(replaced.line)},
                                                        {"<Text>", replaced.characters}});
  }
  if (places.empty()) return;
  messages_.Warn(parts_.Text(TextNumber::kTextReplacedCharacters),
                 places + "\n" + parts_.Text(TextNumber::kTextNameCodePage));
}

}  // namespace desktop
