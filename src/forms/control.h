// SPDX-License-Identifier: MIT
// What all controls have in common. A form owns its controls as members; each registers itself
// with its container, so that the order of declaration is the tab order.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/font.h"
#include "forms/observable.h"
#include "forms/property.h"

namespace forms {

class Container;
class Form;

// Position and size in twips (1/1440 inch) in the coordinates of the container.
struct Bounds {
  double left = 0, top = 0, width = 0, height = 0;
  friend bool operator==(const Bounds&, const Bounds&) = default;
};

// How a toolkit lays a control out in a container that has no fixed positions. A label and the
// control after it share a row; every other control begins a row of its own.
struct LayoutHint {
  bool same_row = false;  // goes on in the row of the control before
  bool stretch = false;   // takes the spare height
  int min_chars = 0;      // least width in average characters, 0 for the native one
  int min_lines = 0;      // least height in lines of text, 0 for the native one
};

class Control : public Observable, public PropertyObject {
 public:
  // Registers with the container (null for a form). The index belongs to a control array.
  Control(Container* container, std::string_view name, std::optional<std::int32_t> index = {});
  ~Control() override;

  const std::string& Name() const { return name_; }
  std::optional<std::int32_t> Index() const { return index_; }
  // The form that the control is on; null while there is none.
  Form* GetForm();

  const std::string& Tag() const { return tag_; }
  void SetTag(std::string_view tag) { tag_ = tag; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Assign(enabled_, enabled, Property::kEnabled); }
  bool Visible() const { return visible_; }
  virtual void SetVisible(bool visible) { Assign(visible_, visible, Property::kVisible); }

  const Font& GetFont() const { return font_; }
  void SetFont(const Font& font) { Assign(font_, font, Property::kFont); }

  const Bounds& GetBounds() const { return bounds_; }
  void SetBounds(const Bounds& bounds) { Assign(bounds_, bounds, Property::kBounds); }
  double Left() const { return bounds_.left; }
  double Top() const { return bounds_.top; }
  double Width() const { return bounds_.width; }
  double Height() const { return bounds_.height; }

  // Text that explains the control; ToolTip answers the disabled reason while it is disabled and
  // has one.
  void SetToolTip(std::string_view text) {
    Assign(tool_tip_, std::string(text), Property::kToolTip);
  }
  void SetDisabledReason(std::string_view text) {
    Assign(disabled_reason_, std::string(text), Property::kToolTip);
  }
  const std::string& ToolTip() const;

  // The value cannot be stored; the toolkit marks the control.
  bool Invalid() const { return invalid_; }
  void SetInvalid(bool invalid) { Assign(invalid_, invalid, Property::kInvalid); }

  const LayoutHint& Layout() const { return layout_; }
  void SetLayout(const LayoutHint& layout) { layout_ = layout; }

  // Asks for the keyboard.
  void SetFocus() { Notify(Property::kFocus); }
  // Puts the control in front of the others of its container.
  void BringToFront();

  // Name, Tag, Enabled, Visible, Left, Top, Width, Height; Font is a sub-object.
  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;
  PropertyObject* SubObject(std::string_view name,
                            const std::optional<platform::Variant>& argument) override;

 private:
  friend class Container;

  // The members of the font as properties.
  class FontProperties : public PropertyObject {
   public:
    explicit FontProperties(Control& control) : control_(control) {}
    std::optional<platform::Variant> GetProperty(std::string_view name) const override;
    bool SetProperty(std::string_view name, const platform::Variant& value) override;

   private:
    Control& control_;
  };

  Container* container_;
  std::string name_;
  std::optional<std::int32_t> index_;
  std::string tag_;
  bool enabled_ = true;
  bool visible_ = true;
  bool invalid_ = false;
  Font font_;
  Bounds bounds_;
  std::string tool_tip_;
  std::string disabled_reason_;
  LayoutHint layout_;
  FontProperties font_properties_{*this};
};

// A control that shows a fixed text. "&" marks the mnemonic, "&&" is an ampersand.
class CaptionedControl : public Control {
 public:
  using Control::Control;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption) {
    Assign(caption_, std::string(caption), Property::kCaption);
  }

  std::optional<platform::Variant> GetProperty(std::string_view name) const override;
  bool SetProperty(std::string_view name, const platform::Variant& value) override;

 private:
  std::string caption_;
};

// A control that holds others.
class Container : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  ~Container() override;

  // In order of creation, which is the tab order.
  const std::vector<Control*>& Controls() const { return controls_; }
  // From back to front.
  const std::vector<Control*>& ZOrder() const { return z_order_; }

  // The control of that name (and index), also in nested containers; null when there is none.
  Control* FindControl(std::string_view name, std::optional<std::int32_t> index = {});

  // A control is a sub-object under its name, with its index as argument in a control array.
  PropertyObject* SubObject(std::string_view name,
                            const std::optional<platform::Variant>& argument) override;

 private:
  friend class Control;
  std::vector<Control*> controls_;
  std::vector<Control*> z_order_;
};

}  // namespace forms
