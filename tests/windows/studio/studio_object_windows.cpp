// SPDX-License-Identifier: MIT
#include "tests/windows/studio/studio_object_windows.h"

#include <commctrl.h>

#include <cstring>
#include <stdexcept>
#include <utility>
#include <vector>

namespace studio_host {

using com::Arguments;
using com::Value;

const com::Member<StudioObject> StudioObject::kMembers[14] = {
    {L"RegisterPicture", &StudioObject::RegisterPicture},
    {L"AddNode", &StudioObject::AddNode},
    {L"RemoveNode", &StudioObject::RemoveNode},
    {L"ChildKeys", &StudioObject::ChildKeys},
    {L"SelectedNode", &StudioObject::SelectedNode},
    {L"UpdateNode", &StudioObject::UpdateNode},
    {L"MainWindow", &StudioObject::MainWindow},
    {L"RegisterEditor", &StudioObject::RegisterEditor},
    {L"HandOverEditor", &StudioObject::HandOverEditor},
    {L"SetNodeText", &StudioObject::SetNodeText},
    {L"SelectNode", &StudioObject::SelectNode},
    {L"ActivateTree", &StudioObject::ActivateTree},
    {L"NodeInformation", &StudioObject::NodeInformation},
    {L"ShowMessage", &StudioObject::ShowMessage},
};

void StudioObject::Check() const {
  if (fails_) com::Require(E_FAIL);
}

std::wstring StudioObject::KeyOf(HTREEITEM item) const {
  for (const auto& [key, place] : items_) {
    if (place == item) return key;
  }
  return {};
}

std::wstring StudioObject::SelectedKey() const { return KeyOf(TreeView_GetSelection(tree_)); }

std::wstring StudioObject::TextOf(const std::wstring& key) const {
  const auto item = items_.find(key);
  if (item == items_.end()) return {};
  wchar_t text[256] = {};
  TVITEMW question = {};
  question.mask = TVIF_TEXT;
  question.hItem = item->second;
  question.pszText = text;
  question.cchTextMax = static_cast<int>(std::size(text));
  SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&question));
  return text;
}

void StudioObject::Select(const std::wstring& key) {
  const auto item = items_.find(key);
  if (item != items_.end()) TreeView_SelectItem(tree_, item->second);
}

void StudioObject::Expand(const std::wstring& key) {
  const auto item = items_.find(key);
  if (item != items_.end()) TreeView_Expand(tree_, item->second, TVE_EXPAND);
}

POINT StudioObject::PlaceOf(const std::wstring& key) {
  const auto item = items_.find(key);
  if (item == items_.end()) throw std::runtime_error("no node " + com::Utf8(key));
  TreeView_EnsureVisible(tree_, item->second);
  RECT text = {};
  std::memcpy(&text, &item->second, sizeof item->second);  // whose rectangle is asked for
  SendMessageW(tree_, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&text));
  POINT place = {(text.left + text.right) / 2, (text.top + text.bottom) / 2};
  ClientToScreen(tree_, &place);
  return place;
}

Value StudioObject::RegisterPicture(const Arguments& arguments) {
  Check();
  if (!arguments.Object(1)) com::Require(E_POINTER);
  return {};
}

Value StudioObject::AddNode(const Arguments& arguments) {
  Check();
  arguments.Demand(9);
  const auto parent = items_.find(com::Wide(arguments.Text(0)));
  std::wstring text = com::Wide(arguments.Text(1));
  TVINSERTSTRUCTW node = {};
  node.hParent = parent == items_.end() ? TVI_ROOT : parent->second;
  node.hInsertAfter = TVI_LAST;
  node.item.mask = TVIF_TEXT;
  node.item.pszText = text.data();
  items_[com::Wide(arguments.Text(2))] = reinterpret_cast<HTREEITEM>(
      SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&node)));
  if (on_add) on_add();
  return Value(0);
}

// Takes what is below a node out of the keys.
void StudioObject::Forget(HTREEITEM item) {
  for (HTREEITEM child = TreeView_GetChild(tree_, item); child;
       child = TreeView_GetNextSibling(tree_, child)) {
    Forget(child);
    items_.erase(KeyOf(child));
  }
}

Value StudioObject::RemoveNode(const Arguments& arguments) {
  Check();
  const auto item = items_.find(com::Wide(arguments.Text(0)));
  if (item == items_.end()) com::Require(E_INVALIDARG);
  Forget(item->second);
  TreeView_DeleteItem(tree_, item->second);
  items_.erase(item);
  return {};
}

Value StudioObject::ChildKeys(const Arguments& arguments) {
  Check();
  std::vector<std::string> keys;
  const auto item = items_.find(com::Wide(arguments.Text(0)));
  if (item == items_.end()) return Value::List(keys);
  for (HTREEITEM child = TreeView_GetChild(tree_, item->second); child;
       child = TreeView_GetNextSibling(tree_, child)) {
    keys.push_back(com::Utf8(KeyOf(child)));
  }
  return Value::List(keys);
}

Value StudioObject::SelectedNode(const Arguments& arguments) {
  Check();
  const std::wstring key = SelectedKey();
  arguments.Return(0, Value("Plant"));
  arguments.Return(1, Value(com::Utf8(key)));
  arguments.Return(2, Value(com::Utf8(TextOf(key))));
  return {};
}

Value StudioObject::UpdateNode(const Arguments&) {
  Check();
  return {};
}

Value StudioObject::MainWindow(const Arguments&) {
  Check();
  return Value(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window_)));
}

Value StudioObject::RegisterEditor(const Arguments&) {
  Check();
  return Value(1);
}

Value StudioObject::HandOverEditor(const Arguments&) {
  Check();
  return {};
}

Value StudioObject::SetNodeText(const Arguments& arguments) {
  Check();
  const auto found = items_.find(com::Wide(arguments.Text(0)));
  if (found == items_.end()) com::Require(E_INVALIDARG);
  std::wstring text = com::Wide(arguments.Text(1));
  TVITEMW item = {};
  item.mask = TVIF_TEXT;
  item.hItem = found->second;
  item.pszText = text.data();
  SendMessageW(tree_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  return {};
}

Value StudioObject::SelectNode(const Arguments& arguments) {
  Check();
  Select(com::Wide(arguments.Text(0)));
  return {};
}

Value StudioObject::ActivateTree(const Arguments&) {
  Check();
  SetActiveWindow(window_);
  SetFocus(tree_);
  return {};
}

Value StudioObject::NodeInformation(const Arguments& arguments) {
  Check();
  return Value(com::Utf8(TextOf(com::Wide(arguments.Text(0)))));
}

Value StudioObject::ShowMessage(const Arguments& arguments) {
  Check();
  std::wstring title = L"Studio: " + com::Wide(arguments.Text(0));
  SetWindowTextW(window_, title.c_str());
  return {};
}

}  // namespace studio_host
