// SPDX-License-Identifier: MIT
// The project's component list, the item browser and the object factory in tests.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/studio.h"

namespace support {

class RecordingComponentList : public platform::ComponentList {
 public:
  std::vector<std::string> calls;  // such as "Add FormulaComponents PumpServer.CPump"

  void Open(std::string_view project) override { calls.push_back("Open " + std::string(project)); }
  void Add(std::string_view key, std::string_view value) override {
    calls.push_back("Add " + std::string(key) + ' ' + std::string(value));
  }
  void Remove(std::string_view key, std::string_view value) override {
    calls.push_back("Remove " + std::string(key) + ' ' + std::string(value));
  }
  void Commit() override { calls.push_back("Commit"); }
};

class TableItems : public platform::OVItems {
 public:
  std::map<std::string, std::int32_t, std::less<>> types;

  std::optional<std::int32_t> VariantTypeOf(std::string_view item) override {
    auto found = types.find(item);
    return found == types.end() ? std::nullopt : std::optional(found->second);
  }
};

class RecordingReport : public platform::ReportAddIn {
 public:
  std::vector<std::string> reports;

  void Show(std::string_view report_type, std::string&, std::int32_t) override {
    reports.emplace_back(report_type);
  }
};

// Knows one report add-in, or none while `report` is null.
class ReportFactory : public platform::ObjectFactory {
 public:
  std::shared_ptr<RecordingReport> report;

  std::shared_ptr<platform::Object> Create(std::string_view prog_id) override {
    if (report && prog_id == "OVProjectReport.Connect") return report;
    throw platform::Error(platform::ErrorKind::kNotFound, 429,
                          messages::Message::Verbatim("ActiveX component can't create object"));
  }
};

}  // namespace support
