// SPDX-License-Identifier: MIT
#include "desktop/history_list.h"

#include <wx/datetime.h>
#include <wx/utils.h>

#include <algorithm>

#include "desktop/pane_texts.h"
#include "files/error.h"
#include "history/history_file.h"
#include "history/messages.h"
#include "project/change_text.h"
#include "studio/undo_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

// On the clock of this computer.
std::string LocalTime(std::int64_t seconds) {
  return wx::FromWx(wxDateTime(static_cast<time_t>(seconds)).Format("%Y-%m-%d %H:%M"));
}

}  // namespace

HistoryList::HistoryList(const ProjectContext& own, ProjectUndo& undo, HistoryPane& pane)
    : own_(own), undo_(undo), pane_(pane) {
  pane_.on_select = [this] { ShowSelected(); };
  pane_.on_revert = [this] { Revert(); };
}

HistoryList::~HistoryList() {
  pane_.Close();
  pane_.ShowOperations({}, 0);
}

void HistoryList::Open() {
  pane_.Open();
  Read();
  pane_.TakeKeyboard();
  if (!own_.opened.history().on())
    return own_.messages.Status(own_.parts.Text(studio::kTextHistoryIsOff));
  if (entries_.empty()) own_.messages.Status(own_.parts.Text(studio::kTextNothingToUndo));
}

void HistoryList::Look() {
  if (pane_.IsShown() && own_.parts.files.Stamp(own_.opened.history().file().path()) != seen_)
    Read();
}

// What was selected stays so; otherwise the newest operation is.
void HistoryList::Read() {
  const wxBusyCursor busy;
  const std::optional<std::size_t> row = pane_.Selected();
  const std::uint64_t number = row && *row < entries_.size() ? entries_[*row].record.number : 0;
  const bool at_top = !row || *row == 0;
  seen_ = own_.parts.files.Stamp(own_.opened.history().file().path());
  history::Entries found;
  try {
    found = history::NewestEntries(own_.opened.history().file(), history::kMostRecords);
  } catch (const files::Error& error) {
    own_.messages.Status(own_.parts.texts.Sentence(error));
  }
  entries_ = std::move(found.entries);
  std::vector<PlaceTable::Row> rows;
  for (const history::Entry& entry : entries_) {
    const history::Record& record = entry.record;
    rows.push_back({LocalTime(record.time), own_.parts.texts.Sentence(record.title), record.who,
                    entry.undone ? own_.parts.Text(kTextIsUndone) : "", record.program});
  }
  const auto same = std::ranges::find(
      entries_, number, [](const history::Entry& entry) { return entry.record.number; });
  const bool stays = !at_top && same != entries_.end();
  pane_.ShowOperations(std::move(rows),
                       stays ? static_cast<std::size_t>(same - entries_.begin()) : 0);
  ShowSelected();
  if (found.whole) return;
  own_.messages.Status(own_.parts.texts.Sentence(
      {history::message::kDamaged, {{"<Path>", own_.opened.history().file().path()}}}));
}

void HistoryList::ShowSelected() {
  const std::optional<std::size_t> row = pane_.Selected();
  if (!row || *row >= entries_.size()) {
    pane_.ShowChange(entries_.empty() ? own_.parts.Text(kTextHistoryIsEmpty) : std::string());
    return pane_.ShowOffer(HistoryPane::Offer::kNothing);
  }
  const history::Entry& entry = entries_[*row];
  pane_.ShowChange(ChangeOf(entry.record.number));
  pane_.ShowOffer(entry.undone ? HistoryPane::Offer::kRedo : HistoryPane::Offer::kUndo);
}

std::string HistoryList::ChangeOf(std::uint64_t number) {
  try {
    const auto entry = history::FindEntry(own_.opened.history().file(), number);
    if (!entry) return {};
    return project::RowsText(entry->record) +
           project::DiffText(
               entry->record, [this](const history::ChangedFile& file, const std::string& bytes) {
                 return own_.opened.vb()->ToUtf8(own_.opened.history().PathOf(file), bytes);
               });
  } catch (const files::Error& error) {
    return own_.parts.texts.Sentence(error);
  }
}

void HistoryList::Revert() {
  const std::optional<std::size_t> row = pane_.Selected();
  if (!row || *row >= entries_.size()) return;
  const history::Entry& entry = entries_[*row];
  const std::uint64_t number = entry.record.number;
  entry.undone ? undo_.Redo(number) : undo_.Undo(number);
  Look();
  pane_.TakeKeyboard();
}

}  // namespace desktop
