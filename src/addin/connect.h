// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "addin/embedding.h"
#include "dialogs/message_boxes.h"
#include "editor/editor_host.h"
#include "editor/frmtabgrid.h"
#include "platform/studio.h"
#include "platform/vbide.h"
#include "texts/text_table.h"

namespace addin {

// The add-in: the one class that the studio creates (OVFormulaEditor.Connect) and sends its events
// to. The first click on a node, or its expansion, opens the database and builds the editor window
// and the branches of the tree; Terminate takes all of it down again. Every event returns 0, and
// no exception leaves one.
class Connect : public platform::COV4Extensibility, public editor::EditorHost {
 public:
  // All that is referenced outlives the add-in. The data environment has its connection factory
  // already.
  explicit Connect(const editor::Services& services);
  ~Connect() override;

  std::int32_t Initialize(std::string_view ov4_project_name, std::string_view vb_project_name,
                          std::shared_ptr<platform::Object> ov4_add_in,
                          std::shared_ptr<platform::Object> ov4_any) override;
  std::int32_t StartupComplete() override { return 0; }
  std::int32_t Deactivate() override { return 0; }
  std::int32_t Terminate() override;
  std::int32_t GetMessage(std::string_view, std::string_view, const platform::Variant&) override {
    return 0;
  }
  std::int32_t NodeClick(std::string_view project, std::string_view key,
                         std::string_view text) override;
  std::int32_t NodeDblClick(std::string_view project, std::string_view key,
                            std::string_view text) override;
  std::int32_t NodeExpand(std::string_view project, std::string_view key,
                          std::string_view text) override;
  std::int32_t NodeMouseDown(std::string_view, std::string_view, std::string_view, std::int32_t,
                             std::int32_t, float, float) override {
    return 0;
  }
  std::int32_t NodeMouseMove(std::string_view, std::string_view, std::string_view, std::int32_t,
                             std::int32_t, float, float) override {
    return 0;
  }
  std::int32_t NodeMouseUp(std::string_view project, std::string_view key, std::string_view text,
                           std::int32_t button, std::int32_t shift, float x, float y) override;
  std::int32_t NodeKeyDown(std::string_view project, std::string_view key, std::string_view text,
                           std::int16_t& key_code, std::int16_t& shift) override;
  std::int32_t NodeKeyPress(std::string_view, std::string_view, std::string_view,
                            std::int16_t&) override {
    return 0;
  }
  std::int32_t NodeKeyUp(std::string_view, std::string_view, std::string_view, std::int16_t&,
                         std::int16_t&) override {
    return 0;
  }

  // The project database of a studio project: the name itself when it is a path, otherwise in the
  // folder that the registry names. "" for "".
  static std::string DatabasePathOf(platform::SettingsService& settings, std::string_view project);

  // --- Accessors ---
  std::shared_ptr<platform::AddIn> HostAddIn() const override { return host_add_in_; }
  platform::WindowHandle HostWindow() const override { return host_window_; }
  const std::string& StudioProjectName() const { return studio_project_name_; }
  bool Initialised() const { return initialised_; }
  // Null until first opened.
  editor::frmtabgrid* EditorWindow() const { return editor_.get(); }
  // Empty while there is no editor window.
  std::string EditorCaption() const;

  // Shows the node in the editor window and brings the text of a formula's node up to date.
  void SelectFormula(std::string_view key, std::string_view text);
  // Reads the project again: tree, database and editor window. Nothing unless initialised.
  void Reset();

  void RebuildViews() override;
  void ActivateEditor() override;

 private:
  // The studio may send events from inside the calls that this makes: a click is answered by the
  // opening that is under way, an end waits for it.
  void EnsureOpen();
  void Open();
  bool ConnectToDataBase();
  bool RefuseDataBase(const std::string& reason);
  void OpenEditor();
  void Release();
  // Runs a tree command's tool with the node as context, then returns to the shown node.
  void RunTreeTool(std::string_view key, const char* tool);
  void HandleKey(std::string_view key, std::int16_t& key_code, std::int16_t shift);
  void ShowTreeMenu(std::string_view key);
  // Runs an event's body; what it raises is shown, but not reported to the studio.
  std::int32_t Event(const std::function<void()>& body);

  editor::Services services_;
  texts::TextTable texts_;
  dialogs::MessageBoxes messages_;
  Embedding embedding_;
  std::shared_ptr<editor::frmtabgrid> editor_;
  bool initialised_ = false;
  bool opening_ = false;
  bool ends_when_open_ = false;
  std::shared_ptr<platform::AddIn> host_add_in_;
  std::shared_ptr<platform::VBE> ide_;
  std::string database_path_;
  std::string studio_project_name_;
  bool embed_result_ = false;
  platform::WindowHandle host_window_ = 0;
  // Expires with the add-in: what CallLater runs afterwards does nothing.
  std::shared_ptr<Connect*> self_ = std::make_shared<Connect*>(this);
};

}  // namespace addin
