// SPDX-License-Identifier: MIT
#include "studio/studio_tree.h"

#include <algorithm>
#include <utility>

namespace studio {

StudioTree::StudioTree() = default;
StudioTree::~StudioTree() = default;

StudioNode* StudioTree::Get(std::string_view key) const {
  const auto found = nodes_.find(std::string(key));
  return found == nodes_.end() ? nullptr : found->second.get();
}

const StudioNode* StudioTree::Find(std::string_view key) const { return Get(key); }

bool StudioTree::Add(std::string_view parent, StudioNode node) {
  StudioNode* above = parent.empty() ? nullptr : Get(parent);
  if (Get(node.key) || (!parent.empty() && !above)) return false;
  node.parent = above;
  node.children.clear();
  auto owned = std::make_unique<StudioNode>(std::move(node));
  StudioNode& added = *owned;
  nodes_.emplace(added.key, std::move(owned));
  (above ? above->children : top_).push_back(&added);
  if (observers.added) observers.added(added);
  return true;
}

void StudioTree::Remove(std::string_view key) {
  StudioNode* node = Get(key);
  if (!node) return;
  if (observers.removing) observers.removing(*node);
  std::vector<StudioNode*>& siblings = node->parent ? node->parent->children : top_;
  const auto place = std::find(siblings.begin(), siblings.end(), node);
  const auto index = static_cast<std::size_t>(place - siblings.begin());
  siblings.erase(place);
  if (observers.removed) observers.removed(*node, index);
  Erase(*node);
}

void StudioTree::Erase(StudioNode& node) {
  for (StudioNode* child : node.children) Erase(*child);
  nodes_.erase(std::string(node.key));
}

void StudioTree::SetText(std::string_view key, std::string_view text) {
  StudioNode* node = Get(key);
  if (!node) return;
  node->text = text;
  if (observers.changed) observers.changed(*node);
}

std::vector<std::string> StudioTree::Below(std::string_view key, int depth) const {
  std::vector<std::string> keys;
  const StudioNode* node = Get(key);
  if (!node || depth < 1) return keys;
  for (const StudioNode* child : node->children) {
    keys.push_back(child->key);
    const auto below = Below(child->key, depth - 1);
    keys.insert(keys.end(), below.begin(), below.end());
  }
  return keys;
}

}  // namespace studio
