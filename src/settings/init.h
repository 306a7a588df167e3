// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/variant.h"
#include "settings/init_items.h"

namespace platform {
class SettingsService;
}
namespace forms {
class Form;
}

namespace settings {

// Name of the editor window's settings, which is also their section in the settings file.
inline constexpr std::string_view kEditorSettings = "Formula.frmtabGrid";
inline constexpr std::string_view kSettingsFile = "OVEditors.ini";

// The settings of one window: a tree of values, filled from the built-in defaults and the settings
// file, applied to the window and read back from it by property path. A key such as
// `tdbP.Splits(0).Columns("AliasID").Width` is a path from the window; `Me` is the window itself.
// Nothing here raises: a stale or damaged file never stops a window from opening.
class CInit {
 public:
  // Numbers are written with the decimal sign; both signs are read.
  explicit CInit(platform::SettingsService& service, char decimal_sign = ',')
      : service_(service), decimal_sign_(decimal_sign) {}

  // Remembers the name and fills the tree with the built-in defaults of that name.
  void LoadDefaultInit(std::string_view name);
  // Remembers the settings file and overrides every setting of the tree that the file has. Other
  // entries of the file are not read.
  void LoadInits(std::string_view file);
  // Writes every setting to the file, in one replacement. False when the file cannot be written;
  // it is unchanged then.
  bool SaveInits();

  // Reads the settings of the window and its controls back from them; with a name, of that control
  // only ("Me" for the window itself). A path that does not exist keeps its value.
  void GetInitFromControl(forms::Form& window, std::string_view control = {});
  // Applies the settings of the window itself.
  void SetInitToMotherObject(forms::Form& window);
  // Applies the settings of the controls, or of one control. A path that does not exist, or a
  // value that the property refuses, is skipped.
  void SetInitToControl(forms::Form& window, std::string_view control = {});

  void WriteAValueToCInits(std::string_view key, const platform::Variant& value);
  // Empty when there is no such setting.
  platform::Variant ReadAValueFromCInits(std::string_view key) const;
  void DeleteAValueInCInits(std::string_view key);
  bool ParamExist(std::string_view key) const;
  // Writes one entry to the settings file; false when the file cannot be written.
  bool WriteToIni(std::string_view key, const platform::Variant& value);

  const CInitItems& Items() const { return items_; }

 private:
  using Visitor = std::function<void(const std::string& key, CInitItem& setting)>;

  void ForEachSetting(const Visitor& visit);
  void ForEachSettingOf(std::string_view control, const Visitor& visit);
  const CInitItem* FindSetting(std::string_view key) const;

  platform::SettingsService& service_;
  char decimal_sign_;
  std::string name_;
  std::string file_;
  CInitItems items_;
};

}  // namespace settings
