// SPDX-License-Identifier: MIT
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "wx/convert.h"
#include "wx/native.h"
#include "wx/native_tree.h"
#include "wx/pictures.h"

namespace wx {

namespace {

constexpr long kStyle =
    wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_NO_LINES | wxTR_HIDE_ROOT | wxTR_SINGLE;
const wxColour kDimmedText(0x6b, 0x6b, 0x6b);  // a contrast of 5 on white

constexpr int kBorder = 12;  // pixels at 100 % at which a drag scrolls on

}  // namespace

// The native tree's items below a node come when it is opened for the first time.
struct NativeTree::State {
  struct Entry {
    Node node = nullptr;
    wxTreeItemId item;
    std::vector<std::unique_ptr<Entry>> children;
    bool filled = false;
  };

  const TreeSource* source = nullptr;
  Entry root;
  std::unordered_map<Node, Entry*> entries;
  std::unordered_map<std::string, int> pictures;  // places among the images
  wxWithImages::Images images;
  bool silent = false;  // changes of the selection are not the user's
  wxTreeItemId drop_place;

  Entry* Find(Node node) {
    if (!node) return &root;
    const auto found = entries.find(node);
    return found == entries.end() ? nullptr : found->second;
  }
  // Also the way to it.
  Entry* Make(NativeTree& tree, Node node) {
    if (!node) return &root;
    if (Entry* entry = Find(node)) return entry;
    Fill(tree, *Make(tree, source->ParentOf(node)));
    return Find(node);
  }
  int PictureOf(NativeTree& tree, Node node) {
    const std::string name = source->PictureOf(node);
    if (name.empty()) return -1;
    const auto [place, added] = pictures.try_emplace(name, static_cast<int>(images.size()));
    if (added) {
      images.push_back(Picture(name));
      tree.SetImages(images);
    }
    return place->second;
  }
  void ShowDimmed(NativeTree& tree, const Entry& entry) const {
    const bool dimmed = source->Dimmed(entry.node);
    if (!dimmed && !tree.GetItemTextColour(entry.item).IsOk()) return;
    tree.SetItemTextColour(entry.item, dimmed ? kDimmedText : tree.GetForegroundColour());
  }
  void Insert(NativeTree& tree, Entry& parent, std::size_t index) {
    const Node node = source->ChildAt(parent.node, index);
    const wxString text = ToWx(source->TextOf(node));
    const int picture = PictureOf(tree, node);
    auto entry = std::make_unique<Entry>();
    entry->node = node;
    entry->item =
        index == 0 ? tree.PrependItem(parent.item, text, picture)
                   : tree.InsertItem(parent.item, parent.children[index - 1]->item, text, picture);
    if (source->ChildCount(node) > 0) tree.SetItemHasChildren(entry->item);
    ShowDimmed(tree, *entry);
    tree.SetItemData(entry->item, new NodeData(node));
    entries[node] = entry.get();
    parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(index),
                           std::move(entry));
  }
  void Fill(NativeTree& tree, Entry& entry) {
    if (entry.filled) return;
    entry.filled = true;
    const std::size_t count = source->ChildCount(entry.node);
    for (std::size_t i = 0; i < count; ++i) Insert(tree, entry, i);
  }
  void Forget(const Entry& entry) {
    for (const auto& child : entry.children) Forget(*child);
    entries.erase(entry.node);
  }

  struct NodeData : wxTreeItemData {
    explicit NodeData(Node of) : node(of) {}
    Node node;
  };
  static Node NodeAt(const NativeTree& tree, const wxTreeItemId& item) {
    const auto* data = item.IsOk() ? static_cast<NodeData*>(tree.GetItemData(item)) : nullptr;
    return data ? data->node : nullptr;
  }
};

NativeTree::NativeTree(wxWindow* parent, const wxString& name)
    : wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kStyle),
      state_(std::make_unique<State>()) {
  SetAccessibleName(*this, name);
  const auto node = [this](const wxTreeEvent& event) {
    return State::NodeAt(*this, event.GetItem());
  };
  Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent&) {
    if (!state_->silent && on_selection) on_selection();
  });
  Bind(wxEVT_TREE_ITEM_EXPANDING, [this, node](wxTreeEvent& event) {
    if (State::Entry* entry = state_->Find(node(event))) state_->Fill(*this, *entry);
  });
  Bind(wxEVT_TREE_ITEM_EXPANDED, [this, node](wxTreeEvent& event) {
    if (on_expand && node(event)) on_expand(node(event));
  });
  Bind(wxEVT_TREE_ITEM_ACTIVATED, [this, node](wxTreeEvent& event) {
    if (on_activate && node(event)) on_activate(node(event));
  });
  Bind(wxEVT_TREE_ITEM_RIGHT_CLICK, [this](wxTreeEvent& event) {
    SetFocus();
    SelectItem(event.GetItem());
    if (on_context_menu) on_context_menu();
  });
  Bind(wxEVT_TREE_BEGIN_DRAG, [this, node](wxTreeEvent& event) {
    if (on_drag && node(event)) on_drag(node(event));
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    for (const auto& [picture, place] : state_->pictures)
      state_->images[static_cast<std::size_t>(place)] = Picture(picture);
    SetImages(state_->images);
  });
}

