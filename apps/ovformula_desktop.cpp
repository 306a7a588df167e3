// SPDX-License-Identifier: MIT
// The desktop program.
#include <wx/cmdline.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <typeinfo>

#include "apps/process.h"
#include "desktop/crash_log.h"
#include "desktop/program.h"
#include "desktop/reading_options.h"
#include "desktop/version.h"
#include "files/real_file_system.h"
#include "project/language.h"
#include "project/user_folders.h"
#include "studio/window_texts.h"
#include "wx/application.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace {

class App : public wxApp {
 public:
  void OnInitCmdLine(wxCmdLineParser& parser) override { Describe(parser); }

  static void Describe(wxCmdLineParser& parser) {
    parser.SetSwitchChars("-");  // a path may begin with a slash
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

  bool OnCmdLineError(wxCmdLineParser& parser) override {
    bad_usage_ = true;
    return wxApp::OnCmdLineError(parser);
  }
  static bool BadUsage() { return bad_usage_; }

  bool OnCmdLineParsed(wxCmdLineParser& parser) override {
    wxString language;
    if (parser.Found("lang", &language)) language_ = wx::FromWx(language);
    if (parser.GetParamCount() > 0) project_ = wx::FromWx(parser.GetParam(0));
    for (const wxCmdLineArg& argument : parser.GetArguments()) TakeReadingOption(argument);
    return true;
  }

  bool OnInit() override {
    SetAppName("ovformula");
    if (!wxApp::OnInit()) return false;
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
    const texts::TextTable& texts = program_->texts();
    program_->toolkit().Show({texts.Text(studio::kTextFault),
                              texts.Text(studio::kTextFaultDetail, {{"<File>", log}}), "",
                              platform::MessageButtons::kOk, platform::MessageResult::kOk,
                              platform::MessageIcon::kError});
    return true;
  }

  int OnExit() override {
    program_.reset();
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
    const project::UserFolders folders = project::FindUserFolders(files, apps::Environment);
    if (!folders.state.empty()) StartCrashLog(files, folders.state);
    program_ = std::make_unique<desktop::Program>(
        files, folders, project::ChooseLanguage(language_, files, apps::Environment));
    desktop::MainWindow* window = &program_->window();
    const std::string path = project_.empty() ? program_->state().project : project_;
    window->CallWhenShown([window, path, reading = reading_] {
      if (!path.empty()) window->OpenProject(path, reading);
      window->ShowLastCrash();
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
  static inline bool bad_usage_ = false;
  std::unique_ptr<desktop::Program> program_;
};

void Print(apps::StandardStream stream, const std::string& text) {
  std::error_code failure;
  apps::Write(stream, text.data(), text.size(), failure);
}

#ifdef __WXGTK__
// Whether the locale of messages knows no language.
bool IsPlainLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string locale = apps::Environment(name);
    if (!locale.empty()) return locale == "C" || locale == "POSIX";
  }
  return true;
}

// The toolkit's own menus and dialogs speak the language, too. The C library translates them for
// every locale of messages but the plain ones, and wxWidgets sets none.
void ChooseToolkitLanguage(texts::Language language) {
  const bool german = language == texts::Language::kGerman;
  if (IsPlainLocale()) wxSetEnv("LC_ALL", "C.UTF-8");
  wxSetEnv("LANGUAGE", german ? "de" : "en");
  std::setlocale(LC_MESSAGES, "");
}
#else
// Windows' own menus and dialogs speak the language of the system.
void ChooseToolkitLanguage(texts::Language) {}
#endif

}  // namespace

wxIMPLEMENT_APP_NO_MAIN(App);

// What needs no window is answered without a display.
int main(int argc, char** argv) {
  apps::PrepareProcess();
  std::string language;
  for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--version") {
      Print(apps::kStandardOutput, std::string("ovformula-desktop ") + desktop::kVersion + "\n");
      return EXIT_SUCCESS;
    }
    if (argument == "--help" || argument == "-h") {
      wxCmdLineParser parser(1, argv);
      App::Describe(parser);
      Print(apps::kStandardOutput, wx::FromWx(parser.GetUsageString()));
      return EXIT_SUCCESS;
    }
    if (argument == "--lang" && i + 1 < argc) language = argv[i + 1];
    if (argument.starts_with("--lang=")) language = argument.substr(7);
  }
  const texts::Language chosen =
      project::ChooseLanguage(language, files::RealFileSystem(), apps::Environment);
#ifdef __WXGTK__
  if (apps::Environment("DISPLAY").empty() && apps::Environment("WAYLAND_DISPLAY").empty()) {
    const texts::TextTable texts(chosen);
    Print(apps::kStandardError, texts.Text(studio::kTextNoDisplay) + "\n");
    return EXIT_FAILURE;
  }
#endif
  ChooseToolkitLanguage(chosen);
  const int result = wx::RunApp(argc, argv);
  constexpr int kUsage = 2;
  return App::BadUsage() ? kUsage : result;
}
