// SPDX-License-Identifier: MIT
#pragma once

#ifdef __WXGTK__
#include <wx/nativewin.h>
#else
#include <wx/treectrl.h>
#endif

#include <functional>
#include <memory>

#include "wx/tree_source.h"

namespace wx {

#ifdef __WXGTK__
using NativeTreeBase = wxNativeWindow;
#else
using NativeTreeBase = wxTreeCtrl;
#endif

// The system's tree over a source, whose changes it has to be told. One node can be selected.
class NativeTree : public NativeTreeBase {
 public:
  using Node = TreeSource::Node;

  // The name is for screen readers.
  NativeTree(wxWindow* parent, const wxString& name);
  ~NativeTree() override;

  // Shows what the source holds now; null shows nothing. The source must outlive its showing.
  void ShowSource(const TreeSource* source);
  // After the change: the place of the new node, or where the node was that went with all below it.
  void NodeAdded(Node parent, std::size_t index);
  void NodeRemoved(Node parent, std::size_t index);
  void NodeChanged(Node node);

  // Selects a node, opens the nodes above it and scrolls to it. The keyboard of the tree is there.
  void Select(Node node);
  // Null when none is.
  Node Selected() const;
  void Expand(Node node);
  void Collapse(Node node);
  bool IsExpanded(Node node) const;
  // The node's place is given, since the node may just have gone.
  bool IsExpanded(Node parent, std::size_t index) const;

  // The node at a point of the client area; null when there is none.
  Node NodeAt(const wxPoint& point) const;
  // Marks the node that takes what is dropped there; null marks none. Scrolls on at the border.
  void ShowDropPlace(Node node, const wxPoint& point = {});

  std::function<void(Node)> on_drag;  // the mouse begins to drag a node: to be done at once
  std::function<void()> on_selection;
  std::function<void(Node)> on_expand;
  std::function<void(Node)> on_activate;  // double click or Enter
  std::function<void()> on_context_menu;  // by the mouse, on the node that is selected then

#ifdef __WXGTK__
  void SetDropTarget(wxDropTarget* target) override;

 protected:
  GtkWidget* GetConnectWidget() override;
  GdkWindow* GTKGetWindow(wxArrayGdkWindows& windows) const override;

 private:
  void Create(wxWindow* parent);
  bool MoveSideways(int key);
#endif

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wx
