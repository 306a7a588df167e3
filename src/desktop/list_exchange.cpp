// SPDX-License-Identifier: MIT
#include "desktop/list_exchange.h"

#include <wx/filedlg.h>

#include <utility>
#include <vector>

#include "desktop/chosen_file.h"
#include "desktop/crash_log.h"
#include "dialogs/list_texts.h"
#include "exchange/exchange_texts.h"
#include "exchange/export_text.h"
#include "exchange/refused_lines.h"
#include "files/replace_file.h"
#include "wx/convert.h"

namespace desktop {

namespace {

// By place in the export dialog's list of formats.
enum Format { kEverything, kAliases, kFormulas };
constexpr const char* kExtensions[] = {".json", ".csv", ".csv"};

}  // namespace

void ListExchange::Import(editor::frmtabgrid& editor, project::Project& project) {
  RememberStep("import");
  wxFileDialog dialog(&frame_, wx::ToWx(parts_.Text(dialogs::kTextImportList)),
                      wx::ToWx(parts_.files.Folder(project.path())), "",
                      wx::ToWx(parts_.Text(dialogs::kTextListFilter)),
                      wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() != wxID_OK) return;
  const std::string path = wx::FromWx(dialog.GetPath());
  try {
    const std::string bytes = files::ReadFile(parts_.files, path);
    dialogs::ListToImport list;
    list.name = parts_.files.FileName(path);
    list.contents = exchange::ReadList(bytes);
    list.title = {{exchange::kTextImportTitle}, {{"<Name>", list.name}}};
    list.keep_refused = [&](const auto& refused) {
      return KeepRefused(project, path, bytes, refused);
    };
    editor.ImportList(list);
  } catch (const std::exception& error) {
    messages_.Warn(parts_.texts.Text(dialogs::kTextCannotImport, {{"<File>", path}}),
                   parts_.texts.Sentence(error));
  }
}

bool ListExchange::KeepRefused(project::Project& project, const std::string& list_path,
                               const std::string& bytes,
                               const std::vector<exchange::ImportPlan::Line>& refused) {
  const std::string name = parts_.files.FileName(list_path);
  const std::size_t point = name.rfind('.');
  const std::string proposed = name.substr(0, point) + "-2" +
                               (point == std::string::npos ? std::string() : name.substr(point));
  wxFileDialog dialog(&frame_, wx::ToWx(parts_.Text(dialogs::kTextSaveRefused)),
                      wx::ToWx(parts_.files.Folder(list_path)), wx::ToWx(proposed),
                      wx::ToWx(parts_.Text(dialogs::kTextListFilter)), wxFD_SAVE);
  if (dialog.ShowModal() != wxID_OK) return false;
  const std::string path = wx::FromWx(dialog.GetPath());
  std::vector<exchange::RefusedLine> lines;
  lines.reserve(refused.size());
  for (const auto& line : refused) {
    lines.push_back({line.place, parts_.texts.Sentence(line.reason)});
  }
  try {
    return WriteChosen(
        parts_, messages_, project, path,
        exchange::WriteRefusedLines(bytes, lines, parts_.Text(dialogs::kTextColumnReason)));
  } catch (const std::exception& error) {
    messages_.Warn(parts_.texts.Text(dialogs::kTextCannotExport, {{"<File>", path}}),
                   parts_.texts.Sentence(error));
    return false;
  }
}

void ListExchange::Export(editor::frmtabgrid& editor, project::Project& project) {
  RememberStep("export");
  wxFileDialog dialog(&frame_, wx::ToWx(parts_.Text(dialogs::kTextExportProject)),
                      wx::ToWx(parts_.files.Folder(project.path())), wx::ToWx(project.name()),
                      wx::ToWx(parts_.Text(dialogs::kTextExportFilter)), wxFD_SAVE);
  if (dialog.ShowModal() != wxID_OK) return;
  const std::string path = wx::FromWx(dialog.GetPath());
  try {
    WriteRows(project, editor.operations(), path, dialog.GetFilterIndex());
  } catch (const std::exception& error) {
    messages_.Warn(parts_.texts.Text(dialogs::kTextCannotExport, {{"<File>", path}}),
                   parts_.texts.Sentence(error));
  }
}

void ListExchange::WriteRows(project::Project& project, store::Operations& operations,
                             const std::string& chosen, int format) {
  const bool has_extension = parts_.files.FileName(chosen).find('.') != std::string::npos;
  const std::string path = has_extension ? chosen : chosen + kExtensions[format];
  std::string text;
  const auto take = [&](std::string_view piece) { text += piece; };
  std::size_t unreadable = 0;
  if (format == kEverything) {
    exchange::ExportJson(operations, {}, take);
  } else {
    unreadable = exchange::ExportCsv(
        operations,
        format == kAliases ? exchange::TableKind::kAliases : exchange::TableKind::kFormulas, take);
  }
  if (!WriteChosen(parts_, messages_, project, path, text)) return;
  messages_.Status(
      parts_.texts.Text(unreadable == 0 ? dialogs::kTextExported : dialogs::kTextExportedWithout,
                        {{"<File>", path}, {"<Count>", std::to_string(unreadable)}}));
}

}  // namespace desktop
