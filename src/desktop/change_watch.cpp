// SPDX-License-Identifier: MIT
#include "desktop/change_watch.h"

#include <wx/utils.h>

#include <algorithm>
#include <utility>

#include "check/project_parts.h"
#include "messages/text_number.h"
#include "studio/window_texts.h"
#include "vbfiles/vb_project.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr messages::TextNumber kRefreshView{162};
constexpr messages::TextNumber kTextOutOfStep{4850};
constexpr messages::TextNumber kTextMoreFiles{4851};
constexpr messages::TextNumber kTextCheckNow{4852};

constexpr std::size_t kNamedFiles = 3;

// All that an operation reads or writes, and the files of the Visual Basic projects.
std::vector<std::string> FilesOf(project::Project& opened) {
  std::vector<std::string> files = {opened.path()};
  if (!opened.vb()) return files;
  for (const auto& project : opened.vb()->Projects()) {
    files.push_back(project->FileName());
    for (const auto& component : project->Components()) files.push_back(component->FileName());
  }
  return files;
}

}  // namespace

ChangeWatch::ChangeWatch(Dependencies own)
    : own_(std::move(own)),
      seen_(parts_.files,
            parts_.files.Join(parts_.state.FolderOf("seen", own_.opened.path()), "files.txt"),
            [this] { return FilesOf(own_.opened); }) {
  own_.opened.unit().Enlist(seen_);
}

ChangeWatch::~ChangeWatch() try {
  if (!parts_.state.folder().empty()) seen_.Keep();
} catch (const files::Error&) {
  // The next start looks at more than it need.
}

void ChangeWatch::ShowProblems() {
  std::string problems;
  for (const messages::Message& problem : own_.opened.vb()->Problems())
    problems += (problems.empty() ? "" : "\n") + parts_.texts.Sentence(problem);
  if (problems.empty()) return;
  own_.messages.Warn(parts_.texts.Text(studio::kTextIncomplete, {{"<File>", own_.opened.path()}}),
                     problems);
}

void ChangeWatch::Look() {
  own_.opened.items().Refresh();
  LookForForeignChanges();
  LookForFindings();
  ShowReplacedCharacters();
  if (editor::frmtabgrid* editor = own_.session.add_in().EditorWindow()) editor->ShowUnreadable();
}

// What the tree shows may be out of date then. Everything that the user does works on what the
// database holds, so reading it anew can wait until they want it.
void ChangeWatch::LookForForeignChanges() {
  const auto kind = NoticeBar::Kind::kForeignChange;
  if (own_.notices.Tells(kind) || !own_.opened.foreign_changes().Look()) return;
  own_.opened.foreign_changes().Accept();
  own_.notices.Tell(kind,
                    {parts_.texts.Text(studio::kTextFileChanged,
                                       {{"<File>", parts_.files.FileName(own_.opened.path())}}),
                     parts_.Text(kRefreshView), [this] { own_.session.add_in().RebuildViews(); }});
}

void ChangeWatch::LookForFindings() {
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  if (!editor) return;
  const auto news = seen_.TakeNews();
  if (!news) return;
  const std::vector<std::string>& changed = *news;
  if (changed.empty()) return own_.notices.Dismiss(NoticeBar::Kind::kOutOfStep);
  // A class whose file came or went concerns rows of formulas.
  check::Changed part{false, {changed.begin(), changed.end()}};
  const auto concerns_rows = [&](const std::string& file) {
    return file == own_.opened.path() || !parts_.files.Exists(file);
  };
  part.rows = std::ranges::any_of(changed, concerns_rows);
  check::Options options;
  options.least = check::Severity::kWarning;
  try {
    const wxBusyCursor busy;
    TellFindings(changed, check::FindQuickly(check::PartsOf(own_.opened, editor->operations(),
                                                            editor->cVBF.context()),
                                             part, options));
  } catch (const std::exception&) {
    // What cannot be read now is looked at again when it changes, or at the next start.
  }
}

void ChangeWatch::TellFindings(const std::vector<std::string>& changed,
                               const std::vector<check::Finding>& findings) {
  const auto kind = NoticeBar::Kind::kOutOfStep;
  if (findings.empty()) return OnChecked();
  std::string names;
  const std::size_t named = std::min(kNamedFiles, changed.size());
  for (std::size_t i = 0; i < named; ++i) {
    names += (i > 0 ? ", " : "") + parts_.files.FileName(changed[i]);
  }
  if (named < changed.size()) {
    names +=
        parts_.texts.Text(kTextMoreFiles, {{"<Count>", std::to_string(changed.size() - named)}});
  }
  const auto errors = std::ranges::count(findings, check::Severity::kError,
                                         [](const auto& each) { return each.rule->severity; });
  own_.notices.Tell(
      kind,
      {parts_.texts.Text(
           kTextOutOfStep,
           {{"<Files>", names},
            {"<Errors>", std::to_string(errors)},
            {"<Warnings>", std::to_string(static_cast<std::ptrdiff_t>(findings.size()) - errors)}}),
       parts_.Text(kTextCheckNow), own_.check});
}

void ChangeWatch::OnChecked() {
  seen_.Accept();
  own_.notices.Dismiss(NoticeBar::Kind::kOutOfStep);
}

void ChangeWatch::ShowLimits(std::function<void()> open_again, std::function<void()> choose_code) {
  const std::string reason = parts_.texts.Sentence(own_.opened.ReadOnlyReason());
  if (!reason.empty()) {
    own_.notices.Tell(NoticeBar::Kind::kReadOnly,
                      {parts_.texts.Text(studio::kTextReadOnly, {{"<Text>", reason}}),
                       parts_.Text(studio::kTextOpenAgain), std::move(open_again)});
  }
  if (!own_.opened.vb()->VBProjects().empty()) return;
  own_.notices.Tell(NoticeBar::Kind::kNoCode,
                    {parts_.Text(studio::kTextNoCode), parts_.Text(studio::kTextChooseCode),
                     std::move(choose_code)});
}

// Characters that an operation could not write in a comment.
void ChangeWatch::ShowReplacedCharacters() {
  std::string places;
  for (const auto& replaced : own_.opened.vb()->TakeReplacedCharacters()) {
    places += (places.empty() ? "" : "\n") +
              parts_.texts.Text(studio::kTextReplacedAt, {{"<File>", replaced.file},
                                                          {"<Line>", std::to_string(replaced.line)},
                                                          {"<Text>", replaced.characters}});
  }
  if (places.empty()) return;
  own_.messages.Warn(parts_.Text(studio::kTextReplacedCharacters),
                     places + "\n" + parts_.Text(studio::kTextNameCodePage));
}

}  // namespace desktop