NativeTree::~NativeTree() {
  ShowSource(nullptr);
  SetEvtHandlerEnabled(false);  // the native tree reports until it is gone
}

void NativeTree::ShowSource(const TreeSource* source) {
  state_->silent = true;
  DeleteAllItems();
  state_->entries.clear();
  state_->root = {};
  state_->source = source;
  if (source) {
    state_->root.item = AddRoot(wxEmptyString);
    state_->Fill(*this, state_->root);
  }
  state_->silent = false;
}

void NativeTree::NodeAdded(Node parent, std::size_t index) {
  State::Entry* entry = state_->Find(parent);
  if (!entry) return;
  if (entry->filled && (!parent || !entry->children.empty()))
    return state_->Insert(*this, *entry, index);
  entry->filled = false;
  SetItemHasChildren(entry->item);
}

// The native tree would select a neighbour, as if the user had.
void NativeTree::NodeRemoved(Node parent, std::size_t index) {
  State::Entry* entry = state_->Find(parent);
  if (!entry) return;
  if (entry->filled) {
    const auto place = entry->children.begin() + static_cast<std::ptrdiff_t>(index);
    const wxTreeItemId item = (*place)->item;
    state_->silent = true;
    for (wxTreeItemId above = GetSelection(); above.IsOk() && above != GetRootItem();
         above = GetItemParent(above)) {
      if (above != item) continue;
      Unselect();
      break;
    }
    state_->Forget(**place);
    entry->children.erase(place);
    Delete(item);
    state_->silent = false;
  }
  if (parent && state_->source->ChildCount(parent) == 0) {
    wxTreeCtrl::Collapse(entry->item);
    SetItemHasChildren(entry->item, false);
  }
}

void NativeTree::NodeChanged(Node node) {
  const State::Entry* entry = state_->Find(node);
  if (!entry) return;
  SetItemText(entry->item, ToWx(state_->source->TextOf(node)));
  SetItemImage(entry->item, state_->PictureOf(*this, node));
  state_->ShowDimmed(*this, *entry);
}

void NativeTree::Select(Node node) {
  const State::Entry* entry = state_->Make(*this, node);
  if (!entry) return;
  EnsureVisible(entry->item);
  SelectItem(entry->item);
}

NativeTree::Node NativeTree::Selected() const { return State::NodeAt(*this, GetSelection()); }

void NativeTree::Expand(Node node) {
  if (const State::Entry* entry = state_->Make(*this, node)) wxTreeCtrl::Expand(entry->item);
}

void NativeTree::Collapse(Node node) {
  if (const State::Entry* entry = state_->Find(node)) wxTreeCtrl::Collapse(entry->item);
}

bool NativeTree::IsExpanded(Node node) const {
  const State::Entry* entry = state_->Find(node);
  return entry && wxTreeCtrl::IsExpanded(entry->item);
}

bool NativeTree::IsExpanded(Node parent, std::size_t index) const {
  const State::Entry* entry = state_->Find(parent);
  return entry && index < entry->children.size() &&
         wxTreeCtrl::IsExpanded(entry->children[index]->item);
}

NativeTree::Node NativeTree::NodeAt(const wxPoint& point) const {
  int flags = 0;
  const wxTreeItemId item = HitTest(point, flags);
  return (flags & wxTREE_HITTEST_ONITEM) != 0 ? State::NodeAt(*this, item) : nullptr;
}

void NativeTree::ShowDropPlace(Node node, const wxPoint& point) {
  const State::Entry* entry = node ? state_->Find(node) : nullptr;
  const wxTreeItemId item = entry ? entry->item : wxTreeItemId();
  if (item != state_->drop_place) {
    if (state_->drop_place.IsOk()) SetItemDropHighlight(state_->drop_place, false);
    if (item.IsOk()) SetItemDropHighlight(item, true);
    state_->drop_place = item;
  }
  const int border = FromDIP(kBorder);
  if (item.IsOk() && point.y < border) ScrollLines(-1);
  if (item.IsOk() && point.y > GetClientSize().y - border) ScrollLines(1);
}

}  // namespace wx
