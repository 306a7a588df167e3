// SPDX-License-Identifier: MIT
#include "embedded/add_in_run.h"

#include <optional>
#include <utility>

#include "addin/connect.h"
#include "com/failure.h"
#include "com/host_add_in.h"
#include "com/host_database.h"
#include "com/host_log.h"
#include "com/host_services.h"
#include "com/host_settings.h"
#include "com/host_vbe.h"
#include "com/studio_names.h"
#include "embedded/help.h"
#include "embedded/pictures.h"
#include "embedded/runtime.h"
#include "embedded/toolkit.h"
#include "embedded/undo.h"
#include "embedded/window_system.h"
#include "files/account.h"
#include "files/file_system.h"
#include "messages/text_number.h"
#include "project/history_setting.h"
#include "project/item_file.h"
#include "project/provider_setting.h"
#include "store/ado_fro.h"
#include "texts/text_table.h"

namespace embedded {

namespace {

constexpr messages::TextNumber kRunsAlready{4003};
constexpr messages::TextNumber kFault{4004};

// The item catalogue that stands in for the studio's item browser.
std::string ItemsPath(const std::string& database) {
  files::FileSystem& system = files::RealFileSystem();
  return system.Join(system.Folder(database), "items.csv");
}

// Everything that the add-in is made of, in the order in which it is needed.
class Parts {
 public:
  explicit Parts(const com::ConnectObject::Given& given)
      : runtime_(Runtime::Use()),
        settings_(files::RealFileSystem()),
        texts_(texts::ChooseLanguage(settings_)),
        studio_(std::make_shared<com::HostAddIn>(
            given.studio,
            com::HostAddIn::Fallbacks{MakePicture,
                                      [this](const std::string& text) { Tell(text); }})),
        environment_(given.environment ? std::make_shared<com::HostVbe>(given.environment)
                                       : nullptr),
        toolkit_(runtime_, texts_, studio_->MainWindow()),
        help_(texts_),
        path_(addin::Connect::DatabasePathOf(settings_, given.project)),
        database_({.path = path_,
                   .connection_string = store::ProjectConnectionString(path_),
                   .provider = project::ProviderOf(settings_),
                   .author = {files::AccountAtComputer(), "OVFormulaEditor"},
                   .with_history = project::KeepsHistory(settings_),
                   .log = [this](const auto& said) { com::AddToHostLog(texts_.Sentence(said)); }},
                  environment_.get()),
        items_file_(files::RealFileSystem(), ItemsPath(path_), false),
        undo_(
            texts_, database_, [this] { return add_in_->EditorWindow(); }, *studio_) {
    if (active_) {
      throw platform::Error(platform::ErrorKind::kRefused, platform::kErrObjectOpen,
                            messages::Message({kRunsAlready, {}}));
    }
    if (given.studio.Has(com::names::kComponentList)) {
      components_.emplace(given.studio.Object(com::names::kComponentList));
    }
    if (given.studio.Has(com::names::kItems)) {
      items_.emplace(given.studio.Object(com::names::kItems));
    }
    store::ADOFRO::SetConnectionFactory([this] { return database_.Connect(); });
    platform::OVItems* items = items_ ? static_cast<platform::OVItems*>(&*items_) : &items_file_;
    add_in_.emplace(editor::Services{.toolkit = toolkit_,
                                     .window_system = window_system_,
                                     .settings = settings_,
                                     .help = help_,
                                     .objects = objects_,
                                     .unit = database_.unit(),
                                     .items = items,
                                     .components = components_ ? &*components_ : nullptr,
                                     .undo = &undo_});
    active_ = this;
    runtime_->on_exception = [this] { TellOfException(); };
  }
  ~Parts() {
    if (active_ != this) return;
    active_ = nullptr;
    runtime_->on_exception = nullptr;
  }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  addin::Connect& add_in() { return *add_in_; }
  const std::shared_ptr<Runtime>& runtime() const { return runtime_; }
  const std::shared_ptr<com::HostAddIn>& studio() const { return studio_; }
  const std::shared_ptr<com::HostVbe>& environment() const { return environment_; }

 private:
  void Tell(const std::string& text) {
    platform::MessageBox box;
    box.prompt = text;
    box.icon = platform::MessageIcon::kWarning;
    toolkit_.Show(box);
  }
  // Operations put everything back themselves before an exception gets here.
  void TellOfException() {
    std::string words;
    try {
      throw;
    } catch (const std::exception& error) {
      words = texts_.Sentence(error);
    } catch (...) {
    }
    platform::MessageBox box;
    box.prompt = texts_.Text(kFault);
    box.detail = words;
    box.icon = platform::MessageIcon::kError;
    toolkit_.Show(box);
  }

