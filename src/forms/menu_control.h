// SPDX-License-Identifier: MIT
// The menu and toolbar control: bands of tools. A tool has a name that is unique in the control.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/form.h"

namespace forms {

class Band;
class MenuControl;

enum class ToolKind {
  kCommand,
  kSubmenu,  // opens the band named by SubBand
  kLabel,    // a text, not a command
  kSeparator,
};

class Tool {
 public:
  Tool(MenuControl& menu, std::string_view name, ToolKind kind)
      : menu_(menu), name_(name), kind_(kind) {}

  const std::string& Name() const { return name_; }
  ToolKind Kind() const { return kind_; }
  const std::string& SubBand() const { return sub_band_; }
  Tool& SetSubBand(std::string_view band) { return Change(sub_band_, std::string(band)); }
  const std::string& Tag() const { return tag_; }
  Tool& SetTag(std::string_view tag) { return Change(tag_, std::string(tag)); }
  const std::string& Caption() const { return caption_; }
  Tool& SetCaption(std::string_view caption) { return Change(caption_, std::string(caption)); }
  bool Enabled() const { return enabled_; }
  Tool& SetEnabled(bool enabled) { return Change(enabled_, enabled); }
  bool Visible() const { return visible_; }
  Tool& SetVisible(bool visible) { return Change(visible_, visible); }
  bool Checked() const { return checked_; }
  Tool& SetChecked(bool checked) { return Change(checked_, checked); }
  // Key that the menu shows beside the caption, such as "F8" or "Ctrl+Del". The window that has
  // the keyboard acts on it.
  const std::string& Shortcut() const { return shortcut_; }
  Tool& SetShortcut(std::string_view shortcut) { return Change(shortcut_, std::string(shortcut)); }
  // Name of a picture.
  const std::string& Icon() const { return icon_; }
  Tool& SetIcon(std::string_view icon) { return Change(icon_, std::string(icon)); }
  const std::string& ToolTip() const { return tool_tip_; }
  Tool& SetToolTip(std::string_view text) { return Change(tool_tip_, std::string(text)); }
  // Why the tool is disabled, shown as its tool tip then.
  const std::string& DisabledReason() const { return disabled_reason_; }
  Tool& SetDisabledReason(std::string_view text) {
    return Change(disabled_reason_, std::string(text));
  }

 private:
  template <class T>
  Tool& Change(T& member, T value);

  MenuControl& menu_;
  std::string name_;
  ToolKind kind_;
  std::string sub_band_;
  std::string tag_;
  std::string caption_;
  bool enabled_ = true;
  bool visible_ = true;
  bool checked_ = false;
  std::string shortcut_;
  std::string icon_;
  std::string tool_tip_;
  std::string disabled_reason_;
};

class Band {
 public:
  Band(MenuControl& menu, std::string_view name) : menu_(menu), name_(name) {}
  Band(const Band&) = delete;
  Band& operator=(const Band&) = delete;

  const std::string& Name() const { return name_; }
  MenuControl& Menu() const { return menu_; }
  // A name that another band of the control has already shows that band's tool here too.
  Tool& AddTool(std::string_view name, ToolKind kind = ToolKind::kCommand);
  // The same in front of the tool at that place.
  Tool& InsertTool(std::size_t place, std::string_view name, ToolKind kind = ToolKind::kCommand);
  const std::vector<Tool*>& Tools() const { return tools_; }

 private:
  MenuControl& menu_;
  std::string name_;
  std::vector<Tool*> tools_;
};

class MenuControl : public Control {
 public:
  using Control::Control;

  Band& AddBand(std::string_view name);
  // Null when there is none of that name.
  Band* FindBand(std::string_view name) const;
  Tool* FindTool(std::string_view name) const;
  const std::vector<std::unique_ptr<Band>>& Bands() const { return bands_; }
  const std::vector<std::unique_ptr<Tool>>& Tools() const { return tools_; }

  // Band that is shown as the menu bar; "" for none.
  const std::string& MenuBar() const { return menu_bar_; }
  void SetMenuBar(std::string_view band) { Assign(menu_bar_, std::string(band), Property::kTools); }

  // Gives every tool with a tag the text whose number is the tag's numeric value.
  void LocaliseTools(const TextLookup& text);

  // What a click on a tool does, wherever the tool is shown; also on a disabled one.
  void Click(Tool& tool) {
    if (on_tool_click) on_tool_click(tool);
  }
  // Before a band opens as a menu.
  void Open(Band& band) {
    if (on_band_open) on_band_open(band);
  }

  std::function<void(Tool&)> on_tool_click;
  std::function<void(Band&)> on_band_open;

 private:
  friend class Tool;
  friend class Band;
  std::vector<std::unique_ptr<Band>> bands_;
  std::vector<std::unique_ptr<Tool>> tools_;
  std::string menu_bar_;
};

// Shows the tools of a band of a menu control as buttons.
class Toolbar : public Control {
 public:
  using Control::Control;

  Band* GetBand() const { return band_; }
  // The band must outlive the toolbar or be replaced; null shows no tools.
  void SetBand(Band* band) { Assign(band_, band, Property::kTools); }

 private:
  Band* band_ = nullptr;
};

template <class T>
Tool& Tool::Change(T& member, T value) {
  if (member != value) {
    member = std::move(value);
    menu_.Notify(Property::kTools);
  }
  return *this;
}

}  // namespace forms
