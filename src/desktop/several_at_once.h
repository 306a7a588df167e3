// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "editor/frmtabgrid.h"
#include "messages/text_number.h"
#include "project/project.h"

namespace desktop {

// Many arguments or aliases in one go: chosen from a list, made as one operation.
class SeveralAtOnce {
 public:
  // Both outlive this object.
  SeveralAtOnce(const WindowParts& parts, const WindowMessages& messages)
      : parts_(parts), messages_(messages) {}

  // What the node of the key can have several of.
  void Add(const std::string& key, editor::frmtabgrid& editor, project::Project& opened) const;

 private:
  void AddArguments(std::int32_t formula_id, editor::frmtabgrid& editor) const;
  void AddAliases(editor::frmtabgrid& editor, project::Project& opened) const;
  void Done(messages::TextNumber text_of_one, std::size_t count) const;

  const WindowParts& parts_;
  const WindowMessages& messages_;
};

}  // namespace desktop
