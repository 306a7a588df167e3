// SPDX-License-Identifier: MIT
#include "desktop/project_tree.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "wx/convert.h"
#include "wx/native.h"
#include "wx/pictures.h"

namespace desktop {

namespace {

using workbench::StudioNode;

wxDataViewItem ItemOf(const StudioNode* node) {
  return wxDataViewItem(const_cast<StudioNode*>(node));
}

const StudioNode* ToNode(const wxDataViewItem& item) {
  return static_cast<const StudioNode*>(item.GetID());
}

}  // namespace

class ProjectTree::Model : public wxDataViewModel {
 public:
  void SetTree(workbench::StudioTree* tree) {
    tree_ = tree;
    Cleared();
  }

  void GetValue(wxVariant& value, const wxDataViewItem& item, unsigned) const override {
    const StudioNode* node = ToNode(item);
    value << wxDataViewIconText(wx::ToWx(node->text), Icon(node->icon));
  }
  // They are drawn anew in the colours that hold now.
  void ForgetIcons() { icons_.clear(); }
  bool SetValue(const wxVariant&, const wxDataViewItem&, unsigned) override { return false; }
  wxDataViewItem GetParent(const wxDataViewItem& item) const override {
    return item.IsOk() ? ItemOf(ToNode(item)->parent) : wxDataViewItem();
  }
  bool IsContainer(const wxDataViewItem& item) const override {
    return !item.IsOk() || ToNode(item)->branch;
  }
  unsigned GetChildren(const wxDataViewItem& item, wxDataViewItemArray& children) const override {
    if (!tree_) return 0;
    const auto& nodes = item.IsOk() ? ToNode(item)->children : tree_->Top();
    for (const StudioNode* node : nodes) children.Add(ItemOf(node));
    return static_cast<unsigned>(nodes.size());
  }
  // Nodes stay in the order in which they were added.
  bool HasDefaultCompare() const override { return false; }

 private:
  // Drawn once: the native tree asks again and again for each node that it shows or searches.
  const wxIcon& Icon(const std::string& name) const {
    wxIcon& icon = icons_[name];
    if (!icon.IsOk()) icon.CopyFromBitmap(wx::Picture(name).GetBitmap(wxDefaultSize));
    return icon;
  }

  workbench::StudioTree* tree_ = nullptr;
  mutable std::map<std::string, wxIcon> icons_;
};

ProjectTree::ProjectTree(wxWindow* parent, const wxString& name)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                     wxDV_SINGLE | wxDV_NO_HEADER | wxBORDER_NONE),
      model_(new Model) {
  AssociateModel(model_.get());
  auto* renderer = new wxDataViewIconTextRenderer;
  renderer->EnableEllipsize(wxELLIPSIZE_END);
  auto* column = new wxDataViewColumn("", renderer, 0, FromDIP(100), wxALIGN_LEFT);
  AppendColumn(column);
  SetExpanderColumn(column);
  wx::SetAccessibleName(*this, name);
  wx::DisableNativeSearch(*this);
  wx::MeasureOneRow(*this);
  BindEvents();
}

ProjectTree::~ProjectTree() { ShowTree(nullptr); }

void ProjectTree::BindEvents() {
  Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent& event) {
    const StudioNode* node = NodeOf(event.GetItem());
    if (!node || node->key == reported_) return;
    reported_ = node->key;
    if (on_select) on_select(*node);
  });
  Bind(wxEVT_DATAVIEW_ITEM_EXPANDED, [this](wxDataViewEvent& event) {
    const StudioNode* node = NodeOf(event.GetItem());
    if (node && on_expand) on_expand(*node);
  });
  Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    const StudioNode* node = NodeOf(event.GetItem());
    if (node && on_activate) on_activate(*node);
  });
  Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, &ProjectTree::OnContextMenu, this);
  Bind(wxEVT_CHAR_HOOK, &ProjectTree::OnKeyDown, this);
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    model_->ForgetIcons();
    Refresh();
  });
}

void ProjectTree::OnKeyDown(wxKeyEvent& event) {
  const StudioNode* node = NodeOf(GetSelection());
  const bool menu = event.GetKeyCode() == WXK_WINDOWS_MENU || event.GetKeyCode() == WXK_MENU ||
                    (event.GetKeyCode() == WXK_F10 && event.ShiftDown());
  if (menu && node && on_context_menu) return on_context_menu(*node);
  forms::KeyEvent key = wx::ToKeyEvent(event);
  if (node && on_key) on_key(*node, key);
  if (!key.handled) event.Skip();
}

void ProjectTree::OnContextMenu(wxDataViewEvent& event) {
  const StudioNode* node = NodeOf(event.GetItem());
  if (!node) return;
  if (GetSelection() != event.GetItem()) SelectKey(node->key);
  if (on_context_menu) on_context_menu(*node);
}

const StudioNode* ProjectTree::NodeOf(const wxDataViewItem& item) const {
  return tree_ && item.IsOk() ? ToNode(item) : nullptr;
}

void ProjectTree::ShowTree(workbench::StudioTree* tree) {
  if (tree_) tree_->observers = {};
  tree_ = tree;
  reported_.clear();
  untold_.clear();
  open_.clear();
  model_->SetTree(tree);
  if (!tree) return;
  tree->observers.added = [this](const StudioNode& node) { OnAdded(node); };
  tree->observers.removed = [this](const StudioNode& node) { OnRemoved(node); };
  tree->observers.changed = [this](const StudioNode& node) {
    if (IsTold(node)) model_->ItemChanged(ItemOf(&node));
    if (on_change) on_change(node);
  };
}

void ProjectTree::OnAdded(const StudioNode& node) {
  if (!IsTold(node)) return;
  if (untold_.empty()) CallAfter([this] { TellAdded(); });
  untold_.push_back(&node);
}

void ProjectTree::OnRemoved(const StudioNode& node) {
  if (reported_ == node.key) reported_.clear();
  if (IsTold(node)) {
    if (IsExpanded(ItemOf(&node))) open_.insert(node.key);
    model_->ItemDeleted(ItemOf(node.parent), ItemOf(&node));
  }
  std::erase(untold_, &node);
}

bool ProjectTree::IsTold(const StudioNode& node) const {
  for (const StudioNode* above = &node; above; above = above->parent) {
    if (std::find(untold_.begin(), untold_.end(), above) != untold_.end()) return false;
  }
  return true;
}

void ProjectTree::TellAdded() {
  const std::vector<const StudioNode*> added = std::exchange(untold_, {});
  for (const StudioNode* node : added) model_->ItemAdded(ItemOf(node->parent), ItemOf(node));
  for (const StudioNode* node : added) {
    if (open_.erase(node->key) > 0) Expand(ItemOf(node));
  }
}

void ProjectTree::SelectKey(const std::string& key) {
  TellAdded();
  const StudioNode* node = tree_ ? tree_->Find(key) : nullptr;
  if (!node) return;
  EnsureVisible(ItemOf(node));
  Select(ItemOf(node));
  wx::PutKeyboardOnSelection(*this);
  if (node->key == reported_) return;
  reported_ = node->key;
  if (on_select) on_select(*node);
}

std::string ProjectTree::SelectedKey() const {
  const StudioNode* node = NodeOf(GetSelection());
  return node ? node->key : std::string();
}

void ProjectTree::ExpandKey(const std::string& key) {
  TellAdded();
  if (const StudioNode* node = tree_ ? tree_->Find(key) : nullptr) Expand(ItemOf(node));
}

}  // namespace desktop
