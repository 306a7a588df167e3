// SPDX-License-Identifier: MIT
#include "helpwindow/help_frame.h"

#include <wx/accel.h>
#include <wx/bmpbuttn.h>
#include <wx/html/htmlwin.h>
#include <wx/listbox.h>
#include <wx/notebook.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/srchctrl.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "handbook/page_text.h"
#include "helpwindow/help_page.h"
#include "messages/text_number.h"
#include "wx/convert.h"
#include "wx/native.h"
#include "wx/pictures.h"

namespace helpwindow {

namespace {

constexpr messages::TextNumber kTextTitle{1740};
constexpr messages::TextNumber kTextContents{1741};
constexpr messages::TextNumber kTextIndex{1742};
constexpr messages::TextNumber kTextSearch{1743};
constexpr messages::TextNumber kTextBack{1744};
constexpr messages::TextNumber kTextForward{1745};
constexpr messages::TextNumber kTextResults{1746};
constexpr messages::TextNumber kTextNoResults{1747};
constexpr messages::TextNumber kTextIndexWord{1748};
constexpr messages::TextNumber kTextPage{1749};

constexpr int kGap = 6;  // at 100 %
constexpr int kPageBorder = 18;
constexpr int kLeastList = 100;

}  // namespace

HelpFrame::HelpFrame(wxWindow* parent, const handbook::Book& book, const texts::TextTable& texts)
    : wxFrame(parent, wxID_ANY, wx::ToWx(texts.Text(kTextTitle))), book_(book), texts_(texts) {
  ProvideHelpPictures();
  SetIcons(wx::ProgramIcons());
  auto* whole = new wxPanel(this);
  auto* panes = new wxSplitterWindow(whole, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                     wxSP_LIVE_UPDATE | wxSP_NOBORDER);
  auto* book_pages = new wxNotebook(panes, wxID_ANY);
  book_pages->AddPage(MakeContents(book_pages), Text(kTextContents));
  book_pages->AddPage(MakeIndex(book_pages), Text(kTextIndex));
  page_ = new wxHtmlWindow(panes, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxHW_SCROLLBAR_AUTO | wxBORDER_THEME);
  page_->SetBorders(FromDIP(kPageBorder));
  const wxFont font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  page_->SetStandardFonts(font.GetPointSize(), font.GetFaceName());
  page_->SetName(Text(kTextPage));
  wx::SetAccessibleName(*page_, Text(kTextPage));
  page_->Bind(wxEVT_HTML_LINK_CLICKED, [this](wxHtmlLinkEvent& event) {
    // The page that holds the link goes.
    CallAfter([this, target = event.GetLinkInfo().GetHref()] { OnLink(target); });
  });
  panes->SetMinimumPaneSize(FromDIP(160));
  panes->SplitVertically(book_pages, page_, FromDIP(260));
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(MakeBar(whole), wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
  sizer->Add(panes, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kGap)));
  whole->SetSizer(sizer);
  SetSize(FromDIP(wxSize(940, 680)));
  SetMinSize(FromDIP(wxSize(480, 320)));
  BindKeys();
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    CallAfter([this] { Render(); });
  });
  wx::KeepUsableDuringDialogs(*this);
}

wxString HelpFrame::Text(messages::TextNumber number) const {
  return wx::ToWx(texts_.Text(number));
}

wxWindow* HelpFrame::MakeBar(wxWindow* parent) {
  auto* bar = new wxPanel(parent);
  const auto button = [&](const char* picture, messages::TextNumber text, int distance) {
    auto* made = new wxBitmapButton(bar, wxID_ANY, wx::Picture(picture));
    made->SetToolTip(Text(text));
    wx::SetAccessibleName(*made, Text(text));
    made->Bind(wxEVT_BUTTON, [this, distance](wxCommandEvent&) { Step(distance); });
    return made;
  };
  back_ = button("back", kTextBack, -1);
  forward_ = button("forward", kTextForward, 1);
  search_ = new wxSearchCtrl(bar, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(280, -1)),
                             wxTE_PROCESS_ENTER);
  search_->SetDescriptiveText(Text(kTextSearch));
  search_->ShowCancelButton(true);
  wx::SetAccessibleName(*search_, Text(kTextSearch));
  search_->Bind(wxEVT_SEARCH, [this](wxCommandEvent&) { OnSearch(); });
  search_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { OnSearch(); });
  search_->Bind(wxEVT_SEARCH_CANCEL, [this](wxCommandEvent&) { search_->Clear(); });
  auto* sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(back_, wxSizerFlags().CentreVertical());
  sizer->Add(forward_, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(kGap)));
  sizer->AddStretchSpacer();
  sizer->Add(search_, wxSizerFlags().CentreVertical());
  bar->SetSizer(sizer);
  return bar;
}

wxWindow* HelpFrame::MakeContents(wxWindow* parent) {
  contents_ = new wxDataViewTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                     wxDV_NO_HEADER | wxDV_SINGLE | wxBORDER_NONE);
  wx::SetAccessibleName(*contents_, Text(kTextContents));
  const wxDataViewItem root;
  wxDataViewItem above;
  const auto& topics = book_.topics();
  for (std::size_t i = 0; i < topics.size(); ++i) {
    const wxString title = wx::ToWx(topics[i].title);
    if (topics[i].level > 0) {
      items_.push_back(contents_->AppendItem(above, title));
      continue;
    }
    // All of them containers: the control sorts those before the others.
    above = contents_->AppendContainer(root, title);
    items_.push_back(above);
  }
  for (const wxDataViewItem& item : items_) contents_->Expand(item);
  contents_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent& event) {
    const auto found = std::find(items_.begin(), items_.end(), event.GetItem());
    if (marking_ || found == items_.end()) return;
    const auto& topic = book_.topics()[static_cast<std::size_t>(found - items_.begin())];
    GoTo({std::string(topic.file), "", ""});
  });
  return contents_;
}

