// SPDX-License-Identifier: MIT
#include "wx/table_font.h"

#include <wx/settings.h>

#include <utility>

#include "wx/convert.h"

namespace wx {

namespace {

class Setting : public forms::Observable {
 public:
  const wxFont& Get() const { return font_; }
  void Set(const wxFont& font) { Assign(font_, font, forms::Property::kFont); }

 private:
  wxFont font_;
};

Setting& TheSetting() {
  static Setting setting;
  return setting;
}

}  // namespace

wxFont TableFont() {
  const wxFont& font = TheSetting().Get();
  return font.IsOk() ? font : wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
}

void SetTableFont(const wxFont& font) { TheSetting().Set(font); }

forms::Subscription ObserveTableFont(std::function<void()> observer) {
  return TheSetting().Observe([observer = std::move(observer)](forms::Property) { observer(); });
}

wxFont KeptFont(const std::string& description) {
  return description.empty() ? wxFont() : wxFont(ToWx(description));
}

}  // namespace wx
