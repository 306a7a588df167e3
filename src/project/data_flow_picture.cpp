// SPDX-License-Identifier: MIT
#include "project/data_flow_picture.h"

#include <charconv>
#include <chrono>

#include "project/call_type.h"
#include "project/data_flow_table.h"
#include "project/filter_program.h"
#include "project/flow_texts.h"
#include "project/html.h"
#include "project/report_style.h"

namespace project {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kLongest = std::chrono::minutes(1);

// Graphviz reads entities, and backslashes as escapes of its own.
std::string Quoted(std::string_view text) {
  std::string quoted;
  for (const char c : EscapeHtml(text)) {
    if (c == '\\')
      quoted += "\\\\";
    else if (c == '\n')
      quoted += ' ';
    else
      quoted += c;
  }
  return quoted;
}

class Description {
 public:
  Description(const DataFlow& flow, const texts::TextTable& texts) : flow_(flow), texts_(texts) {}

  std::string Make() {
    text_ =
        "digraph dataflow {\n"
        "  rankdir=LR; nodesep=0.25; ranksep=0.9;\n"
        "  node [fontname=\"DejaVu Sans, sans-serif\", fontsize=11];\n"
        "  edge [color=\"#54616e\", arrowsize=0.8];\n";
    for (std::size_t i = 0; i < flow_.formulas.size(); ++i) AddFormula(i);
    for (std::size_t i = 0; i < flow_.items.size(); ++i) AddItem(i);
    for (const DataFlow::Edge& edge : flow_.edges) AddEdge(edge);
    return text_ + "}\n";
  }

 private:
  void AddNode(const std::string& name, const std::vector<std::string>& lines,
               std::string_view attributes) {
    text_ += "  " + name + " [id=\"" + name + "\", label=\"";
    for (const std::string& line : lines)
      text_ += (&line == lines.data() ? "" : "\\n") + Quoted(line);
    text_ += "\", ";
    text_ += attributes;
    text_ += "];\n";
  }

  void AddFormula(std::size_t index) {
    const store::FormulaRecord& record = flow_.formulas[index].record;
    AddNode("f" + std::to_string(index), FormulaLabel(record, texts_),
            record.enabled ? "shape=box, style=filled, fillcolor=\"#dcebf7\", color=\"#0b5a8f\""
                           : "shape=box, style=\"filled,dashed\", fillcolor=\"#f4f6f8\", "
                             "color=\"#54616e\"");
  }

  void AddItem(std::size_t index) {
    const DataFlow::Item& item = flow_.items[index];
    AddNode("i" + std::to_string(index), ItemLabel(item, texts_),
            item.writers > 1
                ? "shape=ellipse, peripheries=2, style=filled, fillcolor=\"#fbe3dd\", "
                  "color=\"#8a3324\""
                : "shape=ellipse, style=filled, fillcolor=\"#ffffff\", color=\"#54616e\"");
  }

  void AddEdge(const DataFlow::Edge& edge) {
    const std::string formula = "f" + std::to_string(edge.formula);
    const std::string item = "i" + std::to_string(edge.item);
    text_ += "  " + (edge.writes ? formula + " -> " + item : item + " -> " + formula) + " [";
    if (edge.reads && edge.writes) text_ += "dir=both, ";
    if (edge.writes) text_ += "color=\"#8a3324\", penwidth=1.6, ";
    text_ += edge.from_code ? "style=solid];\n" : "style=dashed];\n";
  }

  const DataFlow& flow_;
  const texts::TextTable& texts_;
  std::string text_;
};

[[noreturn]] void Raise(messages::TextNumber text) {
  throw platform::Error(platform::ErrorKind::kRefused, ToInt(text),
                        messages::Message(messages::Pattern{text}));
}

}  // namespace

std::vector<std::string> FormulaLabel(const store::FormulaRecord& formula,
                                      const texts::TextTable& texts) {
  std::vector<std::string> lines = {formula.name, formula.prog_id, CallTypeText(formula, texts)};
  if (!formula.enabled) lines.push_back(texts.Text(kFlowDisabled));
  return lines;
}

std::vector<std::string> ItemLabel(const DataFlow::Item& item, const texts::TextTable& texts) {
  std::vector<std::string> lines = {item.item_id};
  lines.insert(lines.end(), item.aliases.begin(), item.aliases.end());
  if (item.writers > 1) lines.push_back(WritersText(item, texts));
  return lines;
}

std::string DescribeForGraphviz(const DataFlow& flow, const texts::TextTable& texts) {
  return Description(flow, texts).Make();
}

std::optional<PictureNode> NodeOfElement(std::string_view id) {
  if (id.empty() || (id[0] != 'f' && id[0] != 'i')) return std::nullopt;
  PictureNode node{id[0] == 'f'};
  const auto [end, error] = std::from_chars(id.data() + 1, id.data() + id.size(), node.index);
  if (error != std::errc() || end != id.data() + id.size()) return std::nullopt;
  return node;
}

std::string LayOut(std::string_view description, const std::function<bool()>& goes_on,
                   LayoutFormat format) {
  const Clock::time_point end = Clock::now() + kLongest;
  bool is_late = false;
  FilterResult result =
      RunFilter("dot", {format == LayoutFormat::kSvg ? "-Tsvg" : "-Tplain"}, description, [&] {
        is_late = Clock::now() > end;
        return !is_late && (!goes_on || goes_on());
      });
  switch (result.outcome) {
    case FilterOutcome::kDone:
      return std::move(result.output);
    case FilterOutcome::kMissing:
      Raise(kFlowNoGraphviz);
    case FilterOutcome::kFailed:
      if (goes_on && !goes_on()) return {};  // it heard of it first
      Raise(kFlowGraphvizFailed);
    case FilterOutcome::kStopped:
      break;
  }
  if (is_late) Raise(kFlowTooLarge);
  return {};
}

std::string DataFlowPage(const DataFlow& flow, std::string_view svg, std::string_view title,
                         const texts::TextTable& texts) {
  const std::string name = EscapeHtml(title);
  // What stands in front of the element is for a file of its own.
  const std::size_t begin = svg.find("<svg");
  if (begin != std::string_view::npos) svg.remove_prefix(begin);
  std::string html = "<!DOCTYPE html>\n<html lang=\"" + EscapeHtml(texts.Text(kFlowLanguage)) +
                     "\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + name +
                     "</title>\n<style>\n" + kReportStyle +
                     ".picture { overflow: auto; background: #fff; }\n</style>\n</head>\n<body>\n"
                     "<h1>" +
                     name + "</h1>\n<p>" + EscapeHtml(texts.Text(kFlowLegend)) +
                     "</p>\n<div class=\"picture\" aria-hidden=\"true\">\n";
  html += svg;
  return html + "</div>\n" + DataFlowTable(flow, texts) + "</body>\n</html>\n";
}

}  // namespace project
