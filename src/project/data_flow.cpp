// SPDX-License-Identifier: MIT
#include "project/data_flow.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "codegen/project_code.h"
#include "platform/text.h"
#include "vbcode/effects.h"

namespace project {

namespace {

using vbcode::kNone;

// Reads class by class: what stands in a class's variable, all of its formulas may use.
class Reader {
 public:
  Reader(store::Operations& operations, codegen::ProjectCode* code, const FlowProgress& progress)
      : operations_(operations), code_(code), progress_(progress) {
    operations_.ForEachAlias([&](const store::AliasRecord& alias) { AddAlias(alias); });
    operations_.ForEachFormula([&](const store::FormulaRecord& formula) {
      classes_[platform::FoldCase(formula.prog_id)].push_back(flow_.formulas.size());
      flow_.formulas.push_back({formula});
    });
  }

  DataFlow ReadAll() {
    if (code_) code_->LoadAll();
    std::vector<std::string> classes;
    for (const auto& [prog_id, formulas] : classes_) classes.push_back(prog_id);
    ReadClasses(classes);
    return Result();
  }

  // Who uses an item is known when the classes of all formulas that have it as argument are.
  DataFlow ReadAround(const FlowNodes& nodes, std::int32_t depth) {
    std::set<std::string> wanted;
    for (const std::int32_t id : nodes.formulas) {
      if (const auto formula = operations_.FindFormula(id))
        wanted.insert(platform::FoldCase(formula->prog_id));
    }
    for (;;) {
      std::vector<std::string> classes;
      std::ranges::set_difference(wanted, read_, std::back_inserter(classes));
      if (code_) code_->LoadSetOff(std::vector(wanted.begin(), wanted.end()));
      ReadClasses(classes);
      DataFlow part = Neighbourhood(flow_, nodes, depth);
      const std::size_t before = wanted.size();
      for (const DataFlow::Item& item : part.items) AddUsers(item, wanted);
      if (wanted.size() == before && wanted.size() == read_.size())
        return Neighbourhood(Result(), nodes, depth);
    }
  }

 private:
  struct Alias {
    std::int32_t id = 0;
    std::string name;
    std::size_t item = 0;
  };

  void AddAlias(const store::AliasRecord& alias) {
    const auto [at, added] = items_.emplace(alias.item_id, flow_.items.size());
    if (added) flow_.items.push_back({alias.item_id, {}});
    flow_.items[at->second].aliases.push_back(alias.vb_alias);
    aliases_[platform::FoldCase(alias.vb_alias)] = {alias.id, alias.vb_alias, at->second};
  }

  // The classes of the formulas that have the item as argument.
  void AddUsers(const DataFlow::Item& item, std::set<std::string>& classes) {
    if (!looked_up_.insert(item.item_id).second) return;
    for (const std::string& name : item.aliases) {
      const std::int32_t id = aliases_.at(platform::FoldCase(name)).id;
      for (const store::FormulaRecord& formula : operations_.UsesOfAlias(id))
        classes.insert(platform::FoldCase(formula.prog_id));
    }
  }

  // What they call is read.
  void ReadClasses(const std::vector<std::string>& classes) {
    if (code_) effects_.emplace(code_->program());
    std::size_t total = done_;
    for (const std::string& prog_id : classes) total += classes_[prog_id].size();
    for (const std::string& prog_id : classes) {
      ReadClass(classes_[prog_id], total);
      read_.insert(prog_id);
    }
  }

  void ReadClass(const std::vector<std::size_t>& formulas, std::size_t total) {
    std::vector<std::vector<store::ArgumentRecord>> arguments;
    class_aliases_.clear();
    for (const std::size_t index : formulas) {
      arguments.push_back(operations_.ArgumentsOf(flow_.formulas[index].record.id));
      for (const store::ArgumentRecord& argument : arguments.back())
        class_aliases_.insert(platform::FoldCase(argument.vb_alias));
    }
    for (std::size_t i = 0; i < formulas.size(); ++i) {
      if (progress_) progress_(done_, total);
      ++done_;
      AddEdges(formulas[i], arguments[i]);
    }
  }

