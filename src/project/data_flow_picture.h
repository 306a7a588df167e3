// SPDX-License-Identifier: MIT
// A data flow as a picture: described for Graphviz, laid out by its program, shown in a page.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/data_flow.h"
#include "texts/text_table.h"

namespace project {

// The lines that a node shows.
std::vector<std::string> FormulaLabel(const store::FormulaRecord& formula,
                                      const texts::TextTable& texts);
std::vector<std::string> ItemLabel(const DataFlow::Item& item, const texts::TextTable& texts);

// The graph in Graphviz's language: formulas as boxes with call type and scan time, items as
// ellipses, arrows in the direction of the values, dashed where In and Out are all that is known;
// an item of several writers is framed twice and says so. Whatever a name holds is only shown.
std::string DescribeForGraphviz(const DataFlow& flow, const texts::TextTable& texts);

// A node, as elements of the SVG name it: "f" or "i" and the index in the flow.
struct PictureNode {
  bool is_formula = false;
  std::size_t index = 0;
};
std::optional<PictureNode> NodeOfElement(std::string_view id);

enum class LayoutFormat {
  kSvg,    // the picture
  kPlain,  // where everything stands in it, see ReadLayout
};

// The description laid out by Graphviz's program "dot". Raises platform::Error: the program is
// missing (number kFlowNoGraphviz), with what to install; it fails; it takes too long. `goes_on` is
// asked several times a second; the result is empty when it says false.
std::string LayOut(std::string_view description, const std::function<bool()>& goes_on = {},
                   LayoutFormat format = LayoutFormat::kSvg);

// A self-contained HTML page with the picture, which is SVG, and the same as a table.
std::string DataFlowPage(const DataFlow& flow, std::string_view svg, std::string_view title,
                         const texts::TextTable& texts);

}  // namespace project
