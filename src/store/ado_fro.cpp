// SPDX-License-Identifier: MIT
#include "store/ado_fro.h"

#include <cassert>
#include <utility>

#include "store/record_helpers.h"

namespace store {
namespace {

ADOFRO::ConnectionFactory& Factory() {
  static ADOFRO::ConnectionFactory factory;
  return factory;
}

std::unique_ptr<ADOFRO>& Holder() {
  static std::unique_ptr<ADOFRO> instance;
  return instance;
}

// A value that would not be read back as it stands is put in quotes, its own quotes doubled.
std::string ConnectionValue(std::string_view value) {
  const bool plain = value.find(';') == std::string_view::npos &&
                     value.find_first_of("\"' ") != 0 && !value.ends_with(' ');
  if (plain) return std::string(value);
  std::string quoted = "\"";
  for (const char c : value) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

}  // namespace

std::string ProjectConnectionString(std::string_view path, Access access) {
  return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + ConnectionValue(path) +
         ";Mode=" + (access == Access::kRead ? "Read" : "Read|Write") + "|Share Deny None;";
}

void ADOFRO::SetConnectionFactory(ConnectionFactory factory) { Factory() = std::move(factory); }

ADOFRO& ADOFRO::Instance() {
  std::unique_ptr<ADOFRO>& instance = Holder();
  if (!instance) {
    assert(Factory());
    instance.reset(new ADOFRO(Factory()()));
  }
  return *instance;
}

bool ADOFRO::Exists() { return Holder() != nullptr; }

void ADOFRO::Drop() { Holder().reset(); }

ADOFRO::ADOFRO(std::shared_ptr<platform::Connection> connection)
    : connection_(std::move(connection)) {}

ADOFRO::~ADOFRO() {
  try {
    Close();
  } catch (const std::exception&) {
    // The connection goes away in any case, and rolls back what was not committed.
  }
}

void ADOFRO::Close() {
  if (connection_->State() == platform::ObjectState::kClosed) return;
  for (const auto& recordset : connection_->OpenRecordsets()) CloseRecordset(*recordset, false);
  connection_->Close();
}

const std::shared_ptr<platform::Recordset>& ADOFRO::Command(
    std::shared_ptr<platform::Recordset>& recordset, std::string_view source,
    platform::CommandType type) {
  if (!recordset) {
    recordset = connection_->CreateRecordset();
    recordset->SetSource(source);
    recordset->SetCommandType(type);
    recordset->SetCursorType(platform::CursorType::kKeyset);
    recordset->SetLockType(platform::LockType::kOptimistic);
  }
  return recordset;
}

const std::shared_ptr<platform::Recordset>& ADOFRO::rsvbAlias() {
  return Command(vb_alias_, "TvbfAlias", platform::CommandType::kTable);
}

const std::shared_ptr<platform::Recordset>& ADOFRO::rstabvbAlias() {
  return Command(tab_vb_alias_, "TvbfAlias", platform::CommandType::kTable);
}

const std::shared_ptr<platform::Recordset>& ADOFRO::rsParams() {
  return Command(params_, "SELECT * FROM TvbfParams", platform::CommandType::kText);
}

const std::shared_ptr<platform::Recordset>& ADOFRO::rsFormulas() {
  return Command(formulas_, "TvbfFormulas", platform::CommandType::kTable);
}

const std::shared_ptr<platform::Recordset>& ADOFRO::rstabParams() {
  return Command(tab_params_, "SELECT * FROM TvbfParams  WHERE ParentID = ?",
                 platform::CommandType::kText);
}

}  // namespace store