wxWindow* HelpFrame::MakeIndex(wxWindow* parent) {
  auto* pane = new wxPanel(parent);
  filter_ = new wxSearchCtrl(pane, wxID_ANY);
  filter_->SetDescriptiveText(Text(kTextIndexWord));
  wx::SetAccessibleName(*filter_, Text(kTextIndexWord));
  // With room for a scrollbar from the start: the notebook lays out late what it does not show.
  index_ =
      new wxListBox(pane, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(kLeastList, kLeastList)));
  wx::SetAccessibleName(*index_, Text(kTextIndex));
  filter_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { FillIndex(); });
  index_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent& event) {
    const int row = event.GetSelection();
    if (row == wxNOT_FOUND) return;
    GoTo({std::string(entries_[static_cast<std::size_t>(row)].topic->file), "", ""});
  });
  auto* sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(filter_, wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
  sizer->Add(index_, wxSizerFlags(1).Expand());
  pane->SetSizer(sizer);
  FillIndex();
  return pane;
}

void HelpFrame::BindKeys() {
  struct Key {
    int flags;
    int code;
    std::function<void()> action;
  };
  const Key keys[] = {
      {wxACCEL_NORMAL, WXK_ESCAPE, [this] { Close(); }},
      {wxACCEL_CTRL, 'W', [this] { Close(); }},
      {wxACCEL_CTRL, 'F', [this] { search_->SetFocus(); }},
      {wxACCEL_ALT, WXK_LEFT, [this] { Step(-1); }},
      {wxACCEL_ALT, WXK_RIGHT, [this] { Step(1); }},
  };
  std::vector<wxAcceleratorEntry> entries;
  for (const Key& key : keys) {
    const int id = NewControlId();
    entries.emplace_back(key.flags, key.code, id);
    Bind(
        wxEVT_MENU, [action = key.action](wxCommandEvent&) { action(); }, id);
  }
  SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(entries.size()), entries.data()));
}

void HelpFrame::FillIndex() {
  entries_ = book_.Index(wx::FromWx(filter_->GetValue()));
  wxArrayString words;
  for (const handbook::IndexEntry& entry : entries_) words.Add(wx::ToWx(entry.word));
  index_->Set(words);
}

void HelpFrame::ShowPage(std::int32_t topic) {
  const handbook::Topic* found = book_.FindNumber(topic);
  if (!found) found = &book_.topics().front();
  GoTo({std::string(found->file), "", ""});
}

void HelpFrame::GoTo(Place place) {
  if (!history_.empty()) history_.resize(current_ + 1);
  const bool same = !history_.empty() && history_.back().file == place.file &&
                    history_.back().anchor == place.anchor && history_.back().query == place.query;
  if (!same) history_.push_back(std::move(place));
  current_ = history_.size() - 1;
  Render();
}

void HelpFrame::Step(int distance) {
  const auto target = static_cast<std::ptrdiff_t>(current_) + distance;
  if (target < 0 || target >= static_cast<std::ptrdiff_t>(history_.size())) return;
  current_ = static_cast<std::size_t>(target);
  Render();
}

void HelpFrame::Render() {
  if (history_.empty()) return;
  const Place place = history_[current_];
  const handbook::Topic* topic = book_.FindFile(place.file);
  page_->SetPage(HelpPage(topic ? std::string(topic->html) : Results(place.query)));
  if (!place.anchor.empty()) page_->LoadPage("#" + wx::ToWx(place.anchor));
  back_->Enable(current_ > 0);
  forward_->Enable(current_ + 1 < history_.size());
  MarkContents(place.file);
}

void HelpFrame::MarkContents(const std::string& file) {
  marking_ = true;
  contents_->UnselectAll();
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (book_.topics()[i].file != file) continue;
    contents_->Select(items_[i]);
    contents_->EnsureVisible(items_[i]);
  }
  marking_ = false;
}

void HelpFrame::OnLink(const wxString& target) {
  const std::string file = wx::FromWx(target.BeforeFirst('#'));
  const std::string anchor = wx::FromWx(target.AfterFirst('#'));
  GoTo({file.empty() ? history_[current_].file : file, anchor, ""});
}

void HelpFrame::OnSearch() {
  const std::string query = wx::FromWx(search_->GetValue().Strip(wxString::both));
  if (!query.empty()) GoTo({"", "", query});
}

std::string HelpFrame::Results(const std::string& query) const {
  const std::vector<handbook::Hit> hits = book_.Search(query);
  std::string body =
      "<h2>" + handbook::EscapeHtml(texts_.Text(kTextResults, {{"<Text>", query}})) + "</h2>";
  if (hits.empty()) {
    body += "<p>" + handbook::EscapeHtml(texts_.Text(kTextNoResults, {{"<Text>", query}})) + "</p>";
  }
  for (const handbook::Hit& hit : hits) {
    body.append("<p><a href=\"").append(hit.topic->file).append("\"><b>");
    body += handbook::EscapeHtml(hit.topic->title);
    body += "</b></a><br>" + handbook::EscapeHtml(hit.excerpt) + "</p>";
  }
  return HelpDocument(body);
}

}  // namespace helpwindow
