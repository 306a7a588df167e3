// SPDX-License-Identifier: MIT
// Where the nodes and arrows of a data flow stand in its picture.
#pragma once

#include <string_view>
#include <vector>

#include "project/data_flow.h"

namespace project {

// In points, from the upper left corner.
struct FlowLayout {
  struct Point {
    double x = 0;
    double y = 0;
  };
  struct Box {
    Point centre;
    double width = 0;
    double height = 0;
  };
  double width = 0;
  double height = 0;
  std::vector<Box> formulas;  // by their index in the flow
  std::vector<Box> items;
  // By the index of the edge: a Bézier curve, its first point and three for each piece. It leaves
  // room for the tip of an arrow at an end that has one.
  std::vector<std::vector<Point>> edges;
};

// Reads what Graphviz answers in its format "plain". What is not understood of it is left out.
FlowLayout ReadLayout(std::string_view plain, const DataFlow& flow);

}  // namespace project
