// SPDX-License-Identifier: MIT
#include "editor/editor_context.h"

#include <utility>

#include "messages/text_number.h"
#include "platform/error.h"
#include "platform/text.h"

namespace editor {

namespace {

constexpr std::string_view kMoveWithCode = "MoveWithCode";  // entry of the settings file

}  // namespace

EditorContext::EditorContext(EditorHost& its_host, const Services& its_services,
                             const texts::TextTable& its_texts, dialogs::MessageBoxes& its_messages,
                             Project its_project, forms::Form& owner)
    : host(its_host),
      studio(host.HostAddIn()),
      services(its_services),
      texts(its_texts),
      messages(its_messages),
      project(std::move(its_project)),
      inits(services.settings),
      code(texts, services.items, services.components),
      operations({project.connection, project.vbe, &code, &services.unit, &texts}),
      rows(project.connection, project.grid_aliases, operations, services.notes),
      items(services.items),
      dialog_context{services.toolkit,
                     texts,
                     messages,
                     operations,
                     rows.AliasesByName(),
                     items,
                     studio.get(),
                     &services.help,
                     &owner,
                     services.offers_uses,
                     services.in_workbench} {
  code.Initialize(project.connection, project.vbe, project.name);
  dialog_context.choices->move_with_code = KeptMoveWithCode();
}

forms::TextLookup EditorContext::Lookup() const {
  return [this](messages::TextNumber number) { return Text(number); };
}

bool EditorContext::SettingIsOn(std::string_view key) const {
  const platform::Variant value = inits.ReadAValueFromCInits(key);
  const bool* on = value.Get<bool>();
  return value.IsEmpty() || (on && *on);
}

std::string EditorContext::SettingsFile() const {
  const std::string& path = project.database_path;
  // A path from the root has no other separator; elsewhere both kinds are met.
  const std::size_t end = path.find_last_of(path.starts_with('/') ? "/" : "\\/");
  const std::string folder = end == std::string::npos ? std::string() : path.substr(0, end + 1);
  return folder + std::string(settings::kSettingsFile);
}

bool EditorContext::KeptMoveWithCode() const {
  const std::string kept =
      services.settings.ReadIni(SettingsFile(), settings::kEditorSettings, kMoveWithCode, "");
  return kept.empty() ? services.moves_take_code : platform::EqualsIgnoringCase(kept, "True");
}

void EditorContext::KeepChoices() {
  const bool chosen = dialog_context.choices->move_with_code;
  if (chosen == KeptMoveWithCode()) return;
  services.settings.WriteIni(SettingsFile(), settings::kEditorSettings, kMoveWithCode,
                             chosen ? "True" : "False");
}

void EditorContext::ReadArguments(std::string_view key) {
  try {
    rows.ReadArguments(key);
  } catch (const platform::Error& error) {
    messages.Warn(error);
  }
}

bool EditorContext::ShowFunction(std::string_view prog_id, std::string_view name) {
  return code.ShowFunction(*this, prog_id, name);
}

}  // namespace editor
