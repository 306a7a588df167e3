// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/keys.h"
#include "studio/studio_tree.h"
#include "wx/native_tree.h"
#include "wx/row_drag.h"

namespace desktop {

// The studio's tree as a native tree. What the user does is reported by node; what the model tells
// is shown.
class ProjectTree : public wx::NativeTree {
 public:
  ProjectTree(wxWindow* parent, const wxString& name);
  ~ProjectTree() override;

  // Shows a tree; null shows none. The tree must outlive its showing.
  void ShowTree(studio::StudioTree* tree);
  const studio::StudioTree* Tree() const { return tree_; }
  // Selects a node as the user would.
  void SelectKey(const std::string& key);
  std::string SelectedKey() const;
  void ExpandKey(const std::string& key);

  std::function<void(const studio::StudioNode&)> on_select_node;
  std::function<void(const studio::StudioNode&)> on_change;  // told by the model
  std::function<void(const studio::StudioNode&)> on_expand_node;
  std::function<void(const studio::StudioNode&)> on_activate_node;  // double click or Enter
  std::function<void(const studio::StudioNode&, forms::KeyEvent&)> on_key;
  std::function<void(const studio::StudioNode&)> on_menu;
  // Rows of the program are dragged over a node, and dropped there; `copy`: Ctrl is held.
  std::function<wx::DropEffect(const wx::DraggedRows&, const studio::StudioNode&, bool copy)>
      on_drag_over;
  std::function<void(const wx::DraggedRows&, const studio::StudioNode&, bool copy)> on_drop;

 private:
  class Source : public wx::TreeSource {
   public:
    void SetTree(const studio::StudioTree* tree) { tree_ = tree; }

    Node ParentOf(Node node) const override;
    std::size_t ChildCount(Node parent) const override;
    Node ChildAt(Node parent, std::size_t index) const override;
    std::size_t IndexOf(Node node) const override;
    std::string TextOf(Node node) const override;
    std::string PictureOf(Node node) const override;

   private:
    const std::vector<studio::StudioNode*>& ChildrenOf(Node parent) const;

    const studio::StudioTree* tree_ = nullptr;
  };

  const studio::StudioNode* SelectedNode() const;
  void ConnectDrag();
  wx::DropEffect DragOver(const wx::DraggedRows& rows, const wxPoint& point, bool copy);
  void Report();
  void OnKeyDown(wxKeyEvent& event);
  void OnAdded(const studio::StudioNode& node);
  void OnRemoved(const studio::StudioNode& node, std::size_t index);
  void OpenAgain();

  Source source_;
  studio::StudioTree* tree_ = nullptr;
  std::string reported_;           // the node that on_select_node was told last
  std::vector<std::string> open_;  // keys of nodes that closed by a removal and may come back
  bool opening_ = false;           // they are looked for soon
};

}  // namespace desktop
