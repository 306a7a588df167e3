// SPDX-License-Identifier: MIT
// A whole project in memory: the database by our own engine, a formula server project by our own
// development environment, and the unit of work over both.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "files/unit_of_work.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/schema.h"
#include "vbfiles/environment.h"
#include "workbench/connection_participant.h"

namespace support {

inline constexpr const char* kPlantDatabase = "/plant/Plant.ovs";

// PumpServer (an ActiveX DLL) with the public classes CPump and CTank and the private CHelper, and
// an empty database with the three tables.
class SamplePlant {
 public:
  files::MemoryFileSystem system;
  // Closed at first.
  std::shared_ptr<recordset::JetConnection> connection;
  std::shared_ptr<vbfiles::Environment> environment;
  files::JournalledUnitOfWork unit{system, kPlantDatabase};

  SamplePlant() {
    system.Put("/plant/Pump.vbp",
               "Type=OleDll\r\nClass=CPump; CPump.cls\r\nClass=CTank; CTank.cls\r\n"
               "Class=CHelper; CHelper.cls\r\nName=\"PumpServer\"\r\n");
    system.Put("/plant/CPump.cls", ClassFile("CPump", true, "Option Explicit\r\n"));
    system.Put("/plant/CTank.cls", ClassFile("CTank", true, "Option Explicit\r\n"));
    system.Put("/plant/CHelper.cls", ClassFile("CHelper", false, "Option Explicit\r\n"));
    CreateDatabase();
    connection = std::make_shared<recordset::JetConnection>(system);
    environment = std::make_shared<vbfiles::Environment>(system);
    environment->Open("/plant/Pump.vbp");
    database_ = std::make_unique<workbench::ConnectionParticipant>(connection);
    unit.Enlist(*database_);
    unit.Enlist(*environment);
  }

  // The code of a class without the header of its file.
  std::string Code(const std::string& class_name) {
    const std::string file = system.Get("/plant/" + class_name + ".cls");
    const std::string last = "Attribute VB_Exposed = ";
    return file.substr(file.find("\r\n", file.find(last)) + 2);
  }

  // All rows of a table as lines of tab-separated values in the order of ID.
  std::vector<std::string> Rows(const std::string& table, const std::vector<std::string>& fields) {
    recordset::JetConnection reader(system);
    reader.Open(store::ProjectConnectionString(kPlantDatabase));
    const auto recordset = reader.CreateRecordset();
    recordset->SetSource("SELECT * FROM " + table + " ORDER BY ID");
    recordset->Open();
    std::vector<std::string> lines;
    if (recordset->EOF_()) return lines;
    const platform::RowBlock rows = recordset->GetRows(-1, fields);
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
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
    recordset::JetConnection created(system);
    created.Create(store::ProjectConnectionString(kPlantDatabase));
    store::CompleteSchema(created);
    created.Close();
  }

  std::unique_ptr<workbench::ConnectionParticipant> database_;
};

}  // namespace support
