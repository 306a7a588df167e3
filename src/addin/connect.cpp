// SPDX-License-Identifier: MIT
// Life cycle of the add-in: start, ensure-open, release, reset.
#include "addin/connect.h"

#include <exception>
#include <utility>

#include "addin/tree_nodes.h"
#include "dialogs/dialog_context.h"
#include "editor/node_key.h"
#include "messages/text_number.h"
#include "platform/text.h"
#include "store/ado_fro.h"
#include "store/record_helpers.h"
#include "store/schema.h"

namespace addin {

namespace {

constexpr std::string_view kDatabaseExtension = ".ovs";
constexpr std::string_view kProjectsKey = "SOFTWARE\\Meridax GmbH\\Orvana\\4.0\\Projects\\";
constexpr std::string_view kCompanyKey = "SOFTWARE\\Meridax GmbH";
constexpr std::string_view kHelpFile = "\\helpfiles\\Formelsystem.chm";
constexpr std::string_view kEditorName = "OVFormulaEditor";

bool IsDatabasePath(std::string_view name) {
  name = name.substr(0, name.find_last_not_of(' ') + 1);
  return name.size() >= kDatabaseExtension.size() &&
         platform::EqualsIgnoringCase(name.substr(name.size() - kDatabaseExtension.size()),
                                      kDatabaseExtension);
}

std::string WithoutTrailingBlanks(std::string_view name) {
  return std::string(name.substr(0, name.find_last_not_of(' ') + 1));
}

// The formulas for the tree. Raises platform::Error when they cannot be read.
std::vector<FormulaNode> ReadFormulaNodes(platform::Recordset& formulas) {
  std::vector<FormulaNode> nodes;
  store::OpenFilteredAtFirst(formulas, "");
  if (!formulas.EOF_()) {
    const platform::RowBlock rows = formulas.GetRows(-1, {"ID", "Name"});
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      nodes.push_back({rows.At(0, row).ToLong(), rows.At(1, row).ToText()});
    }
  }
  store::CloseRecordset(formulas, false);
  return nodes;
}

}  // namespace

Connect::Connect(const editor::Services& services)
    : services_(services),
      texts_(texts::ChooseLanguage(services_.settings)),
      messages_(services_.toolkit, texts_),
      embedding_(services_.window_system) {}

Connect::~Connect() { Release(); }

std::int32_t Connect::Event(const std::function<void()>& body) {
  try {
    body();
  } catch (const std::exception& error) {
    messages_.Warn(error);
  }
  return 0;
}

// --- Start ---

std::int32_t Connect::Initialize(std::string_view ov4_project_name, std::string_view,
                                 std::shared_ptr<platform::Object> ov4_add_in,
                                 std::shared_ptr<platform::Object> ov4_any) {
  return Event([&] {
    studio_project_name_ = ov4_project_name;
    host_add_in_ = std::dynamic_pointer_cast<platform::AddIn>(ov4_add_in);
    ide_ = std::dynamic_pointer_cast<platform::VBE>(ov4_any);
    if (!host_add_in_ || ov4_project_name.empty()) return;
    database_path_ = DatabasePathOf(services_.settings, ov4_project_name);
    host_window_ = host_add_in_->MainWindow();
    BuildRoot(*host_add_in_, texts_);
    services_.help.SetHelpFile(services_.settings.RegistryText(kCompanyKey, "Common", "") +
                               std::string(kHelpFile));
  });
}

std::string Connect::DatabasePathOf(platform::SettingsService& settings, std::string_view project) {
  if (project.empty()) return {};
  if (IsDatabasePath(project)) return WithoutTrailingBlanks(project);
  const std::string name(project);
  const std::string folder = settings.RegistryText(std::string(kProjectsKey) + name, "Path", "");
  return folder + "\\" + name + std::string(kDatabaseExtension);
}

// --- Ensure-open ---

void Connect::EnsureOpen() {
  if (initialised_ || opening_ || !host_add_in_) return;
  struct Opening {
    Connect& connect;
    ~Opening() {
      connect.opening_ = false;
      if (std::exchange(connect.ends_when_open_, false)) connect.Terminate();
    }
  };
  opening_ = true;
  const Opening opening{*this};
  Open();
}

