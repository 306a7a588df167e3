// SPDX-License-Identifier: MIT
#include "desktop/project_tree.h"

#include <algorithm>
#include <utility>

#include "editor/drag_kinds.h"
#include "editor/node_key.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

using studio::StudioNode;

constexpr std::size_t kFew = 20;  // formulas that find their places one by one

const StudioNode* ToNode(wx::TreeSource::Node node) { return static_cast<const StudioNode*>(node); }

}  // namespace

ProjectTree::ProjectTree(wxWindow* parent, const texts::TextTable& texts)
    : NativeTree(parent, wx::ToWx(texts.Text(studio::kTextTreeName))), arrangement_(texts) {
  on_selection = [this] { Report(); };
  on_expand = [this](Node node) {
    if (on_expand_node && !silent_) on_expand_node(*ToNode(node));
  };
  on_activate = [this](Node node) {
    if (on_activate_node) on_activate_node(*ToNode(node));
  };
  on_context_menu = [this] {
    const StudioNode* node = SelectedNode();
    if (node && on_menu) on_menu(*node);
  };
  arrangement_.on_added = [this](Node node, std::size_t index) { NodeAdded(node, index); };
  arrangement_.on_removed = [this](Node node, std::size_t index) { NodeRemoved(node, index); };
  arrangement_.on_changed = [this](Node node) { NodeChanged(node); };
  Bind(wxEVT_CHAR_HOOK, &ProjectTree::OnKeyDown, this);
  ConnectDrag();
}

void ProjectTree::ConnectDrag() {
  on_drag = [this](Node node) {
    const std::string& key = ToNode(node)->key;
    if (!editor::IsFormulaKey(key)) return;
    wx::DragRows(*this, {std::string(editor::kDraggedFormulas), {editor::KeyNumber(key)}});
  };
  SetDropTarget(
      new wx::RowDropTarget({[this](const wx::DraggedRows& rows, const wxPoint& point, bool copy) {
                               return DragOver(rows, point, copy);
                             },
                             [this] { ShowDropPlace(nullptr); },
                             [this](const wx::DraggedRows& rows, const wxPoint& point, bool copy) {
                               const Node node = tree_ ? NodeAt(point) : nullptr;
                               if (node && on_drop) on_drop(rows, *ToNode(node), copy);
                             }}));
}

wx::DropEffect ProjectTree::DragOver(const wx::DraggedRows& rows, const wxPoint& point, bool copy) {
  const Node node = tree_ ? NodeAt(point) : nullptr;
  const wx::DropEffect effect =
      node && on_drag_over ? on_drag_over(rows, *ToNode(node), copy) : wx::DropEffect::kNone;
  ShowDropPlace(effect == wx::DropEffect::kNone ? nullptr : node, point);
  return effect;
}

ProjectTree::~ProjectTree() { ShowTree(nullptr); }

void ProjectTree::Report() {
  const StudioNode* node = silent_ ? nullptr : SelectedNode();
  if (!node) return;
  const std::string group = arrangement_.IsGroup(*node) ? node->info : std::string();
  if (node->key == reported_ && group == reported_group_) return;
  reported_ = node->key;
  reported_group_ = group;
  if (on_select_node) on_select_node(*node);
}

void ProjectTree::OnKeyDown(wxKeyEvent& event) {
  const StudioNode* node = SelectedNode();
  const bool menu = event.GetKeyCode() == WXK_WINDOWS_MENU || event.GetKeyCode() == WXK_MENU ||
                    (event.GetKeyCode() == WXK_F10 && event.ShiftDown());
  if (menu && node && on_menu) return on_menu(*node);
  forms::KeyEvent key = wx::ToKeyEvent(event);
  if (node && on_key) on_key(*node, key);
  if (!key.handled) event.Skip();
}

const StudioNode* ProjectTree::SelectedNode() const { return tree_ ? ToNode(Selected()) : nullptr; }

