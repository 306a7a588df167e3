// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "desktop/formula_facts.h"
#include "desktop/tree_arrangement.h"
#include "forms/keys.h"
#include "studio/studio_tree.h"
#include "wx/native_tree.h"
#include "wx/row_drag.h"

namespace desktop {

// The studio's tree as a native tree. What the user does is reported by node; what the model tells
// is shown.
class ProjectTree : public wx::NativeTree {
 public:
  // The texts outlive the tree.
  ProjectTree(wxWindow* parent, const texts::TextTable& texts);
  ~ProjectTree() override;

  // Shows a tree; null shows none. The tree and the facts, null for none, must outlive its showing.
  void ShowTree(studio::StudioTree* tree, FormulaFacts* facts = nullptr);
  const studio::StudioTree* Tree() const { return tree_; }
  // Selects a node as the user would; a filter that hides it goes first.
  void SelectKey(const std::string& key);
  // Of the node that was selected last, also while a filter hides it.
  std::string SelectedKey() const;
  // The class, or the number of the call type, of the group that is selected; "" when none is.
  const std::string& SelectedGroup() const { return reported_group_; }
  void ExpandKey(const std::string& key);
  // Keys of the nodes below one, in the order in which they are shown; behind them those that a
  // filter hides.
  std::vector<std::string> KeysBelow(const std::string& key) const;

  void SetLook(const TreeLook& look);
  const TreeLook& Look() const { return look_; }
  // Shows only the formulas that the words find.
  void SetFilter(const std::string& filter);
  std::size_t FormulasShown() const { return arrangement_.FormulasShown(); }
  std::size_t Formulas() const { return arrangement_.Formulas(); }
  // Goes to the first formula that is shown.
  void SelectFirstFormula();

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
  std::function<void()> on_filter_in_the_way = [] {};  // it is to be emptied
  std::function<void()> on_formulas = [] {};           // others are shown

 private:
  const studio::StudioNode* SelectedNode() const;
  void ConnectDrag();
  wx::DropEffect DragOver(const wx::DraggedRows& rows, const wxPoint& point, bool copy);
  void Report();
  void OnKeyDown(wxKeyEvent& event);
  void OnAdded(const studio::StudioNode& node);
  void OnRemoved(const studio::StudioNode& node, std::size_t index);
  void OnChanged(const studio::StudioNode& node);
  void SettleLater();
  // Formulas that came or changed go to their places.
  void Settle();
  void ArrangeAnew();
  void OpenAgain();
  std::vector<const studio::StudioNode*> OpenNodes() const;
  void RememberGroups();
  void OpenGroups(bool all);
  void SelectAgain();

  TreeArrangement arrangement_;
  FormulaFacts* facts_ = nullptr;
  studio::StudioTree* tree_ = nullptr;
  TreeLook look_;
  std::string filter_;
  std::string reported_;                // the node that on_select_node was told last
  std::string reported_group_;          // and what it stands for, if it is a group
  std::vector<std::string> open_;       // keys of nodes that closed by a removal and may come back
  std::set<std::string> open_groups_;   // while there is no filter
  std::vector<std::string> unsettled_;  // keys of formulas
  bool settling_ = false;               // soon
  bool silent_ = false;                 // what is selected is not the user's choice
};

}  // namespace desktop
