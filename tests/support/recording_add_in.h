// SPDX-License-Identifier: MIT
// The studio's side in tests: records what was asked and keeps a tree that answers.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/studio.h"

namespace support {

class RecordingAddIn : public platform::AddIn {
 public:
  struct Node {
    std::string parent, key, text, info, icon;
    platform::NodeFlags flags;
  };

  // One line per call, such as "AddNode FORF0 FORF7 Pump".
  std::vector<std::string> calls;
  std::vector<Node> nodes;  // in the order of adding
  platform::SelectedNode selected;
  platform::WindowHandle main_window = 100;
  std::function<void()> on_add;  // a studio that sends events from inside a call
  // What the user chooses, one answer per question; no answer is a cancelled choice.
  std::deque<std::string> chosen_items;
  std::string failing_call;  // this one raises
  std::vector<std::string> errors;
  std::vector<std::string> warnings;

  const Node* Find(std::string_view key) const {
    for (const Node& node : nodes) {
      if (node.key == key) return &node;
    }
    return nullptr;
  }
  std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }

  void RegisterPicture(std::string_view key, std::string_view) override {
    Record("RegisterPicture", key);
  }
  std::int32_t AddNode(std::string_view parent, std::string_view text, std::string_view key,
                       std::string_view info, std::string_view icon,
                       const platform::NodeFlags& flags) override {
    Record("AddNode", parent, key, text);
    if (on_add) on_add();
    nodes.push_back({std::string(parent), std::string(key), std::string(text), std::string(info),
                     std::string(icon), flags});
    return 0;
  }
  void RemoveNode(std::string_view key) override {
    Record("RemoveNode", key);
    RemoveWithChildren(std::string(key));
  }
  void SetNodeText(std::string_view key, std::string_view text) override {
    Record("SetNodeText", key, text);
    for (Node& node : nodes) {
      if (node.key == key) node.text = text;
    }
  }
  std::vector<std::string> ChildKeys(std::string_view key, std::int32_t) override {
    Record("ChildKeys", key);
    std::vector<std::string> keys;
    for (const Node& node : nodes) {
      if (node.parent == key) keys.push_back(node.key);
    }
    return keys;
  }
  platform::SelectedNode GetSelectedNode() override { return selected; }
  void SelectNode(std::string_view key) override {
    Record("SelectNode", key);
    const Node* node = Find(key);
    if (node) selected = {selected.project, node->key, node->text};
  }
  void ActivateTree() override { Record("ActivateTree"); }
  std::string NodeInformation(std::string_view key, std::int32_t) override {
    const Node* node = Find(key);
    return node ? node->text : std::string();
  }
  void UpdateNode(std::string_view key, std::int32_t first, std::int32_t second) override {
    Record("UpdateNode", key, std::to_string(first), std::to_string(second));
  }
  platform::WindowHandle MainWindow() override { return main_window; }
  std::int32_t RegisterEditor(std::string_view name) override {
    Record("RegisterEditor", name);
    return 1;
  }
  void HandOverEditor(std::int32_t handle) override {
    Record("HandOverEditor", std::to_string(handle));
  }
  void ShowError(std::string_view text) override { errors.emplace_back(text); }
  std::optional<std::string> ChooseItem(std::string_view current) override {
    Record("ChooseItem", current);
    if (chosen_items.empty()) return std::nullopt;
    std::string item = chosen_items.front();
    chosen_items.pop_front();
    return item;
  }
  void ShowCodeWindow() override { Record("ShowCodeWindow"); }
  void ShowWarnings(const std::vector<platform::Notice>& lines) override {
    for (const platform::Notice& line : lines) warnings.push_back(line.text);
  }

 private:
  template <class... Words>
  void Record(std::string_view name, const Words&... words) {
    std::string line(name);
    ((line += ' ', line += words), ...);
    calls.push_back(line);
    if (name == failing_call)
      throw platform::Error(platform::ErrorKind::kInternal, 5, messages::Message::Verbatim(line));
  }
  void RemoveWithChildren(std::string key) {
    std::vector<std::string> children;
    for (const Node& node : nodes) {
      if (node.parent == key) children.push_back(node.key);
    }
    std::erase_if(nodes, [&](const Node& node) { return node.key == key; });
    for (const std::string& child : children) RemoveWithChildren(child);
  }
};

}  // namespace support
