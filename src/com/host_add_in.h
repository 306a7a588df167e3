// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "com/late_bound.h"
#include "platform/studio.h"

namespace com {

// The studio's add-in object, driven by name. What a studio lacks is made up for: nodes remember
// their texts, messages are shown by us. A call that raises an error is one that did nothing: the
// user can mend nothing of it, and a studio that fails must not keep the editor from ending.
class HostAddIn final : public platform::AddIn {
 public:
  // What stands in for members that a studio may lack, and makes its pictures.
  struct Fallbacks {
    std::function<Reference<IDispatch>(std::string_view picture)> picture;
    std::function<void(const std::string& text)> show_message;
  };

  HostAddIn(LateBound studio, Fallbacks fallbacks)
      : studio_(std::move(studio)), fallbacks_(std::move(fallbacks)) {}

  const LateBound& studio() const { return studio_; }

  void RegisterPicture(std::string_view key, std::string_view picture) override;
  std::int32_t AddNode(std::string_view parent, std::string_view text, std::string_view key,
                       std::string_view info, std::string_view icon,
                       const platform::NodeFlags& flags) override;
  void RemoveNode(std::string_view key) override;
  void SetNodeText(std::string_view key, std::string_view text) override;
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
  // The result of a call; an empty value when it failed.
  Value Ask(const wchar_t* name, LateBound::Arguments arguments = {}) const;

  struct Node {
    std::string parent, text, info, icon;
    platform::NodeFlags flags;
  };

  LateBound studio_;
  Fallbacks fallbacks_;
  std::map<std::string, Node, std::less<>> nodes_;  // that were added, by key
};

}  // namespace com
