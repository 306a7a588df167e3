// SPDX-License-Identifier: MIT
#pragma once

#include <wx/dataview.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "forms/keys.h"
#include "workbench/studio_tree.h"

namespace desktop {

// The studio's tree as a native tree. What the user does is reported by node; what the model tells
// is shown.
class ProjectTree : public wxDataViewCtrl {
 public:
  ProjectTree(wxWindow* parent, const wxString& name);
  ~ProjectTree() override;

  // Shows a tree; null shows none. The tree must outlive its showing.
  void ShowTree(workbench::StudioTree* tree);
  // Selects a node as the user would.
  void SelectKey(const std::string& key);
  std::string SelectedKey() const;
  void ExpandKey(const std::string& key);

  std::function<void(const workbench::StudioNode&)> on_select;
  std::function<void(const workbench::StudioNode&)> on_change;  // told by the model
  std::function<void(const workbench::StudioNode&)> on_expand;
  std::function<void(const workbench::StudioNode&)> on_activate;  // double click or Enter
  std::function<void(const workbench::StudioNode&, forms::KeyEvent&)> on_key;
  std::function<void(const workbench::StudioNode&)> on_context_menu;

 private:
  class Model;

  void BindEvents();
  const workbench::StudioNode* NodeOf(const wxDataViewItem& item) const;
  void OnKeyDown(wxKeyEvent& event);
  void OnContextMenu(wxDataViewEvent& event);
  void OnAdded(const workbench::StudioNode& node);
  void OnRemoved(const workbench::StudioNode& node);
  bool IsTold(const workbench::StudioNode& node) const;
  void TellAdded();

  wxObjectDataPtr<Model> model_;
  workbench::StudioTree* tree_ = nullptr;
  std::string reported_;  // the node that on_select was told last
  // Nodes that the native tree was not told of. What is below them it asks for itself, all at once;
  // a node that it is told of costs it a search among all siblings.
  std::vector<const workbench::StudioNode*> untold_;
  std::set<std::string> open_;  // keys of open nodes that went and may come back
};

}  // namespace desktop
