// SPDX-License-Identifier: MIT
#include "desktop/project_tree.h"

#include <algorithm>
#include <utility>

#include "editor/drag_kinds.h"
#include "editor/node_key.h"
#include "wx/convert.h"

namespace desktop {

namespace {

using studio::StudioNode;

const StudioNode* ToNode(wx::TreeSource::Node node) { return static_cast<const StudioNode*>(node); }

}  // namespace

const std::vector<StudioNode*>& ProjectTree::Source::ChildrenOf(Node parent) const {
  return parent ? ToNode(parent)->children : tree_->Top();
}

wx::TreeSource::Node ProjectTree::Source::ParentOf(Node node) const { return ToNode(node)->parent; }

std::size_t ProjectTree::Source::ChildCount(Node parent) const { return ChildrenOf(parent).size(); }

wx::TreeSource::Node ProjectTree::Source::ChildAt(Node parent, std::size_t index) const {
  return ChildrenOf(parent)[index];
}

std::size_t ProjectTree::Source::IndexOf(Node node) const {
  const auto& siblings = ChildrenOf(ParentOf(node));
  const auto place = std::find(siblings.begin(), siblings.end(), node);
  return static_cast<std::size_t>(place - siblings.begin());
}

std::string ProjectTree::Source::TextOf(Node node) const { return ToNode(node)->text; }

std::string ProjectTree::Source::PictureOf(Node node) const { return ToNode(node)->icon; }

ProjectTree::ProjectTree(wxWindow* parent, const wxString& name) : NativeTree(parent, name) {
  on_selection = [this] { Report(); };
  on_expand = [this](Node node) {
    if (on_expand_node) on_expand_node(*ToNode(node));
  };
  on_activate = [this](Node node) {
    if (on_activate_node) on_activate_node(*ToNode(node));
  };
  on_context_menu = [this] {
    const StudioNode* node = SelectedNode();
    if (node && on_menu) on_menu(*node);
  };
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
  const StudioNode* node = SelectedNode();
  if (!node || node->key == reported_) return;
  reported_ = node->key;
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

void ProjectTree::ShowTree(studio::StudioTree* tree) {
  if (tree_) tree_->observers = {};
  tree_ = nullptr;
  ShowSource(nullptr);
  reported_.clear();
  open_.clear();
  if (!tree) return;
  tree_ = tree;
  source_.SetTree(tree);
  ShowSource(&source_);
  tree->observers.added = [this](const StudioNode& node) { OnAdded(node); };
  tree->observers.removed = [this](const StudioNode& node, std::size_t index) {
    OnRemoved(node, index);
  };
  tree->observers.changed = [this](const StudioNode& node) {
    NodeChanged(&node);
    if (on_change) on_change(node);
  };
}

void ProjectTree::OnAdded(const StudioNode& node) {
  NodeAdded(node.parent, source_.ChildCount(node.parent) - 1);
  if (open_.empty() || opening_) return;
  opening_ = true;
  CallAfter([this] { OpenAgain(); });  // all of them are there then
}

// A node without children closes.
void ProjectTree::OnRemoved(const StudioNode& node, std::size_t index) {
  if (reported_ == node.key) reported_.clear();
  if (IsExpanded(node.parent, index)) open_.push_back(node.key);
  const bool last = node.parent && node.parent->children.empty();
  if (last && IsExpanded(node.parent)) open_.push_back(node.parent->key);
  NodeRemoved(node.parent, index);
}

// A node above another was closed after it.
void ProjectTree::OpenAgain() {
  opening_ = false;
  if (!tree_) return;
  const std::vector<std::string> closed = std::exchange(open_, {});
  for (auto key = closed.rbegin(); key != closed.rend(); ++key) {
    const StudioNode* node = tree_->Find(*key);
    if (node && !node->children.empty()) {
      Expand(node);
    } else {
      open_.insert(open_.begin(), *key);
    }
  }
}

void ProjectTree::SelectKey(const std::string& key) {
  OpenAgain();
  if (const StudioNode* node = tree_ ? tree_->Find(key) : nullptr) Select(node);
}

std::string ProjectTree::SelectedKey() const {
  const StudioNode* node = SelectedNode();
  return node ? node->key : std::string();
}

void ProjectTree::ExpandKey(const std::string& key) {
  if (const StudioNode* node = tree_ ? tree_->Find(key) : nullptr) Expand(node);
}

}  // namespace desktop