void ProjectTree::ShowTree(studio::StudioTree* tree, FormulaFacts* facts) {
  if (tree_) tree_->observers = {};
  tree_ = nullptr;
  ShowSource(nullptr);
  reported_.clear();
  reported_group_.clear();
  open_.clear();
  open_groups_.clear();
  unsettled_.clear();
  tree_ = tree;
  facts_ = facts;
  arrangement_.Serve(tree, facts);
  if (!tree) return;
  if (facts_) facts_->ReadAll();
  arrangement_.Arrange(look_, filter_);
  ShowSource(&arrangement_);
  tree->observers.added = [this](const StudioNode& node) { OnAdded(node); };
  // Groups are found only while all above them is there.
  tree->observers.removing = [this](const StudioNode& node) {
    if (!arrangement_.IsFormula(node) || arrangement_.IsAloneInGroup(node)) RememberGroups();
  };
  tree->observers.removed = [this](const StudioNode& node, std::size_t index) {
    OnRemoved(node, index);
  };
  tree->observers.changed = [this](const StudioNode& node) { OnChanged(node); };
}

// --- What the model tells ---

void ProjectTree::OnAdded(const StudioNode& node) {
  if (arrangement_.IsFormula(node)) {
    unsettled_.push_back(node.key);
    return SettleLater();
  }
  NodeAdded(node.parent, arrangement_.IndexOf(&node));
  if (!open_.empty()) SettleLater();  // all of them are there then
}

// A node without children closes. Whoever removes the formula that is selected says what is
// selected in its place; otherwise it is what the native tree chose.
void ProjectTree::OnRemoved(const StudioNode& node, std::size_t index) {
  if (reported_ == node.key) {
    reported_.clear();
    CallAfter([this] { Report(); });
  }
  const std::string parent = node.parent ? node.parent->key : std::string();
  const bool was_open = node.parent && IsExpanded(node.parent);
  if (arrangement_.IsFormula(node)) {
    silent_ = true;
    arrangement_.Take(node);
    silent_ = false;
    on_formulas();
  } else {
    if (IsExpanded(node.parent, index)) open_.push_back(node.key);
    NodeRemoved(node.parent, index);
    const StudioNode* folder = tree_->Find(editor::kFormulasKey);
    if (folder && (folder == &node || folder->parent == &node)) arrangement_.Clear();
  }
  if (was_open && arrangement_.ChildCount(node.parent) == 0) open_.push_back(parent);
}

void ProjectTree::OnChanged(const StudioNode& node) {
  if (arrangement_.IsFormula(node)) {
    unsettled_.push_back(node.key);
    SettleLater();
  } else {
    NodeChanged(&node);
  }
  if (on_change) on_change(node);
}

// --- Places of formulas ---

void ProjectTree::SettleLater() {
  if (std::exchange(settling_, true)) return;
  CallAfter([this] { Settle(); });
}

void ProjectTree::Settle() {
  settling_ = false;
  const std::vector<std::string> keys = std::exchange(unsettled_, {});
  if (!tree_) return;
  if (keys.size() > kFew) {
    if (facts_) facts_->ReadAll();
    ArrangeAnew();
  } else if (!keys.empty()) {
    silent_ = true;
    RememberGroups();
    arrangement_.FindAgain();
    for (const std::string& key : keys) {
      const StudioNode* formula = tree_->Find(key);
      if (!formula) continue;
      if (facts_) facts_->Read(editor::KeyNumber(key));
      arrangement_.Put(*formula);
    }
    SelectAgain();
    silent_ = false;
    on_formulas();
  }
  OpenAgain();
  if (!keys.empty()) OpenGroups(arrangement_.Filtered());
}

void ProjectTree::SelectAgain() {
  const StudioNode* node = reported_.empty()         ? nullptr
                           : reported_group_.empty() ? tree_->Find(reported_)
                                                     : arrangement_.FindGroup(reported_group_);
  if (node && arrangement_.Shows(*node) && node != SelectedNode()) Select(node);
}

