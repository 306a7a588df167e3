// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace wx {

// A tree as a native tree asks for it: node by node, as they come in sight.
class TreeSource {
 public:
  using Node = const void*;

  virtual ~TreeSource() = default;

  // Null for a top node.
  virtual Node ParentOf(Node node) const = 0;
  // Of the top nodes for null.
  virtual std::size_t ChildCount(Node parent) const = 0;
  virtual Node ChildAt(Node parent, std::size_t index) const = 0;
  // Place of a node among the children of its parent.
  virtual std::size_t IndexOf(Node node) const = 0;
  virtual std::string TextOf(Node node) const = 0;
  // Name of a picture; "" for none.
  virtual std::string PictureOf(Node node) const = 0;
  // Its text stands back behind those of the others.
  virtual bool Dimmed(Node) const { return false; }
};

}  // namespace wx
