// SPDX-License-Identifier: MIT
// ovformula history, undo, redo.
#include <charconv>
#include <limits>

#include "cli/commands.h"
#include "cli/history_text.h"
#include "cli/opened_project.h"
#include "history/entries.h"
#include "history/messages.h"
#include "history/undo.h"
#include "project/change_text.h"
#include "project/unified_diff.h"

namespace cli {

namespace {

using Use = OpenedProject::Use;

void WarnUnlessWhole(Invocation& invocation, bool whole, const std::string& path) {
  if (whole) return;
  invocation.Warn(invocation.texts().Sentence({history::message::kDamaged, {{"<Path>", path}}}));
}

int RunHistory(Invocation& invocation) {
  OpenedProject session(invocation, Use::kRows);
  const auto limit = invocation.NumberOption("--limit");
  if (limit && *limit < 0) {
    throw UsageError(invocation.Text(
        kTextBadNumber, {{"<Word>", std::to_string(*limit)}, {"<Option>", "--limit"}}));
  }
  history::HistoryFile& file = session.project().history().file();
  const history::Entries found = history::NewestEntries(
      file, limit ? static_cast<std::size_t>(*limit) : std::numeric_limits<std::size_t>::max());
  const bool json = invocation.ListFormat() == RowFormat::kJson;
  std::vector<std::string> columns = {"Number", "Time", "Who", "Title"};
  if (json) columns = {"Number", "Time", "Who", "Program", "Title", "Undone"};
  RowWriter writer(invocation.console().out, invocation.ListFormat(), columns);
  for (const history::Entry& entry : found.entries) {
    const history::Record& record = entry.record;
    const auto number = static_cast<std::int64_t>(record.number);
    const std::string time = project::TimeText(record.time);
    const std::string title = invocation.texts().Sentence(record.title);
    if (json) {
      writer.Write({number, time, record.who, record.program, title, entry.undone});
    } else {
      writer.Write({number, time, record.who, title});
    }
  }
  writer.Finish();
  WarnUnlessWhole(invocation, found.whole, file.path());
  return kDone;
}

std::uint64_t NumberArgument(Invocation& invocation) {
  const std::string word = invocation.Argument("N");
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error == std::errc() && end == word.data() + word.size()) return number;
  throw UsageError(invocation.Text(kTextBadNumber, {{"<Word>", word}, {"<Option>", "N"}}));
}

int RunShow(Invocation& invocation) {
  const std::uint64_t number = NumberArgument(invocation);
  OpenedProject session(invocation, Use::kCode);
  const auto entry = history::FindEntry(session.project().history().file(), number);
  if (!entry) {
    throw CommandError(kRefused,
                       invocation.Text(kTextNoEntry, {{"<Number>", std::to_string(number)}}));
  }
  const auto to_utf8 = [&](const history::ChangedFile& file, const std::string& bytes) {
    return session.project().vb()->ToUtf8(session.project().history().PathOf(file), bytes);
  };
  std::ostream& out = invocation.console().out;
  const std::string title = invocation.texts().Sentence(entry->record.title);
  if (invocation.ListFormat() == RowFormat::kJson) {
    out << EntryJson(*entry, title, to_utf8) << '\n';
  } else {
    out << project::RowsText(entry->record) << project::DiffText(entry->record, to_utf8);
  }
  return kDone;
}

int RunRevert(Invocation& invocation, bool undo) {
  std::optional<std::uint64_t> number;
  if (invocation.Has("N")) number = NumberArgument(invocation);
  OpenedProject session(invocation, Use::kChange);
  project::Project& project = session.project();
  history::UndoRedo undo_redo = project.MakeUndoRedo();
  const store::OperationOptions options = session.MakeOptions();
  const history::Reverted reverted =
      undo ? undo_redo.Undo(number, options) : undo_redo.Redo(number, options);
  session.Report(reverted.result);
  std::ostream& out = invocation.console().out;
  if (!session.dry_run()) {
    out << reverted.operation.number << '\t'
        << PlainText(invocation.texts().Sentence(reverted.operation.title)) << '\n';
    return kDone;
  }
  for (const files::FileChange& change : reverted.files) {
    const auto text = [&](const files::Contents& bytes) {
      return bytes ? project.vb()->ToUtf8(change.path, *bytes) : std::string();
    };
    out << project::UnifiedDiff(change.path, text(change.before), text(change.after));
  }
  return kDone;
}

int RunUndo(Invocation& invocation) { return RunRevert(invocation, true); }
int RunRedo(Invocation& invocation) { return RunRevert(invocation, false); }

}  // namespace

std::vector<CommandSpec> HistoryCommands() {
  const ArgumentSpec project{"PROJECT.ovs", kTextArgProject};
  return {
      {"history",
       kTextCommandHistory,
       {project},
       {{"--limit", "N", kTextOptLimit}, kJsonOption},
       {"ovformula history Plant.ovs", "ovformula history Plant.ovs --limit 10"},
       RunHistory},
      {"history show",
       kTextCommandHistoryShow,
       {project, {"N", kTextArgNumber}},
       CodeOptions({kJsonOption}),
       {"ovformula history show Plant.ovs 12"},
       RunShow},
      {"undo",
       kTextCommandUndo,
       {project, {"N", kTextArgNumber, false}},
       OpenOptions({{"--dry-run", "", kTextOptDryRun}}),
       {"ovformula undo Plant.ovs", "ovformula undo Plant.ovs 12 --dry-run"},
       RunUndo},
      {"redo",
       kTextCommandRedo,
       {project, {"N", kTextArgNumber, false}},
       OpenOptions({{"--dry-run", "", kTextOptDryRun}}),
       {"ovformula redo Plant.ovs"},
       RunRedo},
  };
}

}  // namespace cli
