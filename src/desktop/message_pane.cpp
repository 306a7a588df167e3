// SPDX-License-Identifier: MIT
#include "desktop/message_pane.h"

#include <wx/datetime.h>
#include <wx/splitter.h>
#include <wx/textctrl.h>

#include <utility>

#include "desktop/frame_texts.h"
#include "desktop/pane_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kHeight = 180;  // pixels at 100 %
constexpr int kLeastWidth = 160;
constexpr double kListShare = 0.6;

std::vector<PlaceTable::Column> Columns(const texts::TextTable& texts) {
  return {{texts.Text(kTextTime), 10}, {texts.Text(kTextMessage), 0}};
}

std::string TimeOf(const MessageLog::Entry& entry) {
  const wxDateTime time(std::chrono::system_clock::to_time_t(entry.time));
  return wx::FromWx(time.Format("%H:%M:%S"));
}

}  // namespace

MessagePane::MessagePane(wxWindow* parent, const texts::TextTable& texts)
    : LowerPane(parent, texts) {
  auto* both = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                    wxSP_LIVE_UPDATE | wxSP_3DSASH);
  table_ = new PlaceTable(both, texts.Text(kTextMessages), Columns(texts));
  text_ = new wxTextCtrl(both, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                         wxTE_MULTILINE | wxTE_READONLY);
  wx::SetAccessibleName(*text_, wx::ToWx(texts.Text(kTextMessage)));
  both->SetMinimumPaneSize(FromDIP(kLeastWidth));
  both->SetSashGravity(kListShare);
  both->SplitVertically(table_, text_);
  table_->on_select = [this] { ShowSelected(); };
  table_->on_activate = [this](std::size_t) { text_->SetFocus(); };
  SetTitle(texts.Text(kTextMessages));
  SetContent(*both, kHeight);
}

void MessagePane::Serve(MessageLog& log) {
  log_ = &log;
  log.on_added = [this] {
    if (IsShown()) Fill();
  };
}

void MessagePane::ShowNewest() {
  Fill();
  Open();
  table_->SetFocus();
}

void MessagePane::Fill() {
  std::vector<PlaceTable::Row> rows;
  for (auto entry = log_->entries().rbegin(); entry != log_->entries().rend(); ++entry)
    rows.push_back({TimeOf(*entry), entry->text.substr(0, entry->text.find('\n'))});
  table_->ShowRows(std::move(rows));
  ShowSelected();
}

void MessagePane::ShowSelected() {
  const std::vector<std::size_t> rows = table_->Selected();
  const auto& entries = log_->entries();
  text_->SetValue(rows.empty() ? wx::ToWx(texts().Text(kTextNoMessages))
                               : wx::ToWx(entries[entries.size() - 1 - rows.front()].text));
}

}  // namespace desktop
