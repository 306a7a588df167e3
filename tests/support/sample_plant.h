// SPDX-License-Identifier: MIT
// A whole project in memory: the database by our own engine, a formula server project by our own
// development environment, and the unit of work over both.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files/unit_of_work.h"
#include "project/connection_participant.h"
#include "recordset/jet_connection.h"
#include "tests/support/any_file.h"
#include "tests/support/memory_database.h"
#include "tests/support/project_files.h"
#include "vbfiles/environment.h"

namespace support {

inline constexpr const char* kPlantDatabase = kDatabasePath;

// PumpServer (an ActiveX DLL) with the public classes CPump and CTank and the private CHelper, and
// an empty database with the three tables.
class SamplePlant {
 public:
  files::MemoryFileSystem system;
  // Closed at first.
  std::shared_ptr<recordset::JetConnection> connection;
  std::shared_ptr<vbfiles::Environment> environment;
  files::JournalledUnitOfWork unit{system, kPlantDatabase, kAnyFile};

  SamplePlant() {
    const std::string code = "Option Explicit\r\n";
    PutProject(system, {{"CHelper", code}, {"CPump", code}, {"CTank", code}});
    system.Put(ClassPath("CHelper"), ClassHeader("CHelper", false) + code);
    PutDatabase(system);
    connection = std::make_shared<recordset::JetConnection>(system, AnyFileOptions());
    environment = std::make_shared<vbfiles::Environment>(system);
    environment->Open(kProjectPath);
    database_ = std::make_unique<project::ConnectionParticipant>(connection);
    unit.Enlist(*database_);
    unit.Enlist(*environment);
  }

  // The code of a class without the header of its file.
  std::string Code(const std::string& class_name) {
    return system.Get(ClassPath(class_name)).substr(ClassHeader(class_name).size());
  }

  // Changes a row as another program does.
  void ChangeElsewhere(const std::string& table, std::int32_t id, const std::string& field,
                       const platform::Variant& value) {
    recordset::JetConnection other(system, AnyFileOptions());
    other.Open(store::ProjectConnectionString(kPlantDatabase));
    const auto row = MemoryDatabase::Open(other, "SELECT * FROM " + table + " WHERE ID = ?", {id});
    row->Fields(field).SetValue(value);
    row->Update();
    row->Close();
  }

  // All rows of a table in the order of ID, their values with bars between them.
  std::vector<std::string> Rows(const std::string& table, const std::vector<std::string>& fields) {
    recordset::JetConnection reader(system, AnyFileOptions());
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
  std::unique_ptr<project::ConnectionParticipant> database_;
};

}  // namespace support
