// SPDX-License-Identifier: MIT
#include "studio/studio.h"

namespace studio {

namespace {

constexpr std::int32_t kDone = -1;  // true
constexpr std::int32_t kRefused = 0;
constexpr std::int32_t kEditorHandle = 1;  // there is one editor

}  // namespace

void Studio::RegisterPicture(std::string_view key, std::string_view picture) {
  pictures_.insert_or_assign(std::string(key), std::string(picture));
}

std::string Studio::PictureOf(std::string_view icon) const {
  const auto found = pictures_.find(icon);
  return found == pictures_.end() ? std::string() : found->second;
}

std::int32_t Studio::AddNode(std::string_view parent, std::string_view text, std::string_view key,
                             std::string_view info, std::string_view icon,
                             const platform::NodeFlags& flags) {
  StudioNode node;
  node.key = key;
  node.text = text;
  node.icon = icon;
  node.info = info;
  node.branch = flags.first != 0;
  return tree_.Add(parent, std::move(node)) ? kDone : kRefused;
}

std::vector<std::string> Studio::ChildKeys(std::string_view key, std::int32_t depth) {
  return depth == 1 && window.keys_below ? window.keys_below(key) : tree_.Below(key, depth);
}

platform::SelectedNode Studio::GetSelectedNode() {
  const StudioNode* node = tree_.Find(selected_);
  return node ? platform::SelectedNode{project_, node->key, node->text}
              : platform::SelectedNode{project_, "", ""};
}

void Studio::SelectNode(std::string_view key) {
  if (tree_.Find(key)) window.select_node(key);
}

void Studio::ActivateTree() { window.activate_tree(); }

std::string Studio::NodeInformation(std::string_view key, std::int32_t selector) {
  const StudioNode* node = tree_.Find(key);
  return node && selector == platform::kNodeInformationText ? node->text : std::string();
}

// The tree is a model that its view follows: nothing is left to do.
void Studio::UpdateNode(std::string_view, std::int32_t, std::int32_t) {}

platform::WindowHandle Studio::MainWindow() { return window.handle(); }

std::int32_t Studio::RegisterEditor(std::string_view) { return kEditorHandle; }

void Studio::HandOverEditor(std::int32_t) { window.editor_handed_over(); }

void Studio::ShowError(std::string_view text) { window.show_error(text); }

std::optional<std::string> Studio::ChooseItem(std::string_view current) {
  return window.choose_item(current);
}

void Studio::ShowCodeWindow() { window.show_code_window(); }

void Studio::ShowWarnings(const std::vector<platform::Notice>& warnings) {
  window.show_warnings(warnings);
}

}  // namespace studio
