// SPDX-License-Identifier: MIT
#pragma once

#include <wx/event.h>
#include <wx/menu.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "forms/menu_control.h"

namespace wx {

// Fills a native menu with the visible tools of a band and its sub-bands, and gives clicks to the
// menu control. Separators stand only between tools.
class BandMenu {
 public:
  explicit BandMenu(forms::Band& band) : band_(band) {}

  // Replaces the entries of the menu by what the band shows now.
  void Fill(wxMenu& menu);
  // Brings the menu up to date. Only where other tools are to be seen are its entries replaced:
  // a menu that opens has its size already and would show nothing of entries added then.
  void Update(wxMenu& menu);
  // The tool of a menu entry; null for an entry of another menu.
  forms::Tool* ToolOf(int id) const;
  forms::Band& GetBand() const { return band_; }

 private:
  // What decides on the entries of a menu.
  struct Look {
    const forms::Tool* tool;
    std::string caption;
    bool checked;
    bool operator==(const Look&) const = default;
  };

  std::vector<Look> Looks() const;
  void Append(wxMenu& menu, forms::Tool& tool);

  forms::Band& band_;
  std::map<int, forms::Tool*> tools_;
  std::vector<std::unique_ptr<BandMenu>> nested_;
  std::vector<Look> filled_;
};

// Pops a band up at the mouse; returns after the menu closed. The click is delivered after that.
void PopupBand(wxWindow& window, forms::Band& band);

// The menus of a menu control in a native menu bar, kept up with the tools.
class MenuBarView {
 public:
  explicit MenuBarView(forms::MenuControl& menu);
  ~MenuBarView();
  MenuBarView(const MenuBarView&) = delete;
  MenuBarView& operator=(const MenuBarView&) = delete;

  // Shows the menus in the bar of a frame from position `at` on, in front of what is there. The
  // bar must outlive this view.
  void AppendTo(wxMenuBar& bar, wxWindow& frame, std::size_t at = 0);

 private:
  struct Entry {
    forms::Tool* tool;
    BandMenu band;
    wxMenu* menu = nullptr;  // null while the tool is invisible
  };

  void ShowTools();
  void OnIdle(wxIdleEvent& event);
  void OnOpen(wxMenuEvent& event);
  void OnClick(wxCommandEvent& event);

  forms::MenuControl& menu_;
  wxMenuBar* bar_ = nullptr;
  wxWindow* frame_ = nullptr;
  std::size_t at_ = 0;
  std::vector<Entry> entries_;
  bool stale_ = false;  // tools have changed since the menus were filled
  forms::Subscription subscription_;
};

}  // namespace wx
