// SPDX-License-Identifier: MIT
// What the add-in asks of the engineering studio, and the events that the studio sends.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/variant.h"

namespace platform {

// Handle of a window of the window system.
using WindowHandle = std::intptr_t;

// What a selector of AddIn::NodeInformation asks for.
inline constexpr std::int32_t kNodeInformationText = 2;

struct SelectedNode {
  std::string project;
  std::string key;
  std::string text;
};

// A line for the user. With a file it is about that place of the code.
struct Notice {
  std::string text;
  std::string file = {};
  std::int32_t line = 0;  // from 1
};

struct NodeFlags {
  std::int32_t first = 0, second = 0, third = 0, fourth = 0;  // -1 true, 0 false
  friend bool operator==(const NodeFlags&, const NodeFlags&) = default;
};

// The studio's add-in object (OV4AddIn).
class AddIn : public Object {
 public:
  virtual void RegisterPicture(std::string_view key, std::string_view picture) = 0;
  // `info` is the fourth string of the studio's operation. Returns the studio's result.
  virtual std::int32_t AddNode(std::string_view parent, std::string_view text, std::string_view key,
                               std::string_view info, std::string_view icon,
                               const NodeFlags& flags) = 0;
  virtual void RemoveNode(std::string_view key) = 0;
  virtual void SetNodeText(std::string_view key, std::string_view text) = 0;
  virtual std::vector<std::string> ChildKeys(std::string_view key, std::int32_t depth) = 0;
  virtual SelectedNode GetSelectedNode() = 0;
  virtual void SelectNode(std::string_view key) = 0;
  // Gives the keyboard to the project tree.
  virtual void ActivateTree() = 0;
  virtual std::string NodeInformation(std::string_view key, std::int32_t selector) = 0;
  virtual void UpdateNode(std::string_view key, std::int32_t first, std::int32_t second) = 0;
  virtual WindowHandle MainWindow() = 0;
  // Handing over the editor: a handle for the named editor, then the hand-over itself.
  virtual std::int32_t RegisterEditor(std::string_view name) = 0;
  virtual void HandOverEditor(std::int32_t handle) = 0;
  virtual void ShowError(std::string_view text) = 0;
  // The studio's item choice; nothing when the user cancelled.
  virtual std::optional<std::string> ChooseItem(std::string_view current) = 0;
  // Brings the code window forward (before a formula's code is shown).
  virtual void ShowCodeWindow() = 0;
  // One line each in the studio's status line.
  virtual void ShowWarnings(const std::vector<Notice>& warnings) = 0;
};

// The events that the studio sends to an add-in; each returns 0 to the studio.
class COV4Extensibility : public Object {
 public:
  virtual std::int32_t Initialize(std::string_view ov4_project_name,
                                  std::string_view vb_project_name,
                                  std::shared_ptr<Object> ov4_add_in,
                                  std::shared_ptr<Object> ov4_any) = 0;
  virtual std::int32_t StartupComplete() = 0;
  virtual std::int32_t Deactivate() = 0;
  virtual std::int32_t Terminate() = 0;
  virtual std::int32_t GetMessage(std::string_view sender, std::string_view message,
                                  const Variant& params) = 0;
  virtual std::int32_t NodeClick(std::string_view project, std::string_view key,
                                 std::string_view text) = 0;
  virtual std::int32_t NodeDblClick(std::string_view project, std::string_view key,
                                    std::string_view text) = 0;
  virtual std::int32_t NodeExpand(std::string_view project, std::string_view key,
                                  std::string_view text) = 0;
  virtual std::int32_t NodeMouseDown(std::string_view project, std::string_view key,
                                     std::string_view text, std::int32_t button, std::int32_t shift,
                                     float x, float y) = 0;
  virtual std::int32_t NodeMouseMove(std::string_view project, std::string_view key,
                                     std::string_view text, std::int32_t button, std::int32_t shift,
                                     float x, float y) = 0;
  virtual std::int32_t NodeMouseUp(std::string_view project, std::string_view key,
                                   std::string_view text, std::int32_t button, std::int32_t shift,
                                   float x, float y) = 0;
  virtual std::int32_t NodeKeyDown(std::string_view project, std::string_view key,
                                   std::string_view text, std::int16_t& key_code,
                                   std::int16_t& shift) = 0;
  virtual std::int32_t NodeKeyPress(std::string_view project, std::string_view key,
                                    std::string_view text, std::int16_t& key_ascii) = 0;
  virtual std::int32_t NodeKeyUp(std::string_view project, std::string_view key,
                                 std::string_view text, std::int16_t& key_code,
                                 std::int16_t& shift) = 0;
};

// The window of the studio that the editor is associated with.
class HostWindow {
 public:
  virtual ~HostWindow() = default;
  virtual std::string TypeName() const = 0;  // "Window", "MDIEdit", ...
  virtual void SetVisible(bool visible) = 0;
  virtual void Show() = 0;
};

// Registry values (local machine, read only) and INI files. Reading never raises: a value that
// cannot be had is the default. Writing returns whether it succeeded.
class SettingsService {
 public:
  virtual ~SettingsService() = default;
  virtual std::string RegistryText(std::string_view key, std::string_view value,
                                   std::string_view fallback) = 0;
  virtual std::int32_t RegistryNumber(std::string_view key, std::string_view value,
                                      std::int32_t fallback) = 0;
  virtual std::string ReadIni(std::string_view file, std::string_view section,
                              std::string_view entry, std::string_view fallback) = 0;
  virtual bool WriteIni(std::string_view file, std::string_view section, std::string_view entry,
                        std::string_view value) = 0;
  // Writes all entries of a section in one replacement of the file. Other sections, entries and
  // comments stay byte for byte.
  struct IniEntry {
    std::string entry;
    std::string value;
  };
  virtual bool WriteIniSection(std::string_view file, std::string_view section,
                               const std::vector<IniEntry>& entries) = 0;
};

// The host project's component list ("FormulaComponents" entries).
class ComponentList {
 public:
  virtual ~ComponentList() = default;
  virtual void Open(std::string_view project) = 0;
  virtual void Add(std::string_view key, std::string_view value) = 0;
  virtual void Remove(std::string_view key, std::string_view value) = 0;
  virtual void Commit() = 0;
};

// The studio's item browser: answers the type of a process variable.
class OVItems {
 public:
  virtual ~OVItems() = default;
  // Variant type code of the item's value; nothing for an item that it does not know.
  virtual std::optional<std::int32_t> VariantTypeOf(std::string_view item) = 0;
};

class ReportAddIn : public Object {
 public:
  virtual void Show(std::string_view report_type, std::string& text, std::int32_t number) = 0;
};

// Creates objects by programmatic identifier. Raises platform::Error when it cannot.
class ObjectFactory {
 public:
  virtual ~ObjectFactory() = default;
  virtual std::shared_ptr<Object> Create(std::string_view prog_id) = 0;
};

}  // namespace platform
