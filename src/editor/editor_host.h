// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "dialogs/item_notes.h"
#include "editor/undo_entries.h"
#include "platform/help.h"
#include "platform/studio.h"
#include "platform/toolkit.h"
#include "platform/unit_of_work.h"
#include "platform/window_system.h"
#include "texts/text_table.h"

namespace editor {

// The outside as the editor window uses it. What is null is not there: every item is a Variant
// then, no component list is kept, no host window is shown on closing.
struct Services {
  platform::Toolkit& toolkit;
  platform::WindowSystem& window_system;
  platform::SettingsService& settings;
  platform::Help& help;
  platform::ObjectFactory& objects;
  platform::UnitOfWork& unit;
  platform::OVItems* items = nullptr;
  platform::ComponentList* components = nullptr;
  platform::HostWindow* host_window = nullptr;
  // Shown in columns behind the grids' own; null: there are none.
  dialogs::ItemNotes* notes = nullptr;
  bool moves_take_code = false;  // of formulas to another class, until the user chooses otherwise
  bool offers_uses = false;      // a new name offers to change its uses in procedures
  // The window around counts what the project holds, dialogs say in their titles what they do, and
  // the keys of all tables are the same.
  bool in_workbench = false;
  UndoEntries* undo = nullptr;  // null: the editor's menu offers none
};

// What the editor window asks of the add-in that owns it.
class EditorHost {
 public:
  virtual ~EditorHost() = default;
  // The studio's add-in object.
  virtual std::shared_ptr<platform::AddIn> HostAddIn() const = 0;
  // The studio's main window.
  virtual platform::WindowHandle HostWindow() const = 0;
  // Rebuilds the tree and the views. The window that asks is replaced after its handler returned.
  virtual void RebuildViews() = 0;
  // Brings the editor window forward, on the selected node.
  virtual void ActivateEditor() = 0;
};

}  // namespace editor