std::vector<const StudioNode*> ProjectTree::OpenNodes() const {
  std::vector<const StudioNode*> open;
  for (std::vector<const StudioNode*> level(tree_->Top().begin(), tree_->Top().end());
       !level.empty();) {
    std::vector<const StudioNode*> below;
    for (const StudioNode* node : level) {
      if (node->children.empty() || !IsExpanded(node)) continue;
      open.push_back(node);
      if (node->key != editor::kFormulasKey)
        below.insert(below.end(), node->children.begin(), node->children.end());
    }
    level = std::move(below);
  }
  return open;
}

void ProjectTree::RememberGroups() {
  if (arrangement_.Filtered()) return;  // which opens all of them
  for (const StudioNode* group : arrangement_.GroupNodes()) {
    if (IsExpanded(group)) {
      open_groups_.insert(group->info);
    } else {
      open_groups_.erase(group->info);
    }
  }
}

void ProjectTree::OpenGroups(bool all) {
  for (const StudioNode* group : arrangement_.GroupNodes()) {
    if (all || open_groups_.contains(group->info)) Expand(group);
  }
}

void ProjectTree::ArrangeAnew() {
  silent_ = true;
  const std::vector<const StudioNode*> open = OpenNodes();
  RememberGroups();
  ShowSource(nullptr);
  arrangement_.Arrange(look_, filter_);
  ShowSource(&arrangement_);
  for (const StudioNode* node : open) Expand(node);
  const bool found = arrangement_.Filtered() && arrangement_.FormulasShown() > 0;
  if (found) Expand(tree_->Find(editor::kFormulasKey));
  OpenGroups(found);
  SelectAgain();
  silent_ = false;
  if (!reported_group_.empty() && !arrangement_.FindGroup(reported_group_))
    SelectKey(std::string(editor::kFormulasKey));
  on_formulas();
}

void ProjectTree::SetLook(const TreeLook& look) {
  if (look == look_) return;
  look_ = look;
  if (tree_) ArrangeAnew();
}

void ProjectTree::SetFilter(const std::string& filter) {
  if (filter == filter_) return;
  filter_ = filter;
  if (tree_) ArrangeAnew();
}

// A node above another was closed after it.
void ProjectTree::OpenAgain() {
  const std::vector<std::string> closed = std::exchange(open_, {});
  for (auto key = closed.rbegin(); key != closed.rend(); ++key) {
    const StudioNode* node = tree_->Find(*key);
    if (node && arrangement_.ChildCount(node) > 0) {
      Expand(node);
    } else {
      open_.insert(open_.begin(), *key);
    }
  }
}

// --- Nodes by key ---

void ProjectTree::SelectKey(const std::string& key) {
  Settle();
  const StudioNode* node = tree_ ? tree_->Find(key) : nullptr;
  if (!node) return;
  if (!arrangement_.Shows(*node)) on_filter_in_the_way();
  if (arrangement_.Shows(*node)) Select(node);
}

void ProjectTree::SelectFirstFormula() {
  const std::vector<std::string> keys = arrangement_.FormulaKeys();
  if (!keys.empty()) SelectKey(keys.front());
}

std::string ProjectTree::SelectedKey() const { return reported_; }

std::vector<std::string> ProjectTree::KeysBelow(const std::string& key) const {
  if (key != editor::kFormulasKey) return tree_->Below(key, 1);
  std::vector<std::string> keys = arrangement_.FormulaKeys();
  const StudioNode* folder = tree_->Find(key);
  if (!folder || folder->children.size() == keys.size()) return keys;
  for (const StudioNode* formula : folder->children) {
    if (!arrangement_.Shows(*formula)) keys.push_back(formula->key);
  }
  return keys;
}

void ProjectTree::ExpandKey(const std::string& key) {
  Settle();
  if (const StudioNode* node = tree_ ? tree_->Find(key) : nullptr) Expand(node);
}

}  // namespace desktop
