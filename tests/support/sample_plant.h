// SPDX-License-Identifier: MIT
// A whole project in memory: the database by our own engine, a formula server project by our own
// development environment, and the unit of work over both.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/memory_file_system.h"
#include "files/unit_of_work.h"
#include "platform/ado.h"
#include "recordset/jet_connection.h"
#include "vbfiles/environment.h"

namespace support {

// The unit of work over a database that is opened later: an editor opens it on first use and may
// close and open it again.
class PlantUnit : public platform::UnitOfWork {
 public:
  PlantUnit(files::FileSystem& system, std::string database_path, files::Participant& modules)
      : system_(system), database_path_(std::move(database_path)), modules_(modules) {
    SetDatabase(nullptr);
  }
  // Null when the database is closed.
  void SetDatabase(files::Participant* database) {
    unit_ = std::make_unique<files::JournalledUnitOfWork>(system_, database_path_);
    if (database) unit_->Enlist(*database);
    unit_->Enlist(modules_);
  }

  void Begin() override { unit_->Begin(); }
  void Commit() override { unit_->Commit(); }
  void Rollback() noexcept override { unit_->Rollback(); }
  bool IsOpen() const override { return unit_->IsOpen(); }
  std::vector<std::string> NotUndone() const override { return unit_->NotUndone(); }

 private:
  files::FileSystem& system_;
  std::string database_path_;
  files::Participant& modules_;
  std::unique_ptr<files::JournalledUnitOfWork> unit_;
};

inline constexpr const char* kPlantDatabase = "/plant/Plant.ovs";
inline constexpr const char* kPlantProvider = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";

// PumpServer (an ActiveX DLL) with the public classes CPump and CTank and the private CHelper, and
// an empty database with the three tables.
class SamplePlant {
 public:
  files::MemoryFileSystem system;
  std::shared_ptr<vbfiles::Environment> environment;
  std::unique_ptr<PlantUnit> unit;

  SamplePlant() {
    system.Put("/plant/Pump.vbp",
               "Type=OleDll\r\nClass=CPump; CPump.cls\r\nClass=CTank; CTank.cls\r\n"
               "Class=CHelper; CHelper.cls\r\nName=\"PumpServer\"\r\n");
    system.Put("/plant/CPump.cls", ClassFile("CPump", true, "Option Explicit\r\n"));
    system.Put("/plant/CTank.cls", ClassFile("CTank", true, "Option Explicit\r\n"));
    system.Put("/plant/CHelper.cls", ClassFile("CHelper", false, "Option Explicit\r\n"));
    environment = std::make_shared<vbfiles::Environment>(system);
    environment->Open("/plant/Pump.vbp");
    unit = std::make_unique<PlantUnit>(system, kPlantDatabase, *environment);
    CreateDatabase();
  }

  // A connection that is closed; it joins the unit of work by Opened.
  std::shared_ptr<recordset::JetConnection> CreateConnection() {
    return std::make_shared<recordset::JetConnection>(system);
  }
  void Opened(platform::Connection& connection) {
    unit->SetDatabase(&dynamic_cast<recordset::JetConnection&>(connection).database());
  }
  void Closing() { unit->SetDatabase(nullptr); }

  // The code of a class without the header of its file.
  std::string Code(const std::string& class_name) {
    const std::string file = system.Get("/plant/" + class_name + ".cls");
    const std::string last = "Attribute VB_Exposed = ";
    return file.substr(file.find("\r\n", file.find(last)) + 2);
  }

  // All rows of a table as lines of tab-separated values in the order of ID.
  std::vector<std::string> Rows(const std::string& table, const std::vector<std::string>& fields) {
    recordset::JetConnection connection(system);
    connection.Open(std::string(kPlantProvider) + kPlantDatabase);
    const auto recordset = connection.CreateRecordset();
    recordset->SetSource("SELECT * FROM " + table + " ORDER BY ID");
    recordset->Open();
    std::vector<std::string> lines;
    if (recordset->EOF_()) return lines;
    const platform::VariantArray rows = recordset->GetRows(-1, fields);
    for (std::size_t row = 0; row < rows.second; ++row) {
      std::string line;
      for (std::size_t field = 0; field < fields.size(); ++field) {
        std::string text = rows.At(field, row).ToText();
        if (text == std::string(1, '\0')) text.clear();
        line += (field ? "|" : "") + text;
      }
      lines.push_back(line);
    }
    return lines;
  }

 private:
  static std::string ClassFile(const std::string& name, bool is_public, const std::string& code) {
    const std::string shown = is_public ? "True" : "False";
    return "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = " + std::string(is_public ? "-1" : "0") +
           "  '" + shown + "\r\nEND\r\nAttribute VB_Name = \"" + name +
           "\"\r\nAttribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = " + shown +
           "\r\nAttribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = " + shown + "\r\n" +
           code;
  }

  void CreateDatabase() {
    using platform::DataType;
    recordset::JetConnection connection(system);
    connection.Create(std::string(kPlantProvider) + kPlantDatabase);
    const platform::Connection::IndexInfo key{"PrimaryKey", {"ID"}, true, true};
    const platform::Connection::ColumnInfo id{"ID", DataType::kInteger, 0, true};
    connection.CreateTable("TvbfFormulas",
                           {id,
                            {"Name", DataType::kVarWChar, 255},
                            {"ProgID", DataType::kVarWChar, 255},
                            {"Type", DataType::kInteger},
                            {"ScanTime", DataType::kInteger},
                            {"Enabled", DataType::kBoolean},
                            {"Comment", DataType::kVarWChar, 255}},
                           {key, {"ProgID", {"ProgID"}}});
    connection.CreateTable(
        "TvbfAlias",
        {id, {"ItemID", DataType::kVarWChar, 255}, {"VBAlias", DataType::kVarWChar, 255}},
        {key, {"VBAlias", {"VBAlias"}, true}});
    connection.CreateTable("TvbfParams",
                           {id,
                            {"ParentID", DataType::kInteger},
                            {"AliasID", DataType::kInteger},
                            {"In", DataType::kBoolean},
                            {"Out", DataType::kBoolean}},
                           {key, {"Unique", {"ParentID", "AliasID"}, true}});
    connection.Close();
  }
};

}  // namespace support
