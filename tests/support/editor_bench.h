// SPDX-License-Identifier: MIT
// The add-in on a whole project in memory, driven by a studio's events and by a user who follows a
// script.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "addin/connect.h"
#include "store/ado_fro.h"
#include "tests/support/fake_window_system.h"
#include "tests/support/memory_settings.h"
#include "tests/support/plant_bench.h"
#include "tests/support/recording_add_in.h"

namespace support {

class RecordingHostWindow : public platform::HostWindow {
 public:
  std::string type_name = "Window";
  std::vector<std::string> calls;

  std::string TypeName() const override { return type_name; }
  bool fails = false;
  void SetVisible(bool visible) override {
    if (fails)
      throw platform::Error(platform::ErrorKind::kIo, 5, messages::Message::Verbatim("host"));
    calls.push_back(visible ? "Visible" : "Invisible");
  }
  void Show() override { calls.push_back("Show"); }
};

inline constexpr std::int32_t kGermanLcid = 1031;
inline constexpr std::int32_t kEnglishLcid = 1033;

struct EditorBench : PlantBench {
  FakeWindowSystem window_system;
  MemorySettings settings;
  ReportFactory reports;
  RecordingHostWindow host_window;
  std::shared_ptr<RecordingAddIn> studio = std::make_shared<RecordingAddIn>();
  std::unique_ptr<addin::Connect> add_in;

  explicit EditorBench(std::int32_t lcid = kEnglishLcid) {
    settings.SetRegistry("SOFTWARE\\Meridax GmbH\\Orvana\\4.0", "LCID", std::to_string(lcid));
    items.types = {{"Tank1.Level", 5}, {"Pump.Running", 11}};
    store::ADOFRO::SetConnectionFactory([this] { return plant.connection; });
    add_in = std::make_unique<addin::Connect>(editor::Services{toolkit, window_system, settings,
                                                               help, reports, plant.unit, &items,
                                                               &components, &host_window});
  }
  // Started, with a click on that node.
  explicit EditorBench(const char* key, std::int32_t lcid = kEnglishLcid) : EditorBench(lcid) {
    Start();
    Click(key);
  }
  ~EditorBench() override {
    add_in->Terminate();
    toolkit.RunLater();
    add_in.reset();
    store::ADOFRO::Drop();
  }

  void Start(const std::string& name = kPlantDatabase) {
    add_in->Initialize(name, "ignored", studio, plant.environment);
  }
  // A click as the studio sends it: the node is selected then.
  void Click(const std::string& key) {
    const RecordingAddIn::Node* node = studio->Find(key);
    const std::string text = node ? node->text : "";
    studio->selected = {"Plant", key, text};
    add_in->NodeClick("Plant", key, text);
  }
  // A key on a node; the code that the handler leaves.
  std::int16_t Key(const std::string& key, std::int16_t code, std::int16_t shift = 0) {
    add_in->NodeKeyDown("Plant", key, "", code, shift);
    return code;
  }
  void RightClick(const std::string& key) { add_in->NodeMouseUp("Plant", key, "", 2, 0, 0, 0); }

  editor::frmtabgrid& Window() { return *add_in->EditorWindow(); }
  bool PressIn(forms::Grid& grid, std::int16_t code, std::int16_t shift = 0) {
    forms::KeyEvent event{code, shift};
    grid.on_key_down(event);
    return event.handled;
  }
  void Choose(const char* tool) { Window().abr.Click(*Window().abr.FindTool(tool)); }
  bool Shown(const char* tool) {
    const forms::Tool* found = Window().abr.FindTool(tool);
    return found->Visible() && found->Enabled();
  }

  // Ends the add-in as the studio does and starts it again on the same files and settings.
  void Restart() {
    add_in->Terminate();
    toolkit.RunLater();
    studio = std::make_shared<RecordingAddIn>();
    Start();
  }

  std::vector<std::string> Formulas() {
    return plant.Rows("TvbfFormulas", {"ID", "Name", "ProgID", "Type"});
  }
  std::string Setting(const std::string& key) {
    return settings.Ini("/plant/OVEditors.ini", "Formula.frmtabGrid", key);
  }

 protected:
  // The window is open when rows are made.
  store::Operations& Operations() override { return Window().operations(); }
  void AliasAdded() override { Window().AliasesChanged(); }
  void FormulaAdded(std::int32_t id, const std::string& name) override {
    studio->AddNode("FORF0", name, "FORF" + std::to_string(id), "", "icoForFunction", {});
  }
};

}  // namespace support
