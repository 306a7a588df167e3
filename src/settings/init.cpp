// SPDX-License-Identifier: MIT
#include "settings/init.h"

#include "forms/form.h"
#include "platform/studio.h"
#include "platform/text.h"
#include "settings/defaults.h"
#include "settings/setting_text.h"

namespace settings {

namespace {

using platform::EqualsIgnoringCase;
using platform::Variant;
using Visitor = std::function<void(const std::string& key, CInitItem& setting)>;

constexpr std::string_view kWindow = "Me";

// Takes the text before the separator off the front of `text`; the rest when there is none.
std::string_view TakePart(std::string_view& text, std::string_view separator) {
  auto end = text.find(separator);
  std::string_view part = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + separator.size());
  return part;
}

void Visit(const CInitItems& items, const std::string& prefix, const Visitor& visit) {
  for (const auto& item : items.NewEnum()) {
    std::string key = prefix + item->Name();
    if (item->Children().Count() == 0) {
      visit(key, *item);
    } else {
      Visit(item->Children(), key + '.', visit);
    }
  }
}

// Deletes the setting and the steps to it that lead nowhere else.
void DeletePath(CInitItems& items, std::string_view key) {
  std::string_view name = TakePart(key, ".");
  CInitItem* item = items.Item(name);
  if (!item) return;
  if (!key.empty()) {
    if (item->Children().Count() == 0) return;
    DeletePath(item->Children(), key);
  } else if (item->Children().Count() > 0) {
    return;  // a step, not a setting
  }
  if (item->Children().Count() == 0) items.Delete(name);
}

}  // namespace

void CInit::LoadDefaultInit(std::string_view name) {
  name_ = name;
  items_.Clear();
  std::string_view text = DefaultSettings(name);
  while (!text.empty()) {
    std::string_view line = TakePart(text, "\r\n");
    auto equals = line.find('=');
    if (equals == 0 || equals == std::string_view::npos || equals != line.rfind('=')) continue;
    WriteAValueToCInits(line.substr(0, equals), ValueFromText(line.substr(equals + 1)));
  }
}

void CInit::LoadInits(std::string_view file) {
  file_ = file;
  ForEachSetting([this](const std::string& key, CInitItem& setting) {
    std::string fallback = TextFromValue(setting.Value(), decimal_sign_);
    setting.SetValue(ValueFromText(service_.ReadIni(file_, name_, key, fallback)));
  });
}

bool CInit::SaveInits() {
  std::vector<platform::SettingsService::IniEntry> entries;
  ForEachSetting([&](const std::string& key, CInitItem& setting) {
    entries.push_back({key, TextFromValue(setting.Value(), decimal_sign_)});
  });
  return service_.WriteIniSection(file_, name_, entries);
}

bool CInit::WriteToIni(std::string_view key, const Variant& value) {
  return service_.WriteIni(file_, name_, key, TextFromValue(value, decimal_sign_));
}

void CInit::GetInitFromControl(forms::Form& window, std::string_view control) {
  ForEachSettingOf(control, [&](const std::string& key, CInitItem& setting) {
    if (auto value = forms::GetByPath(window, key)) setting.SetValue(*value);
  });
}

void CInit::SetInitToMotherObject(forms::Form& window) { SetInitToControl(window, kWindow); }

void CInit::SetInitToControl(forms::Form& window, std::string_view control) {
  ForEachSettingOf(control, [&](const std::string& key, CInitItem& setting) {
    bool of_window = EqualsIgnoringCase(key.substr(0, key.find('.')), kWindow);
    if (control.empty() && of_window) return;
    forms::SetByPath(window, key, setting.Value());
  });
}

void CInit::ForEachSetting(const Visitor& visit) { Visit(items_, {}, visit); }

void CInit::ForEachSettingOf(std::string_view control, const Visitor& visit) {
  ForEachSetting([&](const std::string& key, CInitItem& setting) {
    auto dot = key.find('.');
    if (dot == std::string::npos) return;  // a plain option
    if (!control.empty() && !EqualsIgnoringCase(key.substr(0, dot), control)) return;
    visit(key, setting);
  });
}

void CInit::WriteAValueToCInits(std::string_view key, const Variant& value) {
  if (key.empty()) return;
  CInitItem* item = &items_.Add(TakePart(key, "."));
  while (!key.empty()) item = &item->Children().Add(TakePart(key, "."));
  item->SetValue(value);
}

const CInitItem* CInit::FindSetting(std::string_view key) const {
  const CInitItem* item = items_.Item(TakePart(key, "."));
  while (item && !key.empty()) item = item->Children().Item(TakePart(key, "."));
  return item && item->Children().Count() == 0 ? item : nullptr;
}

Variant CInit::ReadAValueFromCInits(std::string_view key) const {
  const CInitItem* setting = FindSetting(key);
  return setting ? setting->Value() : Variant();
}

void CInit::DeleteAValueInCInits(std::string_view key) { DeletePath(items_, key); }

bool CInit::ParamExist(std::string_view key) const { return FindSetting(key) != nullptr; }

}  // namespace settings
