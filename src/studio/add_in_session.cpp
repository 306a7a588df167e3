// SPDX-License-Identifier: MIT
#include "studio/add_in_session.h"

#include "platform/error.h"
#include "project/report.h"
#include "store/ado_fro.h"
#include "studio/window_texts.h"

namespace studio {

namespace {

constexpr const char* kReportProgId = "OVProjectReport.Connect";
constexpr std::int32_t kCannotCreateObject = 429;

}  // namespace

// Makes the report add-in, the one object that the editor creates by name.
class AddInSession::Reports final : public platform::ObjectFactory {
 public:
  explicit Reports(AddInSession& session) : session_(session) {}

  std::shared_ptr<platform::Object> Create(std::string_view prog_id) override {
    if (prog_id != kReportProgId) {
      throw platform::Error(platform::ErrorKind::kNotFound, kCannotCreateObject,
                            "ActiveX component can't create object: " + std::string(prog_id));
    }
    return std::make_shared<Report>(session_);
  }

 private:
  class Report final : public platform::ReportAddIn {
   public:
    explicit Report(AddInSession& session) : session_(session) {}
    void Show(std::string_view, std::string&, std::int32_t) override {
      editor::frmtabgrid* editor = session_.add_in_->EditorWindow();
      if (!editor) return;
      const Outside& outside = session_.outside_;
      auto progress = outside.toolkit.StartProgress(outside.texts.Text(kTextReportTitle));
      const std::string html = project::MakeReport(
          {session_.database_path_, editor->operations(), editor->cVBF, session_.items_,
           [&](std::size_t done, std::size_t total) { return progress->Show(done, total); }},
          outside.texts);
      progress.reset();
      if (!html.empty()) outside.show_report(html);
    }

   private:
    AddInSession& session_;
  };

  AddInSession& session_;
};

namespace {

jet::OpenOptions EngineOptions(files::FileSystem& system, const std::string& database_path,
                               const project::ProjectOptions& options) {
  jet::OpenOptions engine;
  engine.reach = project::ReachOf(system, database_path, options);
  return engine;
}

}  // namespace

AddInSession::AddInSession(const Outside& outside, const std::string& database_path,
                           const project::ProjectOptions& options)
    : outside_(outside),
      database_path_(database_path),
      connection_(std::make_shared<recordset::JetConnection>(
          outside.files, EngineOptions(outside.files, database_path, options))),
      database_(connection_),
      vb_(project::OpenVisualBasic(outside.files, database_path, options)),
      items_(outside.files, project::ItemsPath(outside.files, database_path, options),
             !options.items_file.empty()),
      components_(project::OpenComponents(outside.files, database_path, options)),
      foreign_changes_(outside.files, database_path),
      unit_(outside.files, database_path, project::ReachOf(outside.files, database_path, options)),
      reports_(std::make_unique<Reports>(*this)),
      studio_(std::make_shared<Studio>(project::StudioProjectName(outside.files, database_path))) {
  unit_.Enlist(database_);
  unit_.Enlist(*vb_);
  unit_.Enlist(foreign_changes_);
  add_in_ = std::make_unique<addin::Connect>(
      editor::Services{outside.toolkit, outside.window_system, outside.settings, outside.help,
                       *reports_, unit_, &items_, components_.get(), nullptr});
}

AddInSession::~AddInSession() { Stop(); }

void AddInSession::Start() {
  started_ = true;
  store::ADOFRO::SetConnectionFactory([this] { return connection_; });
  add_in_->Initialize(database_path_, studio_->project(), studio_, vb_);
}

void AddInSession::Stop() {
  if (!started_) return;
  started_ = false;
  add_in_->Terminate();
}

std::vector<std::string> AddInSession::Files() {
  std::vector<std::string> files = {database_path_};
  for (const auto& project : vb_->VBProjects()) {
    for (const auto& component : project->VBComponents()) {
      if (component->Type() == platform::ComponentType::kClassModule)
        files.push_back(component->FileName());
    }
  }
  return files;
}

}  // namespace studio
