// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace studio {

struct StudioNode {
  std::string key;
  std::string text;
  std::string icon;
  std::string info;              // the fourth string of the studio's add operation
  bool branch = false;           // may have nodes below it
  StudioNode* parent = nullptr;  // null for a top node
  std::vector<StudioNode*> children;
};

// The studio's project tree: nodes by key, in the order in which they were added. Whoever shows
// the tree sets the observers; they are called after the change, but for `removing`.
class StudioTree {
 public:
  struct Observers {
    std::function<void(const StudioNode&)> added;
    std::function<void(const StudioNode&)> removing;  // it and all below it are still there
    // It is no longer below its parent, where `index` was its place; with all below it.
    std::function<void(const StudioNode&, std::size_t index)> removed;
    std::function<void(const StudioNode&)> changed;  // its text, or what it stands for
  };

  StudioTree();
  ~StudioTree();
  StudioTree(const StudioTree&) = delete;
  StudioTree& operator=(const StudioTree&) = delete;

  Observers observers;

  // False when the key is taken or the parent unknown; "" is no parent.
  bool Add(std::string_view parent, StudioNode node);
  void Remove(std::string_view key);
  void SetText(std::string_view key, std::string_view text);
  const StudioNode* Find(std::string_view key) const;
  // Keys of the nodes below, down to the depth, parents before children.
  std::vector<std::string> Below(std::string_view key, int depth) const;
  const std::vector<StudioNode*>& Top() const { return top_; }
  std::size_t size() const { return nodes_.size(); }

 private:
  StudioNode* Get(std::string_view key) const;
  void Erase(StudioNode& node);

  std::unordered_map<std::string, std::unique_ptr<StudioNode>> nodes_;
  std::vector<StudioNode*> top_;
};

}  // namespace studio
