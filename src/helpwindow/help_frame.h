// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>
#include <wx/frame.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "handbook/book.h"
#include "messages/text_number.h"
#include "texts/text_table.h"

class wxHtmlWindow;
class wxListBox;
class wxSearchCtrl;
class wxWindow;

namespace helpwindow {

// The window of the help: contents and index beside the page, the search above it.
class HelpFrame : public wxFrame {
 public:
  // Book and texts must outlive the window.
  HelpFrame(wxWindow* parent, const handbook::Book& book, const texts::TextTable& texts);

  // A dialog that waits for its answer disables the other windows: not this one.
  bool Enable(bool) override { return false; }

  // The first page when there is none of that number.
  void ShowPage(std::int32_t topic);

 private:
  // What was looked at: a page, or the results of a search.
  struct Place {
    std::string file;
    std::string anchor;
    std::string query;  // when it is not a page
  };

  wxString Text(messages::TextNumber number) const;
  wxWindow* MakeBar(wxWindow* parent);
  wxWindow* MakeContents(wxWindow* parent);
  wxWindow* MakeIndex(wxWindow* parent);
  void BindKeys();
  void FillIndex();
  void GoTo(Place place);
  void Step(int distance);
  void Render();
  void OnLink(const wxString& target);
  void OnSearch();
  void MarkContents(const std::string& file);
  std::string Results(const std::string& query) const;

  const handbook::Book& book_;
  const texts::TextTable& texts_;
  wxDataViewTreeCtrl* contents_ = nullptr;
  std::vector<wxDataViewItem> items_;  // of the contents, in the order of the topics
  wxSearchCtrl* filter_ = nullptr;
  wxListBox* index_ = nullptr;
  std::vector<handbook::IndexEntry> entries_;  // of the index, as it is shown
  wxSearchCtrl* search_ = nullptr;
  wxHtmlWindow* page_ = nullptr;
  wxWindow* back_ = nullptr;
  wxWindow* forward_ = nullptr;
  std::vector<Place> history_;
  std::size_t current_ = 0;  // in the history
  bool marking_ = false;     // the contents follow the page, not the user
};

}  // namespace helpwindow