  static inline Parts* active_ = nullptr;
  std::shared_ptr<Runtime> runtime_;
  com::HostSettings settings_;
  texts::TextTable texts_;
  std::shared_ptr<com::HostAddIn> studio_;
  std::shared_ptr<com::HostVbe> environment_;
  Toolkit toolkit_;
  WindowSystem window_system_;
  Help help_;
  com::HostObjects objects_;
  std::string path_;
  com::HostDatabase database_;
  project::ItemFile items_file_;
  Undo undo_;
  std::optional<com::HostComponentList> components_;
  std::optional<com::HostItems> items_;
  std::optional<addin::Connect> add_in_;
};

// The events go to the add-in. What it is made of goes when no handler of its windows runs.
class Run final : public platform::COV4Extensibility {
 public:
  explicit Run(const com::ConnectObject::Given& given) : parts_(std::make_shared<Parts>(given)) {}
  ~Run() override {
    const std::shared_ptr<Runtime> runtime = parts_->runtime();
    DestroyOutsideHandlers(runtime, std::move(parts_));
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  std::int32_t Initialize(std::string_view project, std::string_view vb_project,
                          std::shared_ptr<platform::Object>,
                          std::shared_ptr<platform::Object>) override {
    return add_in().Initialize(project, vb_project, parts_->studio(), parts_->environment());
  }
  std::int32_t StartupComplete() override { return add_in().StartupComplete(); }
  std::int32_t Deactivate() override { return add_in().Deactivate(); }
  std::int32_t Terminate() override {
    Runtime::CancelDialogs();
    return add_in().Terminate();
  }
  std::int32_t GetMessage(std::string_view sender, std::string_view message,
                          const platform::Variant& params) override {
    return add_in().GetMessage(sender, message, params);
  }
  std::int32_t NodeClick(std::string_view project, std::string_view key,
                         std::string_view text) override {
    return add_in().NodeClick(project, key, text);
  }
  std::int32_t NodeDblClick(std::string_view project, std::string_view key,
                            std::string_view text) override {
    return add_in().NodeDblClick(project, key, text);
  }
  std::int32_t NodeExpand(std::string_view project, std::string_view key,
                          std::string_view text) override {
    return add_in().NodeExpand(project, key, text);
  }
  std::int32_t NodeMouseDown(std::string_view project, std::string_view key, std::string_view text,
                             std::int32_t button, std::int32_t shift, float x, float y) override {
    return add_in().NodeMouseDown(project, key, text, button, shift, x, y);
  }
  std::int32_t NodeMouseMove(std::string_view project, std::string_view key, std::string_view text,
                             std::int32_t button, std::int32_t shift, float x, float y) override {
    return add_in().NodeMouseMove(project, key, text, button, shift, x, y);
  }
  std::int32_t NodeMouseUp(std::string_view project, std::string_view key, std::string_view text,
                           std::int32_t button, std::int32_t shift, float x, float y) override {
    return add_in().NodeMouseUp(project, key, text, button, shift, x, y);
  }
  std::int32_t NodeKeyDown(std::string_view project, std::string_view key, std::string_view text,
                           std::int16_t& key_code, std::int16_t& shift) override {
    return add_in().NodeKeyDown(project, key, text, key_code, shift);
  }
  std::int32_t NodeKeyPress(std::string_view project, std::string_view key, std::string_view text,
                            std::int16_t& key_ascii) override {
    return add_in().NodeKeyPress(project, key, text, key_ascii);
  }
  std::int32_t NodeKeyUp(std::string_view project, std::string_view key, std::string_view text,
                         std::int16_t& key_code, std::int16_t& shift) override {
    return add_in().NodeKeyUp(project, key, text, key_code, shift);
  }

 private:
  addin::Connect& add_in() { return parts_->add_in(); }

  std::shared_ptr<Parts> parts_;
};

// Nothing leaves an event: the studio's user is told what keeps the add-in from running, and the
// log.
void Tell(const com::LateBound& studio, const std::exception& failure) {
  com::HostSettings settings(files::RealFileSystem());
  const std::string sentence = texts::TextTable(texts::ChooseLanguage(settings)).Sentence(failure);
  com::AddToHostLog(sentence);
  com::HostAddIn(studio, {MakePicture, [](const std::string&) {}}).ShowError(sentence);
}

}  // namespace

std::unique_ptr<platform::COV4Extensibility> MakeAddIn(const com::ConnectObject::Given& given) {
  try {
    return std::make_unique<Run>(given);
  } catch (const std::exception& failure) {
    Tell(given.studio, failure);
    throw;
  }
}

}  // namespace embedded
