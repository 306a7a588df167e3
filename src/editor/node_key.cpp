// SPDX-License-Identifier: MIT
#include "editor/node_key.h"

#include <algorithm>
#include <vector>

#include "platform/studio.h"
#include "platform/variant.h"

namespace editor {

namespace {
constexpr std::size_t kKindLength = 4;
}  // namespace

std::string_view KeyKind(std::string_view key) { return key.substr(0, kKindLength); }

std::int32_t KeyNumber(std::string_view key) {
  if (key.size() <= kKindLength) return -1;
  return platform::Variant(platform::Val(key.substr(kKindLength))).ToLong();
}

bool IsOwnKey(std::string_view key) {
  const std::string_view kind = KeyKind(key);
  return kind == kRootKind || kind == kFormulaKind || kind == kAliasKind;
}

bool IsFormulaKey(std::string_view key) {
  return KeyKind(key) == kFormulaKind && KeyNumber(key) != 0;
}

std::string_view KeyIcon(std::string_view key) {
  const std::string_view kind = KeyKind(key);
  if (kind == kFormulaKind) return "icoForFunction";
  if (kind == kAliasKind) return "icoForAlias";
  if (kind == kRootKind) return "icoForEditor";
  return {};
}

std::int32_t HelpTopic(std::string_view key) {
  const std::string_view kind = KeyKind(key);
  if (kind == kRootKind) return 90002;
  if (kind == kFormulaKind) return 90023;
  if (kind == kAliasKind) return 90029;
  return 0;
}

std::string FormulaKey(std::int32_t id) { return std::string(kFormulaKind) + std::to_string(id); }

std::string Neighbour(platform::AddIn& studio, const std::string& key) {
  const std::vector<std::string> keys = studio.ChildKeys(kFormulasKey, 1);
  const auto found = std::find(keys.begin(), keys.end(), key);
  if (found != keys.end()) {
    if (found + 1 != keys.end()) return *(found + 1);
    if (found != keys.begin()) return *(found - 1);
  }
  return std::string(kFormulasKey);
}

}  // namespace editor
