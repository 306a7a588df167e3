// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/studio.h"
#include "studio/studio_tree.h"

namespace studio {

// The studio's add-in object where there is no studio: the tree is a model, everything else is
// asked of the window that shows it.
class Studio final : public platform::AddIn {
 public:
  // What the window does. All of them are set before an add-in is started.
  struct Window {
    std::function<platform::WindowHandle()> handle;
    std::function<void(std::string_view key)> select_node;
    std::function<void()> activate_tree;
    // In the order in which they are shown.
    std::function<std::vector<std::string>(std::string_view key)> keys_below;
    std::function<void(std::string_view text)> show_error;
    std::function<std::optional<std::string>(std::string_view current)> choose_item;
    std::function<void()> show_code_window;
    std::function<void(const std::vector<platform::Notice>&)> show_warnings;
    std::function<void()> editor_handed_over;
  };

  explicit Studio(std::string project) : project_(std::move(project)) {}

  StudioTree& tree() { return tree_; }
  Window window;
  // The window reports the node that the user selected.
  void SetSelectedKey(std::string_view key) { selected_ = key; }
  const std::string& project() const { return project_; }
  // Key of the picture that was registered for an icon; "" for none.
  std::string PictureOf(std::string_view icon) const;

  void RegisterPicture(std::string_view key, std::string_view picture) override;
  std::int32_t AddNode(std::string_view parent, std::string_view text, std::string_view key,
                       std::string_view info, std::string_view icon,
                       const platform::NodeFlags& flags) override;
  void RemoveNode(std::string_view key) override { tree_.Remove(key); }
  void SetNodeText(std::string_view key, std::string_view text) override {
    tree_.SetText(key, text);
  }
  std::vector<std::string> ChildKeys(std::string_view key, std::int32_t depth) override;
  platform::SelectedNode GetSelectedNode() override;
  void SelectNode(std::string_view key) override;
  void ActivateTree() override;
  std::string NodeInformation(std::string_view key, std::int32_t selector) override;
  void UpdateNode(std::string_view key, std::int32_t first, std::int32_t second) override;
  platform::WindowHandle MainWindow() override;
  std::int32_t RegisterEditor(std::string_view name) override;
  void HandOverEditor(std::int32_t handle) override;
  void ShowError(std::string_view text) override;
  std::optional<std::string> ChooseItem(std::string_view current) override;
  void ShowCodeWindow() override;
  void ShowWarnings(const std::vector<platform::Notice>& warnings) override;

 private:
  std::string project_;
  StudioTree tree_;
  std::string selected_;
  std::map<std::string, std::string, std::less<>> pictures_;
};

}  // namespace studio
