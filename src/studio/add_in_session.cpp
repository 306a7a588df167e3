// SPDX-License-Identifier: MIT
#include "studio/add_in_session.h"

#include "files/error.h"
#include "platform/error.h"
#include "platform/prog_id.h"
#include "project/report.h"
#include "store/ado_fro.h"
#include "studio/window_texts.h"
#include "vbfiles/messages.h"

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
    if (!(platform::ProgId(prog_id) == platform::ProgId(kReportProgId))) {
      throw platform::Error(platform::ErrorKind::kNotFound, kCannotCreateObject,
                            files::CausedBy(vbfiles::message::kCannotCreateObject,
                                            messages::Message::Verbatim(prog_id)));
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
      const Dependencies& own = session_.dependencies_;
      project::Project& project = session_.project_;
      auto progress = own.toolkit.StartProgress(own.texts.Text(kTextReportTitle));
      const std::string html = project::MakeReport(
          {project.path(), editor->operations(), editor->cVBF, project.items(),
           [&](std::size_t done, std::size_t total) { return progress->Show(done, total); }},
          own.texts);
      progress.reset();
      if (!html.empty()) own.show_report(html);
    }

   private:
    AddInSession& session_;
  };

  AddInSession& session_;
};

AddInSession::AddInSession(project::Project& project, const Dependencies& dependencies)
    : project_(project),
      dependencies_(dependencies),
      notes_(project.items()),
      reports_(std::make_unique<Reports>(*this)),
      studio_(std::make_shared<Studio>(project.name())) {
  add_in_ =
      std::make_unique<addin::Connect>(editor::Services{.toolkit = dependencies.toolkit,
                                                        .window_system = dependencies.window_system,
                                                        .settings = dependencies.settings,
                                                        .help = dependencies.help,
                                                        .objects = *reports_,
                                                        .unit = project.unit(),
                                                        .items = &project.items(),
                                                        .components = project.components(),
                                                        .notes = &notes_,
                                                        .moves_take_code = true,
                                                        .offers_uses = true,
                                                        .in_workbench = true});
}

AddInSession::~AddInSession() { Stop(); }

void AddInSession::Start() {
  started_ = true;
  store::ADOFRO::SetConnectionFactory([this] { return project_.connection(); });
  add_in_->Initialize(project_.path(), studio_->project(), studio_, project_.vb());
}

void AddInSession::Stop() {
  if (!started_) return;
  started_ = false;
  add_in_->Terminate();
}

}  // namespace studio
