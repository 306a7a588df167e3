// SPDX-License-Identifier: MIT
#include "project/data_flow.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <utility>

#include "codegen/project_code.h"
#include "platform/text.h"
#include "vbcode/effects.h"

namespace project {

namespace {

using vbcode::kNone;

class Reader {
 public:
  Reader(store::Operations& operations, const codegen::ProjectCode* code)
      : operations_(operations), code_(code) {
    if (code_) effects_.emplace(code_->program());
  }

  DataFlow Read(const std::function<void(std::size_t, std::size_t)>& progress) {
    operations_.ForEachAlias([&](const store::AliasRecord& alias) { AddAlias(alias); });
    operations_.ForEachFormula(
        [&](const store::FormulaRecord& formula) { flow_.formulas.push_back({formula}); });
    for (std::size_t i = 0; i < flow_.formulas.size(); ++i) {
      if (progress) progress(i, flow_.formulas.size());
      AddEdges(i);
    }
    CountWriters();
    return std::move(flow_);
  }

 private:
  struct Alias {
    std::string name;
    std::size_t item = 0;
  };

  void AddAlias(const store::AliasRecord& alias) {
    const auto [at, added] = items_.emplace(alias.item_id, flow_.items.size());
    if (added) flow_.items.push_back({alias.item_id, {}});
    flow_.items[at->second].aliases.push_back(alias.vb_alias);
    aliases_[platform::FoldCase(alias.vb_alias)] = {alias.vb_alias, at->second};
  }

  void AddEdges(std::size_t index) {
    DataFlow::Formula& formula = flow_.formulas[index];
    ReadCode(formula);
    std::vector<DataFlow::Edge> edges;
    std::unordered_map<std::string, bool> is_argument;
    for (const store::ArgumentRecord& argument : operations_.ArgumentsOf(formula.record.id)) {
      std::string key = platform::FoldCase(argument.vb_alias);
      const auto alias = aliases_.find(key);
      if (alias == aliases_.end()) continue;
      const auto used = used_.find(key);
      DataFlow::Edge edge = {index, alias->second.item, alias->second.name};
      edge.is_argument = true;
      Decide(formula, used == used_.end() ? nullptr : &used->second, argument, edge);
      is_argument.emplace(std::move(key), true);
      edges.push_back(std::move(edge));
    }
    for (const auto& [name, variable] : used_) {
      const auto alias = aliases_.find(name);
      if (alias == aliases_.end() || !variable.is_sure || is_argument.contains(name)) continue;
      DataFlow::Edge edge = {index, alias->second.item, alias->second.name};
      edge.reads = (variable.effect & vbcode::kReads) != 0;
      edge.writes = (variable.effect & vbcode::kWrites) != 0;
      edges.push_back(std::move(edge));
    }
    std::erase_if(edges, [](const DataFlow::Edge& e) { return !e.reads && !e.writes; });
    std::ranges::sort(edges, {},
                      [](const DataFlow::Edge& e) { return std::pair(e.item, e.alias); });
    std::ranges::move(edges, std::back_inserter(flow_.edges));
  }

  // What the code of the formula does with its class's variables, by the name without case.
  void ReadCode(DataFlow::Formula& formula) {
    used_.clear();
    is_open_ = false;
    if (!code_) return;
    const vbcode::Program& program = code_->program();
    const std::int32_t module = code_->FindClass(formula.record.prog_id);
    const std::int32_t procedure =
        module == kNone ? kNone : program.FindProcedure(module, formula.record.name);
    if (procedure == kNone || !program.HasStatements(module, procedure)) return;
    formula.has_code = true;
    const vbcode::Effects effects = effects_->Find(module, procedure);
    is_open_ = effects.open;
    for (const auto& [name, variable] : vbcode::OwnVariables(program, module, effects)) {
      used_.emplace(platform::FoldCase(program.Text(name)), variable);
    }
  }

  void Decide(const DataFlow::Formula& formula, const vbcode::OwnVariable* variable,
              const store::ArgumentRecord& argument, DataFlow::Edge& edge) const {
    const vbcode::Effect effect = variable ? variable->effect : 0;
    edge.from_code = formula.has_code && !is_open_ && (effect & vbcode::kUndecided) == 0;
    edge.reads = (effect & vbcode::kReads) != 0 || (!edge.from_code && argument.in);
    edge.writes = (effect & vbcode::kWrites) != 0 || (!edge.from_code && argument.out);
  }