void Connect::Open() {
  const dialogs::BusyPointer busy(services_.toolkit);
  if (!ConnectToDataBase()) return;
  try {
    OpenEditor();
    initialised_ = true;
  } catch (...) {
    // Half an editor is of no use: the next node event starts again.
    const std::shared_ptr<platform::AddIn> host = host_add_in_;
    RemoveBranches(*host);
    Release();
    host_add_in_ = host;
    throw;
  }
}

bool Connect::ConnectToDataBase() {
  try {
    platform::Connection& connection = *store::ADOFRO::Instance().cnnFormulas();
    if (connection.State() != platform::ObjectState::kClosed) return true;
    connection.Open(store::ProjectConnectionString(database_path_));
    const std::vector<std::string> missing = store::MissingFromSchema(connection);
    if (missing.empty()) return true;
    return RefuseDataBase(texts_.Sentence(store::DescribeMissing(missing)));
  } catch (const platform::Error& error) {
    return RefuseDataBase(std::to_string(error.number()) + "   " + texts_.Sentence(error));
  }
}

bool Connect::RefuseDataBase(const std::string& reason) {
  store::ADOFRO::Drop();
  constexpr messages::TextNumber kCannotOpen{1530};
  platform::MessageBox box;
  box.prompt = texts_.Text(kCannotOpen, {{"<File>", database_path_}});
  box.detail = reason;
  box.title = "ConnectToDataBase";
  box.icon = platform::MessageIcon::kError;
  messages_.Show(std::move(box));
  return false;
}

void Connect::OpenEditor() {
  store::ADOFRO& data = store::ADOFRO::Instance();
  editor_ = std::make_shared<editor::frmtabgrid>(
      *this, services_, texts_, messages_,
      editor::Project{data.cnnFormulas(), data.rstabvbAlias(), ide_, database_path_,
                      studio_project_name_});
  services_.toolkit.Load(*editor_);
  const platform::WindowHandle window = services_.toolkit.Handle(*editor_);
  embed_result_ = embedding_.Embed(window, *host_add_in_);
  editor_->ApplyPosition();
  BuildBranches(*host_add_in_, texts_, ReadFormulaNodes(*data.rsFormulas()));
  if (embedding_.IsCompiledModule()) {
    editor_->SetHooked(true);
    embedding_.Hook(window, [editor = editor_.get()](bool active) {
      active ? editor->Activated() : editor->Deactivated();
    });
  }
  host_add_in_->HandOverEditor(host_add_in_->RegisterEditor(kEditorName));
}

// --- Stop ---

std::int32_t Connect::Terminate() {
  if (opening_) {
    ends_when_open_ = true;
    return 0;
  }
  return Event([this] {
    if (host_add_in_) RemoveRoot(*host_add_in_);
    Release();
  });
}

void Connect::Release() {
  platform::Toolkit& toolkit = services_.toolkit;
  const std::shared_ptr<editor::frmtabgrid> window = std::move(editor_);
  const platform::WindowHandle handle = window ? toolkit.Handle(*window) : 0;
  if (window) {
    window->VerifyAdds(window->CurrentKey());
    embedding_.Release(handle, embed_result_);
  }
  store::ADOFRO::Drop();
  if (window) {
    if (embedding_.IsCompiledModule()) embedding_.Unhook(handle);
    window->Close(forms::CloseReason::kCode);
    toolkit.Unload(*window);
    toolkit.CallLater([window] {});  // outlives the event that let it go
  }
  initialised_ = false;
  host_add_in_.reset();
}

void Connect::Reset() {
  if (!initialised_) return;
  const dialogs::BusyPointer busy(services_.toolkit);
  const std::string key = editor_->CurrentKey();
  const bool visible = editor_->Visible();
  const std::shared_ptr<platform::AddIn> host = host_add_in_;
  RemoveBranches(*host);
  Release();
  host_add_in_ = host;
  EnsureOpen();
  if (!initialised_) return;
  if (visible) services_.toolkit.ShowModeless(*editor_);
  if (!editor::IsOwnKey(key)) return;
  const std::string text = host->NodeInformation(key, platform::kNodeInformationText);
  host->SelectNode(key);
  SelectFormula(key, text);
}

void Connect::RebuildViews() {
  services_.toolkit.CallLater([self = std::weak_ptr<Connect*>(self_)] {
    const std::shared_ptr<Connect*> connect = self.lock();
    if (!connect) return;
    (*connect)->Event([&] { (*connect)->Reset(); });
  });
}

std::string Connect::EditorCaption() const { return editor_ ? editor_->Caption() : std::string(); }

}  // namespace addin
