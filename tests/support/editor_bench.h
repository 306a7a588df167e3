// SPDX-License-Identifier: MIT
// The add-in on a whole project in memory, driven by a studio's events and by a user who follows a
// script.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "addin/connect.h"
#include "store/ado_fro.h"
#include "tests/support/fake_window_system.h"
#include "tests/support/memory_settings.h"
#include "tests/support/project_doubles.h"
#include "tests/support/recording_add_in.h"
#include "tests/support/recording_help.h"
#include "tests/support/sample_plant.h"
#include "tests/support/scripted_toolkit.h"

namespace support {

class RecordingHostWindow : public platform::HostWindow {
 public:
  std::string type_name = "Window";
  std::vector<std::string> calls;

  std::string TypeName() const override { return type_name; }
  void SetVisible(bool visible) override { calls.push_back(visible ? "Visible" : "Invisible"); }
  void Show() override { calls.push_back("Show"); }
};

inline constexpr std::int32_t kGermanLcid = 1031;
inline constexpr std::int32_t kEnglishLcid = 1033;

struct EditorBench {
  SamplePlant plant;
  ScriptedToolkit toolkit;
  FakeWindowSystem window_system;
  MemorySettings settings;
  RecordingHelp help;
  ReportFactory reports;
  TableItems items;
  RecordingComponentList components;
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
  ~EditorBench() {
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

  // What the user does in the next dialog.
  template <class Dialog>
  void In(std::function<void(Dialog&)> step) {
    toolkit.OnModal([step = std::move(step)](forms::Form& form) {
      auto* dialog = dynamic_cast<Dialog*>(&form);
      ASSERT_NE(dialog, nullptr) << form.Name();
      step(*dialog);
    });
  }

  // Ends the add-in as the studio does and starts it again on the same files and settings.
  void Restart() {
    add_in->Terminate();
    toolkit.RunLater();
    studio = std::make_shared<RecordingAddIn>();
    Start();
  }

  // Rows made by the operations, with the window open.
  std::int32_t HaveAlias(const std::string& item, const std::string& alias) {
    const std::vector<store::AliasValues> values = {{item, alias}};
    const auto result = Window().operations().AddAliases(values);
    EXPECT_TRUE(result.success()) << result.message;
    Window().AliasesChanged();
    return result.id();
  }
  std::int32_t HaveFormula(const std::string& name, const std::string& prog_id,
                           std::int32_t type = 0) {
    const auto result = Window().operations().AddFormula({name, prog_id, type, 0, true, ""});
    EXPECT_TRUE(result.success()) << result.message;
    studio->AddNode("FORF0", name, "FORF" + std::to_string(result.id()), "", "icoForFunction", {});
    return result.id();
  }
  std::int32_t HaveArgument(std::int32_t formula, std::int32_t alias, bool in, bool out) {
    const std::vector<store::ArgumentValues> values = {{alias, in, out}};
    const auto result = Window().operations().AddArguments(formula, values);
    EXPECT_TRUE(result.success()) << result.message;
    return result.id();
  }
  std::vector<std::string> Formulas() {
    return plant.Rows("TvbfFormulas", {"ID", "Name", "ProgID", "Type"});
  }
  std::vector<std::string> Aliases() {
    return plant.Rows("TvbfAlias", {"ID", "ItemID", "VBAlias"});
  }
  std::vector<std::string> Arguments() {
    return plant.Rows("TvbfParams", {"ID", "ParentID", "AliasID", "In", "Out"});
  }
  std::string Setting(const std::string& key) {
    return settings.Ini("/plant/OVEditors.ini", "Formula.frmtabGrid", key);
  }
};

}  // namespace support