  // A formula may write an item by two aliases.
  void CountWriters() {
    std::vector<std::size_t> last(flow_.items.size(), flow_.formulas.size());
    for (const DataFlow::Edge& edge : flow_.edges) {
      if (!edge.writes || !flow_.formulas[edge.formula].record.enabled) continue;
      if (std::exchange(last[edge.item], edge.formula) != edge.formula) {
        ++flow_.items[edge.item].writers;
      }
    }
  }

  store::Operations& operations_;
  const codegen::ProjectCode* code_;
  std::optional<vbcode::EffectFinder> effects_;
  DataFlow flow_;
  std::unordered_map<std::string, std::size_t> items_;
  std::unordered_map<std::string, Alias> aliases_;  // by name without case
  // Of the formula at hand:
  std::unordered_map<std::string, vbcode::OwnVariable> used_;
  bool is_open_ = false;
};

// The part of the flow with these nodes.
DataFlow Part(const DataFlow& flow, const std::vector<bool>& formulas,
              const std::vector<bool>& items) {
  DataFlow part;
  part.unread = flow.unread;
  std::vector<std::size_t> new_formula(flow.formulas.size());
  std::vector<std::size_t> new_item(flow.items.size());
  for (std::size_t i = 0; i < flow.formulas.size(); ++i) {
    new_formula[i] = part.formulas.size();
    if (formulas[i]) part.formulas.push_back(flow.formulas[i]);
  }
  for (std::size_t i = 0; i < flow.items.size(); ++i) {
    new_item[i] = part.items.size();
    if (items[i]) part.items.push_back(flow.items[i]);
  }
  for (DataFlow::Edge edge : flow.edges) {
    if (!formulas[edge.formula] || !items[edge.item]) continue;
    edge.formula = new_formula[edge.formula];
    edge.item = new_item[edge.item];
    part.edges.push_back(std::move(edge));
  }
  return part;
}

}  // namespace

DataFlow ReadDataFlow(store::Operations& operations, platform::VBE* vbe,
                      const std::function<void(std::size_t, std::size_t)>& progress) {
  std::optional<codegen::ProjectCode> code;
  if (vbe) code.emplace(*vbe).LoadAll();
  DataFlow flow = Reader(operations, code ? &*code : nullptr).Read(progress);
  if (code) flow.unread = code->unread();
  return flow;
}

DataFlow Neighbourhood(const DataFlow& flow, const FlowNodes& nodes, std::int32_t depth) {
  // Formulas first, then items.
  const std::size_t items_begin = flow.formulas.size();
  std::vector<std::vector<std::size_t>> neighbours(items_begin + flow.items.size());
  for (const DataFlow::Edge& edge : flow.edges) {
    neighbours[edge.formula].push_back(items_begin + edge.item);
    neighbours[items_begin + edge.item].push_back(edge.formula);
  }
  std::vector<bool> seen(neighbours.size());
  std::vector<std::size_t> at;
  for (const std::size_t formula : nodes.formulas) at.push_back(formula);
  for (const std::size_t item : nodes.items) at.push_back(items_begin + item);
  for (const std::size_t node : at) seen[node] = true;
  for (; depth > 0 && !at.empty(); --depth) {
    std::vector<std::size_t> next;
    for (const std::size_t node : at) {
      for (const std::size_t neighbour : neighbours[node]) {
        if (seen[neighbour]) continue;
        seen[neighbour] = true;
        next.push_back(neighbour);
      }
    }
    at = std::move(next);
  }
  const auto items = seen.begin() + static_cast<std::ptrdiff_t>(items_begin);
  return Part(flow, {seen.begin(), items}, {items, seen.end()});
}

DataFlow WithoutUnused(const DataFlow& flow) {
  std::vector<bool> used(flow.items.size());
  for (const DataFlow::Edge& edge : flow.edges) used[edge.item] = true;
  return Part(flow, std::vector<bool>(flow.formulas.size(), true), used);
}

}  // namespace project
