// SPDX-License-Identifier: MIT
// The desktop program.
#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <typeinfo>

#include "desktop/crash_log.h"
#include "desktop/help_viewer.h"
#include "desktop/main_window.h"
#include "desktop/reading_options.h"
#include "desktop/version.h"
#include "files/real_file_system.h"
#include "workbench/language.h"
#include "workbench/text_numbers.h"
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
    parser.AddLongOption("vbp", "Visual Basic project or group; may be repeated");
    parser.AddLongOption("items", "item catalogue");
    parser.AddLongOption("allow-folder", "folder whose modules may be changed; may be repeated");
    parser.AddLongOption("code-page", "code page of the Visual Basic source",
                         wxCMD_LINE_VAL_NUMBER);
    parser.AddLongSwitch("version", "show the version");
    parser.AddSwitch("h", "help", "show this help", wxCMD_LINE_OPTION_HELP);
    parser.AddParam("PROJECT.ovs", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
  }

  bool OnCmdLineParsed(wxCmdLineParser& parser) override {
    wxString language;
    if (parser.Found("lang", &language)) language_ = wx::FromWx(language);
    version_ = parser.Found("version");
    if (parser.GetParamCount() > 0) project_ = wx::FromWx(parser.GetParam(0));
    for (const wxCmdLineArg& argument : parser.GetArguments()) TakeReadingOption(argument);
    return true;
  }

  bool OnInit() override {
    SetAppName("ovformula");
#if defined(__WXGTK__) && defined(NDEBUG)
    // The native toolkit reports passing sizes of a window that is being built; they tell an
    // engineer nothing.
    GTKSuppressDiagnostics();
#endif
    if (!wxApp::OnInit()) return false;
    if (version_) {
      std::printf("ovformula-desktop %s\n", desktop::kVersion);
      return false;
    }
    Start();
    return true;
  }

  // Operations put everything back themselves before an exception gets here.
  bool OnExceptionInMainLoop() override {
    std::string text;
    try {
      throw;
    } catch (const std::exception& error) {
      text = typeid(error).name();
    } catch (...) {
      text = "unknown exception";
    }
    const std::string log = desktop::WriteCrashLog(text);
    toolkit_->Show({texts_->Text(workbench::kTextFault),
                    texts_->Text(workbench::kTextFaultDetail, {{"<File>", log}}), "",
                    platform::MessageButtons::kOk, platform::MessageResult::kOk,
                    platform::MessageIcon::kError});
    return true;
  }

  int OnExit() override {
    window_system_.reset();
    return wxApp::OnExit();
  }

 private:
  void TakeReadingOption(const wxCmdLineArg& argument) {
    if (argument.GetKind() != wxCMD_LINE_OPTION) return;
    const wxString name = argument.GetLongName();
    if (name == "vbp") reading_.vb_files.push_back(FullPath(argument));
    if (name == "items") reading_.items_file = FullPath(argument);
    if (name == "allow-folder") reading_.writable_folders.push_back(FullPath(argument));
    if (name == "code-page") reading_.code_page = static_cast<int>(argument.GetLongVal());
  }

  // It is still right when the program is started from another folder.
  static std::string FullPath(const wxCmdLineArg& argument) {
    wxFileName path(argument.GetStrVal());
    path.MakeAbsolute();
    return wx::FromWx(path.GetFullPath());
  }

  void Start() {
    files::FileSystem& files = files::RealFileSystem();
    const workbench::UserFolders folders = workbench::FindUserFolders(files, Environment);
    if (!folders.state.empty()) StartCrashLog(files, folders.state);
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
    window->CallAfter([window, path, reading = reading_] {
      if (!path.empty()) window->OpenProject(path, reading);
      window->TellLastCrash();
    });
  }

  // A state folder that cannot be written is told when something is to be kept in it.
  static void StartCrashLog(files::FileSystem& files, const std::string& folder) {
    try {
      files.CreateDirectories(folder);
      desktop::InstallCrashLog(folder, desktop::kVersion);
    } catch (const std::exception&) {
    }
  }

  std::string language_;
  std::string project_;
  desktop::ReadingOptions reading_;
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
