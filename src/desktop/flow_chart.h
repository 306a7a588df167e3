// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desktop/flow_pane.h"
#include "desktop/project_context.h"
#include "project/data_flow.h"
#include "project/data_flow_picture.h"

namespace desktop {

// Shows the data flow around the formula or alias that is selected, follows the selection while
// its pane is open, and goes to what is chosen in it.
class FlowChart {
 public:
  // All of it outlives this object.
  struct Dependencies : ProjectContext {
    FlowPane& pane;
  };

  explicit FlowChart(const Dependencies& own);
  // The pane closes.
  ~FlowChart();
  FlowChart(const FlowChart&) = delete;
  FlowChart& operator=(const FlowChart&) = delete;

  void Open();
  // Follows the selection and the project's rows.
  void Look();

 private:
  // What the picture is about.
  struct Subject {
    std::string name;
    std::int32_t formula = 0;  // ID; 0: an item
    std::string item;
    bool operator==(const Subject&) const = default;
  };
  std::optional<Subject> Selected() const;
  void Read();
  void ShowPicture(platform::Progress& progress);
  std::vector<PlaceTable::Row> Rows() const;
  std::optional<project::PictureNode> Centre() const;
  // With the keyboard, or staying where that is.
  void GoToFormula(std::size_t index, bool with_keyboard);
  void GoToItem(std::size_t index, bool with_keyboard);
  void GoToRow(std::size_t row);
  void Follow();
  void Save();

  const Dependencies own_;
  std::optional<Subject> subject_;
  std::optional<Subject> next_;           // selected, but perhaps not for long
  std::optional<files::FileStamp> seen_;  // of the database
  project::DataFlow flow_;
};

}  // namespace desktop
