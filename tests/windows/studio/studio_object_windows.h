// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>

#include "com/automation_object.h"

#include <commctrl.h>

namespace studio_host {

// The add-in object of a studio: nodes in a tree control.
class StudioObject final : public com::Automation<StudioObject> {
 public:
  explicit StudioObject(HWND window, HWND tree) : window_(window), tree_(tree) {}

  // From now on every call raises an error.
  void Fail() { fails_ = true; }
  // Called at each node that is added.
  std::function<void()> on_add;

  std::wstring SelectedKey() const;
  std::wstring TextOf(const std::wstring& key) const;
  std::wstring KeyOf(HTREEITEM item) const;
  bool Has(const std::wstring& key) const { return items_.contains(key); }
  void Select(const std::wstring& key);
  void Expand(const std::wstring& key);
  // The middle of the node's text on the screen. Raises std::runtime_error when there is no such
  // node.
  POINT PlaceOf(const std::wstring& key);
  std::size_t NodeCount() const { return items_.size(); }

  static constexpr wchar_t kClassName[] = L"Studio";
  static const com::Member<StudioObject> kMembers[14];

 private:
  void Check() const;
  void Forget(HTREEITEM item);
  com::Value RegisterPicture(const com::Arguments& arguments);
  com::Value AddNode(const com::Arguments& arguments);
  com::Value RemoveNode(const com::Arguments& arguments);
  com::Value ChildKeys(const com::Arguments& arguments);
  com::Value SelectedNode(const com::Arguments& arguments);
  com::Value UpdateNode(const com::Arguments&);
  com::Value MainWindow(const com::Arguments&);
  com::Value RegisterEditor(const com::Arguments&);
  com::Value HandOverEditor(const com::Arguments&);
  com::Value SetNodeText(const com::Arguments& arguments);
  com::Value SelectNode(const com::Arguments& arguments);
  com::Value ActivateTree(const com::Arguments&);
  com::Value NodeInformation(const com::Arguments& arguments);
  com::Value ShowMessage(const com::Arguments& arguments);

  HWND window_;
  HWND tree_;
  bool fails_ = false;
  std::map<std::wstring, HTREEITEM> items_;
};

}  // namespace studio_host
