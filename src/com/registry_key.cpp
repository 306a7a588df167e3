// SPDX-License-Identifier: MIT
#include "com/registry_key.h"

#include <algorithm>
#include <cstring>

#include "com/failure.h"

namespace com {

namespace {

void RequireDone(LSTATUS status) {
  if (status != ERROR_SUCCESS) Require(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

bool IsNotThere(LSTATUS status) {
  return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

}  // namespace

RegistryKey::~RegistryKey() {
  if (key_) RegCloseKey(key_);
}

RegistryKey RegistryKey::Create(HKEY root, const std::wstring& path, REGSAM view) {
  RegistryKey key;
  RequireDone(RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                              KEY_READ | KEY_WRITE | view, nullptr, &key.key_, nullptr));
  return key;
}

RegistryKey RegistryKey::Open(HKEY root, const std::wstring& path, REGSAM view) {
  RegistryKey key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, &key.key_) != ERROR_SUCCESS) {
    key.key_ = nullptr;
  }
  return key;
}

void RegistryKey::SetText(const std::wstring& name, std::wstring_view text) {
  const std::wstring ended(text);
  RequireDone(RegSetValueExW(key_, name.c_str(), 0, REG_SZ,
                             reinterpret_cast<const BYTE*>(ended.c_str()),
                             static_cast<DWORD>((ended.size() + 1) * sizeof(wchar_t))));
}

std::optional<std::wstring> RegistryKey::Text(const std::wstring& name) const {
  DWORD size = 0;
  if (!key_ || RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
                   ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::wstring text(size / sizeof(wchar_t), L'\0');
  if (RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  text.resize(std::min(text.find(L'\0'), text.size()));
  return text;
}

std::optional<DWORD> RegistryKey::Number(const std::wstring& name) const {
  DWORD number = 0, size = sizeof number;
  if (!key_ || RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_DWORD, nullptr, &number,
                            &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  return number;
}

std::vector<std::wstring> RegistryKey::Subkeys() const {
  std::vector<std::wstring> names;
  if (!key_) return names;
  wchar_t name[256];  // the longest that there can be
  for (DWORD i = 0;; ++i) {
    DWORD length = static_cast<DWORD>(std::size(name));
    if (RegEnumKeyExW(key_, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return names;
    }
    names.emplace_back(name, length);
  }
}

void RegistryKey::Remove(HKEY root, const std::wstring& path, REGSAM view) {
  for (const std::wstring& name : Open(root, path, view).Subkeys()) {
    Remove(root, path + L"\\" + name, view);
  }
  const LSTATUS status = RegDeleteKeyExW(root, path.c_str(), view, 0);
  if (!IsNotThere(status)) RequireDone(status);
}

}  // namespace com