  void AddEdges(std::size_t index, const std::vector<store::ArgumentRecord>& arguments) {
    DataFlow::Formula& formula = flow_.formulas[index];
    ReadCode(formula);
    std::unordered_set<std::string> own;
    for (const store::ArgumentRecord& argument : arguments) {
      std::string key = platform::FoldCase(argument.vb_alias);
      const auto alias = aliases_.find(key);
      if (alias == aliases_.end()) continue;
      const auto used = used_.find(key);
      DataFlow::Edge edge = {index, alias->second.item, alias->second.name};
      edge.is_argument = true;
      Decide(formula, used == used_.end() ? nullptr : &used->second, argument, edge);
      own.insert(std::move(key));
      AddEdge(std::move(edge));
    }
    for (const auto& [name, variable] : used_) {
      const auto alias = aliases_.find(name);
      if (alias == aliases_.end() || !variable.is_sure || own.contains(name) ||
          !class_aliases_.contains(name))
        continue;
      DataFlow::Edge edge = {index, alias->second.item, alias->second.name};
      edge.reads = (variable.effect & vbcode::kReads) != 0;
      edge.writes = (variable.effect & vbcode::kWrites) != 0;
      AddEdge(std::move(edge));
    }
  }

  void AddEdge(DataFlow::Edge edge) {
    if (edge.reads || edge.writes) flow_.edges.push_back(std::move(edge));
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

  DataFlow Result() {
    std::ranges::sort(flow_.edges, {}, [](const DataFlow::Edge& e) {
      return std::tuple(e.formula, e.item, std::string_view(e.alias));
    });
    CountWriters();
    if (code_) flow_.unread = code_->unread();
    return std::move(flow_);
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
  codegen::ProjectCode* code_;
  const FlowProgress& progress_;
  std::optional<vbcode::EffectFinder> effects_;
  DataFlow flow_;
  std::unordered_map<std::string, std::size_t> items_;
  std::unordered_map<std::string, Alias> aliases_;           // by name without case
  std::map<std::string, std::vector<std::size_t>> classes_;  // formulas by class, the same
  std::set<std::string> read_;                               // classes
  std::unordered_set<std::string> looked_up_;                // items
  std::size_t done_ = 0;                                     // formulas
  // Of the class at hand:
  std::unordered_set<std::string> class_aliases_;  // its formulas' arguments
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
                      const FlowProgress& progress) {
  std::optional<codegen::ProjectCode> code;
  if (vbe) code.emplace(*vbe);
  return Reader(operations, code ? &*code : nullptr, progress).ReadAll();
}

DataFlow ReadNeighbourhood(store::Operations& operations, platform::VBE* vbe,
                           const FlowNodes& nodes, std::int32_t depth,
                           const FlowProgress& progress) {
  std::optional<codegen::ProjectCode> code;
  if (vbe) code.emplace(*vbe);
  return Reader(operations, code ? &*code : nullptr, progress).ReadAround(nodes, depth);
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
  const std::unordered_set<std::int32_t> ids(nodes.formulas.begin(), nodes.formulas.end());
  for (std::size_t i = 0; i < flow.formulas.size(); ++i) {
    if (ids.contains(flow.formulas[i].record.id)) at.push_back(i);
  }
  const std::unordered_set<std::string> items(nodes.items.begin(), nodes.items.end());
  for (std::size_t i = 0; i < flow.items.size(); ++i) {
    if (items.contains(flow.items[i].item_id)) at.push_back(items_begin + i);
  }
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
  const auto behind = seen.begin() + static_cast<std::ptrdiff_t>(items_begin);
  return Part(flow, {seen.begin(), behind}, {behind, seen.end()});
}

DataFlow WithoutUnused(const DataFlow& flow) {
  std::vector<bool> used(flow.items.size());
  for (const DataFlow::Edge& edge : flow.edges) used[edge.item] = true;
  return Part(flow, std::vector<bool>(flow.formulas.size(), true), used);
}

}  // namespace project
