// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "desktop/name_index.h"
#include "desktop/project_context.h"

class wxWindow;

namespace desktop {

// Goes to any formula, class, alias or item of the open project by a part of its name.
class NameSearch {
 public:
  // All of it outlives this object.
  struct Dependencies : ProjectContext {
    wxWindow& window;
    std::function<void(const std::string& key)> select_node;
    std::function<void(const std::string& prog_id)> show_class;
  };

  explicit NameSearch(Dependencies own) : own_(std::move(own)) {}

  // Asks for a name and goes there.
  void Open();

 private:
  // The names of now.
  NameIndex Collect() const;
  void GoTo(const NameIndex::Name& name);
  void GoToAlias(std::int32_t id);

  const Dependencies own_;
};

}  // namespace desktop
