// SPDX-License-Identifier: MIT
#include "project/data_flow_layout.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <map>
#include <tuple>
#include <utility>

#include "project/data_flow_picture.h"

namespace project {

namespace {

constexpr double kPointsPerInch = 72;

// The words of a line; a text in quotes is one. Not to be read on behind the first text.
class Words {
 public:
  explicit Words(std::string_view line) : rest_(line) {}

  std::string_view Next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
    const std::size_t end = std::min(rest_.find(' '), rest_.size());
    const std::string_view word = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return word;
  }
  bool AtEnd() const { return rest_.find_first_not_of(' ') == std::string_view::npos; }
  // 0 for what is no number.
  double Number() {
    const std::string_view word = Next();
    double number = 0;
    std::from_chars(word.data(), word.data() + word.size(), number);
    return number;
  }
  double Length() { return Number() * kPointsPerInch; }

 private:
  std::string_view rest_;
};

class LayoutReader {
 public:
  explicit LayoutReader(const DataFlow& flow) {
    layout_.formulas.resize(flow.formulas.size());
    layout_.items.resize(flow.items.size());
    layout_.edges.resize(flow.edges.size());
    // The same two nodes may have several edges.
    for (std::size_t i = 0; i < flow.edges.size(); ++i) {
      const DataFlow::Edge& edge = flow.edges[i];
      edges_.emplace(std::tuple(edge.formula, edge.item, edge.writes), i);
    }
  }

  FlowLayout Read(std::string_view plain) {
    while (!plain.empty()) {
      const std::size_t end = std::min(plain.find('\n'), plain.size());
      ReadLine(plain.substr(0, end));
      plain.remove_prefix(std::min(end + 1, plain.size()));
    }
    return std::move(layout_);
  }

 private:
  void ReadLine(std::string_view line) {
    Words words(line);
    const std::string_view kind = words.Next();
    if (kind == "graph") {
      words.Next();  // the scale
      layout_.width = words.Length();
      layout_.height = words.Length();
    } else if (kind == "node") {
      ReadNode(words);
    } else if (kind == "edge") {
      ReadEdge(words);
    }
  }

  // Graphviz counts upwards.
  FlowLayout::Point ReadPoint(Words& words) {
    const double x = words.Length();
    return {x, layout_.height - words.Length()};
  }

  void ReadNode(Words& words) {
    const auto node = NodeOfElement(words.Next());
    if (!node) return;
    auto& boxes = node->is_formula ? layout_.formulas : layout_.items;
    if (node->index >= boxes.size()) return;
    FlowLayout::Box& box = boxes[node->index];
    box.centre = ReadPoint(words);
    box.width = words.Length();
    box.height = words.Length();
  }

  void ReadEdge(Words& words) {
    auto from = NodeOfElement(words.Next()), to = NodeOfElement(words.Next());
    if (!from || !to) return;
    const bool writes = from->is_formula;
    if (!writes) std::swap(from, to);
    const auto edge = edges_.find(std::tuple(from->index, to->index, writes));
    if (edge == edges_.end()) return;
    std::vector<FlowLayout::Point>& points = layout_.edges[edge->second];
    edges_.erase(edge);
    for (double count = words.Number(); count > 0 && !words.AtEnd(); --count)
      points.push_back(ReadPoint(words));
  }

  FlowLayout layout_;
  // By formula, item and whether the item is written; those that were not read yet.
  std::multimap<std::tuple<std::size_t, std::size_t, bool>, std::size_t> edges_;
};

}  // namespace

FlowLayout ReadLayout(std::string_view plain, const DataFlow& flow) {
  return LayoutReader(flow).Read(plain);
}

}  // namespace project
