// SPDX-License-Identifier: MIT
// The desktop program.
#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/stdpaths.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "desktop/help_viewer.h"
#include "desktop/main_window.h"
#include "desktop/version.h"
#include "files/real_file_system.h"
#include "workbench/language.h"
#include "workbench/user_folders.h"
#include "wx/convert.h"
#include "wx/window_system.h"

namespace {

// The name under which the add-in hooks the editor window's messages.
constexpr const char* kModule = "OVFormulaEditor.dll";

std::string Environment(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  return value ? value : "";
}

class Program : public wxApp {
 public:
  void OnInitCmdLine(wxCmdLineParser& parser) override {
    parser.AddLongOption("lang", "de or en");
    parser.AddLongSwitch("version", "show the version");
    parser.AddSwitch("h", "help", "show this help", wxCMD_LINE_OPTION_HELP);
    parser.AddParam("PROJECT.ovs", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
  }

  bool OnCmdLineParsed(wxCmdLineParser& parser) override {
    wxString language;
    if (parser.Found("lang", &language)) language_ = wx::FromWx(language);
    version_ = parser.Found("version");
    if (parser.GetParamCount() > 0) project_ = wx::FromWx(parser.GetParam(0));
    return true;
  }

  bool OnInit() override {
    SetAppName("ovformula");
    if (!wxApp::OnInit()) return false;
    if (version_) {
      std::printf("ovformula-desktop %s\n", desktop::kVersion);
      return false;
    }
    Start();
    return true;
  }

  int OnExit() override {
    window_system_.reset();
    return wxApp::OnExit();
  }

 private:
  void Start() {
    files::FileSystem& files = files::RealFileSystem();
    const workbench::UserFolders folders = workbench::FindUserFolders(files, Environment);
    settings_ = std::make_unique<workbench::FileSettingsService>(files, folders.config);
    const texts::Language language = workbench::ChooseLanguage(language_, files, Environment);
    settings_->Override(texts::kLanguageKey, texts::kLanguageValue, workbench::LcidOf(language));
    texts_ = std::make_unique<texts::TextTable>(language);
    toolkit_ = std::make_unique<desktop::DesktopToolkit>(*texts_);
    window_system_ = std::make_unique<wx::WindowSystem>(kModule);
    help_ = std::make_unique<desktop::HelpViewer>(*texts_);
    state_ = std::make_unique<desktop::DesktopState>(*settings_, files, folders.state);
    workbench::ProjectOptions options;
    options.state_folder = folders.state;
    auto* window = new desktop::MainWindow(
        {files, *toolkit_, *window_system_, *help_, *settings_, *texts_, *state_, options});
    window->Show();
    const std::string path = project_.empty() ? state_->project : project_;
    if (!path.empty()) window->CallAfter([window, path] { window->OpenProject(path); });
  }

  std::string language_;
  std::string project_;
  bool version_ = false;
  std::unique_ptr<workbench::FileSettingsService> settings_;
  std::unique_ptr<texts::TextTable> texts_;
  std::unique_ptr<desktop::DesktopToolkit> toolkit_;
  std::unique_ptr<wx::WindowSystem> window_system_;
  std::unique_ptr<desktop::HelpViewer> help_;
  std::unique_ptr<desktop::DesktopState> state_;
};

}  // namespace

wxIMPLEMENT_APP(Program);
