// SPDX-License-Identifier: MIT
#include "com/host_add_in.h"

#include <utility>

#include "com/failure.h"
#include "com/studio_names.h"

namespace com {

Value HostAddIn::Ask(const wchar_t* name, LateBound::Arguments arguments) const try {
  return studio_.Get(name, std::move(arguments));
} catch (const Failure&) {
  return {};
}

void HostAddIn::RegisterPicture(std::string_view key, std::string_view picture) {
  const Reference<IDispatch> object = fallbacks_.picture(picture);
  Ask(names::kRegisterPicture, {Value(key), Value(object)});
}

std::int32_t HostAddIn::AddNode(std::string_view parent, std::string_view text,
                                std::string_view key, std::string_view info, std::string_view icon,
                                const platform::NodeFlags& flags) {
  const Value result = Ask(names::kAddNode, {Value(parent), Value(text), Value(key), Value(info),
                                             Value(icon), Value(flags.first), Value(flags.second),
                                             Value(flags.third), Value(flags.fourth)});
  nodes_.insert_or_assign(std::string(key), Node{std::string(parent), std::string(text),
                                                 std::string(info), std::string(icon), flags});
  return result.ToLong();
}

void HostAddIn::RemoveNode(std::string_view key) {
  Ask(names::kRemoveNode, {Value(key)});
  std::erase_if(nodes_,
                [&](const auto& node) { return node.first == key || node.second.parent == key; });
}

void HostAddIn::SetNodeText(std::string_view key, std::string_view text) {
  const auto node = nodes_.find(key);
  if (studio_.Has(names::kSetNodeText)) {
    Ask(names::kSetNodeText, {Value(key), Value(text)});
    if (node != nodes_.end()) node->second.text = text;
    return;
  }
  if (node == nodes_.end()) return;
  const Node old = node->second;
  RemoveNode(key);
  AddNode(old.parent, text, key, old.info, old.icon, old.flags);
}

std::vector<std::string> HostAddIn::ChildKeys(std::string_view key, std::int32_t depth) {
  std::vector<std::string> keys;
  const Value given = Ask(names::kChildKeys, {Value(key), Value(depth)});
  for (const Value& child : ElementsOf(given.get())) keys.push_back(child.ToText());
  return keys;
}

platform::SelectedNode HostAddIn::GetSelectedNode() {
  LateBound::Arguments node = {Value(""), Value(""), Value("")};
  try {
    studio_.CallByReference(names::kSelectedNode, node);
  } catch (const Failure&) {
    return {};
  }
  return {node[0].ToText(), node[1].ToText(), node[2].ToText()};
}

void HostAddIn::SelectNode(std::string_view key) {
  if (studio_.Has(names::kSelectNode)) Ask(names::kSelectNode, {Value(key)});
}

void HostAddIn::ActivateTree() {
  if (studio_.Has(names::kActivateTree)) Ask(names::kActivateTree);
}

std::string HostAddIn::NodeInformation(std::string_view key, std::int32_t selector) {
  if (studio_.Has(names::kNodeInformation)) {
    return Ask(names::kNodeInformation, {Value(key), Value(selector)}).ToText();
  }
  const auto node = nodes_.find(key);
  return node == nodes_.end() ? std::string() : node->second.text;
}

void HostAddIn::UpdateNode(std::string_view key, std::int32_t first, std::int32_t second) {
  Ask(names::kUpdateNode, {Value(key), Value(first), Value(second)});
}

platform::WindowHandle HostAddIn::MainWindow() {
  // Window handles have 32 bits that count, in programs of 64 bit too.
  return Ask(names::kMainWindow).ToLong();
}

std::int32_t HostAddIn::RegisterEditor(std::string_view name) {
  return Ask(names::kRegisterEditor, {Value(name)}).ToLong();
}

void HostAddIn::HandOverEditor(std::int32_t handle) {
  Ask(names::kHandOverEditor, {Value(handle)});
}

void HostAddIn::ShowError(std::string_view text) {
  if (studio_.Has(names::kShowError)) {
    Ask(names::kShowError, {Value(text)});
  } else {
    fallbacks_.show_message(std::string(text));
  }
}

std::optional<std::string> HostAddIn::ChooseItem(std::string_view current) {
  if (!studio_.Has(names::kChooseItem)) return std::nullopt;
  const platform::Variant item = Ask(names::kChooseItem, {Value(current)}).ToVariant();
  if (!item.IsText()) return std::nullopt;
  return item.ToText();
}

void HostAddIn::ShowCodeWindow() {
  if (studio_.Has(names::kShowCodeWindow)) Ask(names::kShowCodeWindow);
}

void HostAddIn::ShowWarnings(const std::vector<platform::Notice>& warnings) {
  if (warnings.empty()) return;
  if (studio_.Has(names::kShowMessage)) {
    for (const platform::Notice& warning : warnings) {
      Ask(names::kShowMessage, {Value(warning.text)});
    }
    return;
  }
  std::string text;
  for (const platform::Notice& warning : warnings) {
    if (!text.empty()) text += "\n";
    text += warning.text;
  }
  fallbacks_.show_message(text);
}

}  // namespace com
