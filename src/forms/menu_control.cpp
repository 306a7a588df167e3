// SPDX-License-Identifier: MIT
#include "forms/menu_control.h"

#include "platform/text.h"

namespace forms {

Tool& Band::AddTool(std::string_view name, ToolKind kind) {
  return InsertTool(tools_.size(), name, kind);
}

Tool& Band::InsertTool(std::size_t place, std::string_view name, ToolKind kind) {
  Tool* tool = menu_.FindTool(name);
  if (!tool) {
    menu_.tools_.push_back(std::make_unique<Tool>(menu_, name, kind));
    tool = menu_.tools_.back().get();
  }
  tools_.insert(tools_.begin() + static_cast<std::ptrdiff_t>(place), tool);
  menu_.Notify(Property::kTools);
  return *tool;
}

Band& MenuControl::AddBand(std::string_view name) {
  bands_.push_back(std::make_unique<Band>(*this, name));
  return *bands_.back();
}

Band* MenuControl::FindBand(std::string_view name) const {
  for (const auto& band : bands_) {
    if (platform::EqualsIgnoringCase(band->Name(), name)) return band.get();
  }
  return nullptr;
}

Tool* MenuControl::FindTool(std::string_view name) const {
  for (const auto& tool : tools_) {
    if (platform::EqualsIgnoringCase(tool->Name(), name)) return tool.get();
  }
  return nullptr;
}

void MenuControl::LocaliseTools(const TextLookup& text) {
  for (const auto& tool : tools_) {
    if (!tool->Tag().empty()) {
      tool->SetCaption(text(messages::TextNumber{platform::Variant(tool->Tag()).ToLong()}));
    }
  }
}

}  // namespace forms
