// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "desktop/formula_facts.h"
#include "studio/studio_tree.h"
#include "texts/text_table.h"
#include "wx/tree_source.h"

namespace desktop {

// How the formulas stand below their folder.
struct TreeLook {
  enum class Grouping { kNone, kClass, kCallType };
  enum class Order { kCreated, kName };

  Grouping grouping = Grouping::kNone;
  Order order = Order::kCreated;
  friend bool operator==(const TreeLook&, const TreeLook&) = default;
};

// The studio's tree as it is shown: the formulas grouped, ordered and filtered, everything else as
// it is. All nodes that it gives are StudioNodes. Those of the groups are its own: they have the
// folder's key, and the class or the number of the call type as info.
class TreeArrangement : public wx::TreeSource {
 public:
  // The texts outlive it.
  explicit TreeArrangement(const texts::TextTable& texts);
  ~TreeArrangement() override;

  // Told of one node, after the change.
  std::function<void(Node parent, std::size_t index)> on_added, on_removed;
  std::function<void(Node node)> on_changed;

  // Of the tree and the facts nothing is arranged yet; null: there are none.
  void Serve(const studio::StudioTree* tree, FormulaFacts* facts);
  // Arranges all formulas anew, without telling of each: those that the filter finds, all of them
  // for a filter without a word.
  void Arrange(const TreeLook& look, const std::string& filter);
  const TreeLook& look() const { return look_; }
  bool Filtered() const { return filtered_; }

  // Asks again which formulas the filter finds; Put counts on it.
  void FindAgain();
  // A formula that came or is otherwise now goes where it belongs.
  void Put(const studio::StudioNode& formula);
  // It goes.
  void Take(const studio::StudioNode& formula);
  // All of them go, without telling.
  void Clear();

  bool IsFormula(const studio::StudioNode& node) const;
  // Whether it is shown; what is no formula always is.
  bool Shows(const studio::StudioNode& node) const;
  std::size_t FormulasShown() const { return group_of_.size(); }
  std::size_t Formulas() const;
  // Keys of the formulas in the order in which they are shown.
  std::vector<std::string> FormulaKeys() const;
  bool IsGroup(const studio::StudioNode& node) const;
  // Whether the formula's group goes when it does.
  bool IsAloneInGroup(const studio::StudioNode& formula) const;
  // The node of a group; null when there is none.
  const studio::StudioNode* FindGroup(const std::string& info) const;
  std::vector<const studio::StudioNode*> GroupNodes() const;

  Node ParentOf(Node node) const override;
  std::size_t ChildCount(Node parent) const override;
  Node ChildAt(Node parent, std::size_t index) const override;
  std::size_t IndexOf(Node node) const override;
  std::string TextOf(Node node) const override;
  std::string PictureOf(Node node) const override;
  bool Dimmed(Node node) const override;

 private:
  using Formula = const studio::StudioNode*;
  struct Group {
    studio::StudioNode node;
    std::int32_t type = 0;
    std::vector<Formula> formulas;
  };

  studio::StudioNode* Folder() const;
  const store::FormulaRecord* FactsOf(const studio::StudioNode& formula) const;
  bool Wanted(const studio::StudioNode& formula) const;
  // Without formulas, as one to which a formula belongs.
  std::unique_ptr<Group> NewGroup(const studio::StudioNode& formula) const;
  std::size_t PlaceOfGroup(const Group& group) const;
  Group& GroupFor(const studio::StudioNode& formula, bool tell);
  bool Before(Formula a, Formula b) const;
  // The folder while nothing is grouped.
  Node NodeOf(const Group& group) const;
  // Null for a node that is no group's.
  const Group* GroupAt(Node node) const;
  bool Grouped() const { return look_.grouping != TreeLook::Grouping::kNone; }
  std::string FoldedName(Formula formula) const;

  const texts::TextTable& texts_;
  const studio::StudioTree* tree_ = nullptr;
  FormulaFacts* facts_ = nullptr;
  TreeLook look_;
  bool filtered_ = false;
  std::unordered_set<std::int32_t> found_;
  std::string filter_;
  std::vector<std::unique_ptr<Group>> groups_;  // one while nothing is grouped
  std::unordered_map<Formula, Group*> group_of_;
};

}  // namespace desktop
