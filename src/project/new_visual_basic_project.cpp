// SPDX-License-Identifier: MIT
#include "project/new_visual_basic_project.h"

#include <string_view>

#include "codegen/identifier.h"
#include "platform/text.h"

namespace project {

namespace {

constexpr std::string_view kClassName = "CFormulas";

constexpr std::string_view kProjectText =
    "Type=OleDll\r\n"
    "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#"
    "..\\..\\..\\Windows\\SysWOW64\\stdole2.tlb#OLE Automation\r\n"
    "Class=CFormulas; CFormulas.cls\r\n"
    "Startup=\"(None)\"\r\n"
    "HelpFile=\"\"\r\n"
    "Title=\"<Name>\"\r\n"
    "ExeName32=\"<Name>.dll\"\r\n"
    "Command32=\"\"\r\n"
    "Name=\"<Name>\"\r\n"
    "HelpContextID=\"0\"\r\n"
    "CompatibleMode=\"1\"\r\n"
    "MajorVer=1\r\n"
    "MinorVer=0\r\n"
    "RevisionVer=0\r\n"
    "AutoIncrementVer=0\r\n"
    "ServerSupportFiles=0\r\n"
    "CompilationType=0\r\n"
    "OptimizationType=0\r\n"
    "FavorPentiumPro(tm)=0\r\n"
    "CodeViewDebugInfo=0\r\n"
    "NoAliasing=0\r\n"
    "BoundsCheck=0\r\n"
    "OverflowCheck=0\r\n"
    "FlPointCheck=0\r\n"
    "FDIVCheck=0\r\n"
    "UnroundedFP=0\r\n"
    "StartMode=1\r\n"
    "Unattended=0\r\n"
    "Retained=0\r\n"
    "ThreadPerObject=0\r\n"
    "MaxNumberOfThreads=1\r\n"
    "ThreadingModel=1\r\n"
    "\r\n"
    "[MS Transaction Server]\r\n"
    "AutoRefresh=1\r\n";

constexpr std::string_view kClassText =
    "VERSION 1.0 CLASS\r\n"
    "BEGIN\r\n"
    "  MultiUse = -1  'True\r\n"
    "  Persistable = 0  'NotPersistable\r\n"
    "  DataBindingBehavior = 0  'vbNone\r\n"
    "  DataSourceBehavior  = 0  'vbNone\r\n"
    "  MTSTransactionMode  = 0  'NotAnMTSObject\r\n"
    "END\r\n"
    "Attribute VB_Name = \"CFormulas\"\r\n"
    "Attribute VB_GlobalNameSpace = False\r\n"
    "Attribute VB_Creatable = True\r\n"
    "Attribute VB_PredeclaredId = False\r\n"
    "Attribute VB_Exposed = True\r\n"
    "Option Explicit\r\n";

std::string WithoutExtension(const std::string& file_name) {
  const auto point = file_name.rfind('.');
  return point == std::string::npos || point == 0 ? file_name : file_name.substr(0, point);
}

std::string Replaced(std::string_view pattern, std::string_view name) {
  constexpr std::string_view kPlaceholder = "<Name>";
  std::string text(pattern);
  for (std::size_t at = 0; (at = text.find(kPlaceholder, at)) != std::string::npos;
       at += name.size()) {
    text.replace(at, kPlaceholder.size(), name);
  }
  return text;
}

std::string ToWindows1252(std::string_view text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    bytes +=
        static_cast<char>(platform::ToWindows1252(platform::NextCodePoint(text, at)).value_or('_'));
  }
  return bytes;
}

}  // namespace

std::string FormulaProjectName(const files::FileSystem& system, const std::string& database_path) {
  const std::string base = WithoutExtension(system.FileName(database_path));
  const std::string cleaned = codegen::CleanIdentifier(base);
  // No identifier of Visual Basic begins with an underscore.
  return (cleaned.starts_with('_') ? "P" : "") + cleaned + "Formulas";
}

std::string FormulaProjectPath(const files::FileSystem& system, const std::string& database_path) {
  const std::string base = WithoutExtension(system.FileName(database_path));
  return system.Join(system.Folder(database_path), base + "Formulas.vbp");
}

std::vector<NewFile> VisualBasicProjectFiles(const files::FileSystem& system,
                                             const std::string& vbp_path, const std::string& name) {
  return {{vbp_path, ToWindows1252(Replaced(kProjectText, name))},
          {system.Join(system.Folder(vbp_path), std::string(kClassName) + ".cls"),
           std::string(kClassText)}};
}

void MakeVisualBasicProject(files::FileSystem& system, MadeFiles& made, const std::string& vbp_path,
                            const std::string& name) {
  const std::string folder = system.Folder(vbp_path);
  if (!folder.empty()) system.CreateDirectories(folder);
  for (const NewFile& file : VisualBasicProjectFiles(system, vbp_path, name)) {
    made.Make(file.path, file.bytes);
  }
}

}  // namespace project
