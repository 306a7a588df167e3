// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "com/ole.h"

namespace com {

// An open key of the registry.
class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
  ~RegistryKey();

  // Raises Failure when it cannot be created. `view` is 0, KEY_WOW64_32KEY or KEY_WOW64_64KEY.
  static RegistryKey Create(HKEY root, const std::wstring& path, REGSAM view = 0);
  // For reading; one that is not there is closed.
  static RegistryKey Open(HKEY root, const std::wstring& path, REGSAM view = 0);

  explicit operator bool() const { return key_ != nullptr; }
  // The value without a name is the key's default.
  void SetText(const std::wstring& name, std::wstring_view text);
  // Nothing when there is no such value, or one of another type.
  std::optional<std::wstring> Text(const std::wstring& name) const;
  std::optional<DWORD> Number(const std::wstring& name) const;
  std::vector<std::wstring> Subkeys() const;

  // With all that is below it. What is not there is gone already; raises Failure otherwise.
  static void Remove(HKEY root, const std::wstring& path, REGSAM view = 0);

 private:
  HKEY key_ = nullptr;
};

}  // namespace com
