// SPDX-License-Identifier: MIT
#include "forms/property.h"

namespace forms {

namespace {

using platform::Variant;

struct Component {
  std::string_view name;
  std::optional<Variant> argument;
};

// `name` or `name(argument)`; nothing when the parentheses do not close at the end or the argument
// is neither quoted nor a number.
std::optional<Component> ParseComponent(std::string_view text) {
  auto open = text.find('(');
  if (open == std::string_view::npos) return Component{text, std::nullopt};
  if (text.back() != ')') return std::nullopt;
  std::string_view argument = text.substr(open + 1, text.size() - open - 2);
  if (argument.empty()) return std::nullopt;
  bool quoted = argument.size() >= 2 && argument.front() == '"' && argument.back() == '"';
  if (!quoted && !(argument[0] >= '0' && argument[0] <= '9')) return std::nullopt;
  Variant value =
      quoted ? Variant(argument.substr(1, argument.size() - 2)) : Variant(platform::Val(argument));
  return Component{text.substr(0, open), value};
}

// Follows a path up to its last component, which is left in `path`.
PropertyObject* Resolve(PropertyObject& object, std::string_view& path) {
  PropertyObject* current = &object;
  for (auto dot = path.find('.'); current && dot != std::string_view::npos; dot = path.find('.')) {
    auto component = ParseComponent(path.substr(0, dot));
    path.remove_prefix(dot + 1);
    current = component ? current->SubObject(component->name, component->argument) : nullptr;
  }
  return current;
}

}  // namespace

std::optional<Variant> PropertyObject::GetProperty(std::string_view) const { return std::nullopt; }
bool PropertyObject::SetProperty(std::string_view, const Variant&) { return false; }
PropertyObject* PropertyObject::SubObject(std::string_view, const std::optional<Variant>&) {
  return nullptr;
}

std::optional<Variant> GetByPath(PropertyObject& object, std::string_view path) {
  PropertyObject* owner = Resolve(object, path);
  return owner ? owner->GetProperty(path) : std::nullopt;
}

bool SetByPath(PropertyObject& object, std::string_view path, const Variant& value) {
  PropertyObject* owner = Resolve(object, path);
  return owner && owner->SetProperty(path, value);
}

}  // namespace forms
