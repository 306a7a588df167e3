// SPDX-License-Identifier: MIT
// Which formulas write the variables of a project and which read them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "messages/message.h"
#include "platform/vbide.h"
#include "store/operations.h"

namespace project {

// A graph of formulas and items.
struct DataFlow {
  struct Formula {
    store::FormulaRecord record;
    bool has_code = false;  // its procedure is there and not empty
  };
  struct Item {
    std::string item_id;
    std::vector<std::string> aliases;
    std::size_t writers = 0;  // formulas that are enabled, of the whole project
  };
  // What a formula does with an item by one of its aliases.
  struct Edge {
    std::size_t formula = 0;
    std::size_t item = 0;
    std::string alias;
    bool reads = false;
    bool writes = false;
    bool from_code = true;     // false: as the argument's In and Out say
    bool is_argument = false;  // of the formula
  };

  std::vector<Formula> formulas;          // in the order of ID
  std::vector<Item> items;                // in the order of their first aliases' IDs
  std::vector<Edge> edges;                // by formula
  std::vector<messages::Message> unread;  // of modules that could not be read
};

// May raise.
using FlowProgress = std::function<void(std::size_t done, std::size_t total)>;

// The data flow of the whole project. What a procedure does, also through what it calls, comes from
// its code; where that cannot tell, from In and Out of the arguments. A variable of a class is an
// item when one of the class's formulas has it as argument. `vbe` may be null. `progress` is called
// before each formula. Raises platform::Error when the database fails.
DataFlow ReadDataFlow(store::Operations& operations, platform::VBE* vbe,
                      const FlowProgress& progress = {});

// Formulas, by their IDs, and items.
struct FlowNodes {
  std::vector<std::int32_t> formulas;
  std::vector<std::string> items;
};

// What these nodes are connected with over at most that many edges.
DataFlow Neighbourhood(const DataFlow& flow, const FlowNodes& nodes, std::int32_t depth);
// The same part of the whole project's flow, for which only the classes concerned are read.
DataFlow ReadNeighbourhood(store::Operations& operations, platform::VBE* vbe,
                           const FlowNodes& nodes, std::int32_t depth,
                           const FlowProgress& progress = {});
// Without the items that no formula uses.
DataFlow WithoutUnused(const DataFlow& flow);

}  // namespace project
