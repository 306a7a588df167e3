// SPDX-License-Identifier: MIT
#include "desktop/tree_arrangement.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "desktop/frame_texts.h"
#include "editor/node_key.h"
#include "forms/row_order.h"
#include "platform/text.h"
#include "store/rules.h"

namespace desktop {

namespace {

using studio::StudioNode;

constexpr const char* kClassPicture = "icoForClass";
constexpr const char* kCallTypePicture = "callType";  // with its number
constexpr const char* kDisabled = "Disabled";         // behind the name of a picture
constexpr const char* kNothingKnown = "?";

const StudioNode* ToNode(wx::TreeSource::Node node) { return static_cast<const StudioNode*>(node); }

std::string PictureOfType(std::int32_t type) { return kCallTypePicture + std::to_string(type); }

template <class Items, class Item>
std::size_t PlaceIn(const Items& items, const Item& item) {
  return static_cast<std::size_t>(std::ranges::find(items, item) - items.begin());
}

template <class Place>
auto At(std::size_t index, Place begin) {
  return begin + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

TreeArrangement::TreeArrangement(const texts::TextTable& texts) : texts_(texts) {}
TreeArrangement::~TreeArrangement() = default;

void TreeArrangement::Serve(const studio::StudioTree* tree, FormulaFacts* facts) {
  Clear();
  tree_ = tree;
  facts_ = facts;
}

void TreeArrangement::Clear() {
  groups_.clear();
  group_of_.clear();
}

StudioNode* TreeArrangement::Folder() const {
  const StudioNode* folder = tree_ ? tree_->Find(editor::kFormulasKey) : nullptr;
  return const_cast<StudioNode*>(folder);
}

bool TreeArrangement::IsFormula(const StudioNode& node) const {
  return node.parent && node.parent == Folder() && editor::IsFormulaKey(node.key);
}

const store::FormulaRecord* TreeArrangement::FactsOf(const StudioNode& formula) const {
  return facts_ ? facts_->Of(editor::KeyNumber(formula.key)) : nullptr;
}

std::size_t TreeArrangement::Formulas() const {
  const StudioNode* folder = Folder();
  return folder ? folder->children.size() : 0;
}

// --- Where formulas belong ---

bool TreeArrangement::Wanted(const StudioNode& formula) const {
  return !filtered_ || found_.contains(editor::KeyNumber(formula.key));
}

std::unique_ptr<TreeArrangement::Group> TreeArrangement::NewGroup(const StudioNode& formula) const {
  auto group = std::make_unique<Group>();
  StudioNode& node = group->node;
  node.key = editor::kFormulasKey;
  node.parent = Folder();
  if (!Grouped()) return group;
  const store::FormulaRecord* facts = FactsOf(formula);
  if (look_.grouping == TreeLook::Grouping::kClass) {
    node.info = node.text = facts ? facts->prog_id : kNothingKnown;
    node.icon = kClassPicture;
    return group;
  }
  group->type = facts ? facts->type : -1;
  node.info = std::to_string(group->type);
  node.text = store::IsCallType(group->type)
                  ? texts_.Text(store::kFirstCallTypeText + group->type)
                  : texts_.Text(kTextUnknownCallType, {{"<Type>", facts ? node.info : "?"}});
  if (store::IsCallType(group->type)) node.icon = PictureOfType(group->type);
  return group;
}

std::size_t TreeArrangement::PlaceOfGroup(const Group& group) const {
  const auto before = [&](const std::unique_ptr<Group>& other) {
    if (other->type != group.type) return other->type < group.type;
    const int order = forms::CompareNaturally(platform::FoldCase(other->node.info),
                                              platform::FoldCase(group.node.info));
    return order != 0 ? order < 0 : other->node.info < group.node.info;
  };
  return static_cast<std::size_t>(std::ranges::partition_point(groups_, before) - groups_.begin());
}

TreeArrangement::Group& TreeArrangement::GroupFor(const StudioNode& formula, bool tell) {
  std::unique_ptr<Group> group = NewGroup(formula);
  const std::size_t place = PlaceOfGroup(*group);
  if (place < groups_.size() && groups_[place]->node.info == group->node.info)
    return *groups_[place];
  Group& added = **groups_.insert(At(place, groups_.begin()), std::move(group));
  if (tell && Grouped()) on_added(Folder(), place);
  return added;
}

std::string TreeArrangement::FoldedName(Formula formula) const {
  return platform::FoldCase(formula->text);
}

bool TreeArrangement::Before(Formula a, Formula b) const {
  if (look_.order == TreeLook::Order::kName) {
    const int order = forms::CompareNaturally(FoldedName(a), FoldedName(b));
    if (order != 0) return order < 0;
  }
  return editor::KeyNumber(a->key) < editor::KeyNumber(b->key);
}

void TreeArrangement::Arrange(const TreeLook& look, const std::string& filter) {
  Clear();
  look_ = look;
  filter_ = filter;
  filtered_ = filter.find_first_not_of(" \t") != std::string::npos;
  found_.clear();
  const StudioNode* folder = Folder();
  if (!folder) return;
  FindAgain();
  struct Place {
    Formula formula;
    std::string name;
    std::int32_t id;
  };
  const bool by_name = look.order == TreeLook::Order::kName;
  std::vector<Place> places;
  for (Formula formula : folder->children) {
    if (Wanted(*formula))
      places.push_back({formula, by_name ? FoldedName(formula) : std::string(),
                        editor::KeyNumber(formula->key)});
  }
  std::ranges::sort(places, [](const Place& a, const Place& b) {
    const int order = forms::CompareNaturally(a.name, b.name);
    return order != 0 ? order < 0 : a.id < b.id;
  });
  group_of_.reserve(places.size());
  for (const Place& place : places) {
    Group& group = GroupFor(*place.formula, false);
    group.formulas.push_back(place.formula);
    group_of_[place.formula] = &group;
  }
}

void TreeArrangement::FindAgain() {
  if (filtered_ && facts_) found_ = facts_->Find(filter_);
}

void TreeArrangement::Put(const StudioNode& formula) {
  Take(formula);
  if (!Wanted(formula)) return;
  Group& group = GroupFor(formula, true);
  const auto behind = std::ranges::partition_point(
      group.formulas, [&](Formula other) { return Before(other, &formula); });
  const auto place = static_cast<std::size_t>(behind - group.formulas.begin());
  group.formulas.insert(behind, &formula);
  group_of_[&formula] = &group;
  on_added(NodeOf(group), place);
  if (Grouped()) on_changed(&group.node);
}

void TreeArrangement::Take(const StudioNode& formula) {
  const auto found = group_of_.find(&formula);
  if (found == group_of_.end()) return;
  Group& group = *found->second;
  const std::size_t place = PlaceIn(group.formulas, &formula);
  group.formulas.erase(At(place, group.formulas.begin()));
  group_of_.erase(found);
  on_removed(NodeOf(group), place);
  if (!Grouped()) return;
  if (!group.formulas.empty()) return on_changed(&group.node);
  const std::size_t index = IndexOf(&group.node);
  const std::unique_ptr<Group> gone = std::move(groups_[index]);
  groups_.erase(At(index, groups_.begin()));
  on_removed(Folder(), index);
}

std::vector<std::string> TreeArrangement::FormulaKeys() const {
  std::vector<std::string> keys;
  for (const auto& group : groups_) {
    for (Formula formula : group->formulas) keys.push_back(formula->key);
  }
  return keys;
}

bool TreeArrangement::Shows(const StudioNode& node) const {
  return !IsFormula(node) || group_of_.contains(&node);
}

bool TreeArrangement::IsGroup(const StudioNode& node) const {
  return node.key == editor::kFormulasKey && &node != Folder();
}

bool TreeArrangement::IsAloneInGroup(const StudioNode& formula) const {
  const auto found = group_of_.find(&formula);
  return Grouped() && found != group_of_.end() && found->second->formulas.size() == 1;
}

std::vector<const StudioNode*> TreeArrangement::GroupNodes() const {
  std::vector<const StudioNode*> nodes;
  if (!Grouped()) return nodes;
  for (const auto& group : groups_) nodes.push_back(&group->node);
  return nodes;
}

const StudioNode* TreeArrangement::FindGroup(const std::string& info) const {
  const auto nodes = GroupNodes();
  const auto found = std::ranges::find(nodes, info, &StudioNode::info);
  return found == nodes.end() ? nullptr : *found;
}

// --- As a tree ---

wx::TreeSource::Node TreeArrangement::NodeOf(const Group& group) const {
  return Grouped() ? static_cast<Node>(&group.node) : Folder();
}

const TreeArrangement::Group* TreeArrangement::GroupAt(Node node) const {
  const StudioNode* folder = Folder();
  if (!folder || !node || (Grouped() ? ToNode(node)->parent != folder : node != folder))
    return nullptr;
  const auto found =
      std::ranges::find_if(groups_, [&](const auto& group) { return NodeOf(*group) == node; });
  return found == groups_.end() ? nullptr : found->get();
}

wx::TreeSource::Node TreeArrangement::ParentOf(Node node) const {
  const auto group = Grouped() ? group_of_.find(ToNode(node)) : group_of_.end();
  return group == group_of_.end() ? ToNode(node)->parent : NodeOf(*group->second);
}

std::size_t TreeArrangement::ChildCount(Node parent) const {
  if (!parent) return tree_->Top().size();
  if (const Group* group = GroupAt(parent)) return group->formulas.size();
  return parent == Folder() ? groups_.size() : ToNode(parent)->children.size();
}

wx::TreeSource::Node TreeArrangement::ChildAt(Node parent, std::size_t index) const {
  if (!parent) return tree_->Top()[index];
  if (const Group* group = GroupAt(parent)) return group->formulas[index];
  if (parent == Folder()) return &groups_[index]->node;
  return ToNode(parent)->children[index];
}

std::size_t TreeArrangement::IndexOf(Node node) const {
  const auto group = group_of_.find(ToNode(node));
  if (group != group_of_.end()) return PlaceIn(group->second->formulas, ToNode(node));
  const StudioNode* parent = ToNode(node)->parent;
  if (parent && parent == Folder()) return PlaceIn(GroupNodes(), ToNode(node));
  return PlaceIn(parent ? parent->children : tree_->Top(), ToNode(node));
}

std::string TreeArrangement::TextOf(Node node) const {
  std::string text = ToNode(node)->text;
  if (Dimmed(node)) return texts_.Text(kTextDisabledFormula, {{"<Name>", text}});
  const Group* group = Grouped() ? GroupAt(node) : nullptr;
  if (!group) return text;
  return texts_.Text(kTextGroupOfFormulas,
                     {{"<Name>", text}, {"<Count>", std::to_string(group->formulas.size())}});
}

std::string TreeArrangement::PictureOf(Node node) const {
  const StudioNode& shown = *ToNode(node);
  const store::FormulaRecord* facts = group_of_.contains(&shown) ? FactsOf(shown) : nullptr;
  if (!facts || !store::IsCallType(facts->type)) return shown.icon;
  return PictureOfType(facts->type) + (facts->enabled ? "" : kDisabled);
}

bool TreeArrangement::Dimmed(Node node) const {
  const StudioNode& shown = *ToNode(node);
  const store::FormulaRecord* facts = group_of_.contains(&shown) ? FactsOf(shown) : nullptr;
  return facts && !facts->enabled;
}

}  // namespace desktop
