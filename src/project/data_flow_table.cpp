// SPDX-License-Identifier: MIT
#include "project/data_flow_table.h"

#include "project/flow_texts.h"
#include "project/html.h"

namespace project {

std::string WritersText(const DataFlow::Item& item, const texts::TextTable& texts) {
  return texts.Text(kFlowWriters, {{"<Count>", std::to_string(item.writers)}});
}

std::string DataFlowTable(const DataFlow& flow, const texts::TextTable& texts,
                          const std::function<std::string(const store::FormulaRecord&)>& show) {
  std::vector<std::string> written(flow.items.size());
  std::vector<std::string> read(flow.items.size());
  for (const DataFlow::Edge& edge : flow.edges) {
    const store::FormulaRecord& record = flow.formulas[edge.formula].record;
    std::string name = show ? show(record) : EscapeHtml(record.prog_id + "." + record.name);
    if (!edge.from_code) name += " " + EscapeHtml(texts.Text(kFlowByArgument));
    const auto add = [&](std::string& cell) { cell += (cell.empty() ? "" : ", ") + name; };
    if (edge.writes) add(written[edge.item]);
    if (edge.reads) add(read[edge.item]);
  }
  std::string rows;
  for (std::size_t i = 0; i < flow.items.size(); ++i) {
    const DataFlow::Item& item = flow.items[i];
    if (written[i].empty() && read[i].empty()) continue;
    rows += "<tr><td>" + EscapeHtml(item.item_id) + "</td><td>";
    if (item.writers > 1) rows += "<strong>" + EscapeHtml(WritersText(item, texts)) + ":</strong> ";
    rows += written[i] + "</td><td>" + read[i] + "</td></tr>\n";
  }
  if (rows.empty()) return "<p class=\"none\">" + EscapeHtml(texts.Text(kFlowNone)) + "</p>\n";
  std::string html = "<table>\n<thead><tr>";
  for (const messages::TextNumber head : {kFlowItem, kFlowWrittenBy, kFlowReadBy}) {
    html += "<th scope=\"col\">" + EscapeHtml(texts.Text(head)) + "</th>";
  }
  return html + "</tr></thead>\n<tbody>\n" + rows + "</tbody>\n</table>\n";
}

}  // namespace project
