// SPDX-License-Identifier: MIT
#include "desktop/backup_keeper.h"

#include <wx/datetime.h>
#include <wx/utils.h>

#include <algorithm>

#include "files/error.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

project::Backups BackupKeeper::BackupsOf(const std::string& path) const {
  return {outside_.parts.files, outside_.parts.state.FolderOf("backups", path)};
}

void BackupKeeper::Watch(project::Project& opened) {
  const WindowParts& parts = outside_.parts;
  if (parts.state.folder().empty() || !parts.state.with_backups) return;
  daily_ = std::make_unique<project::DailyBackup>(
      parts.files, parts.state.FolderOf("backups", opened.path()),
      project::DailyBackup::Dependencies{
          [] { return wx::FromWx(wxDateTime::Now().FormatISODate()); },
          [&opened] { return opened.ChangeableFiles(); },
          [this] { outside_.later([this] { List(path_); }); },
          [this](const std::exception& reason) {
            const texts::TextTable& texts = outside_.parts.texts;
            outside_.messages.Status(
                texts.Text(studio::kTextBackupFailed, {{"<Text>", texts.Sentence(reason)}}));
          }});
  opened.unit().Enlist(*daily_);
}

void BackupKeeper::List(const std::string& path) {
  backups_.clear();
  path_ = path;
  if (!path.empty() && !outside_.parts.state.folder().empty()) {
    try {
      backups_ = BackupsOf(path).List();
    } catch (const files::Error& error) {
      outside_.messages.Status(outside_.parts.texts.Sentence(error));
    }
  }
  std::vector<std::string> names;
  for (const auto& backup : backups_) names.push_back(backup.name);
  outside_.show(names);
}

void BackupKeeper::Offer(const std::string& path) {
  const auto daily = std::ranges::find_if(backups_, &project::Backups::Backup::IsDaily);
  if (restoring_ || path_ != path || daily == backups_.end()) return;
  Restore(project::Backups::Backup(*daily));
}

void BackupKeeper::Restore(std::size_t place) {
  Restore(project::Backups::Backup(backups_[place]));  // restoring makes another
}

void BackupKeeper::Restore(const project::Backups::Backup& backup) {
  const texts::TextTable& texts = outside_.parts.texts;
  if (!outside_.messages.Ask(texts.Text(studio::kTextRestoreQuestion, {{"<Date>", backup.name}}),
                             texts.Text(studio::kTextRestoreDetail))) {
    return;
  }
  const std::string path = path_;
  const wxBusyCursor busy;
  if (!outside_.close_project()) return;
  restoring_ = true;
  bool restored = false;
  try {
    BackupsOf(path).Restore(backup, wx::FromWx(wxDateTime::Now().Format("%Y-%m-%d %H.%M.%S")));
    restored = true;
  } catch (const std::exception& error) {
    outside_.messages.Fail(texts.Text(studio::kTextCannotRestore), texts.Sentence(error));
  }
  if (outside_.open_project(path) && restored)
    outside_.messages.Status(texts.Text(studio::kTextRestored, {{"<Date>", backup.name}}));
  restoring_ = false;
}

}  // namespace desktop
