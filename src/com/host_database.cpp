// SPDX-License-Identifier: MIT
#include "com/host_database.h"

#include <cassert>
#include <optional>
#include <utility>

#include "com/ado_connection.h"
#include "com/provider_messages.h"
#include "files/recovery.h"
#include "files/unit_of_work.h"
#include "project/connection_participant.h"
#include "project/transaction_participant.h"
#include "recordset/jet_connection.h"

namespace com {

namespace {

// What keeps the demanded provider from opening the file.
[[noreturn]] void RaiseDemanded(const std::exception& error) {
  using platform::ErrorKind;
  const messages::Message cause = messages::MessageOf(error);
  const auto* raised = dynamic_cast<const platform::Error*>(&error);
  if (!raised) throw platform::Error(ErrorKind::kIo, platform::kErrUnspecified, cause);
  const bool missing = raised->kind() == ErrorKind::kNotFound;
  throw platform::Error(
      raised->kind(), raised->number(),
      missing ? messages::Message(message::kProviderDemanded, {{"<Cause>", cause}}) : cause);
}

}  // namespace

// The unit of work over whatever was chosen last; what could not be put back is told with it.
class HostDatabase::Unit final : public platform::UnitOfWork {
 public:
  Unit(const Options& options, HostVbe* environment)
      : options_(options), environment_(environment) {}

  void UseEngine(std::shared_ptr<recordset::JetConnection> connection) {
    transaction_ = nullptr;
    auto engine = std::make_unique<project::ConnectionParticipant>(std::move(connection));
    const project::ConnectionParticipant& rows = *engine;
    Use(std::move(engine));
    history_.emplace(
        *options_.files, options_.path, *unit_, [&rows] { return rows.database(); },
        options_.author);
    history_->RecordCodeOf(environment_);
    if (!options_.with_history) history_->SwitchOff();
    unit_->Enlist(*history_);
  }
  void UseTransactions(std::shared_ptr<platform::Connection> connection) {
    auto transaction = std::make_unique<project::TransactionParticipant>(std::move(connection));
    transaction_ = transaction.get();
    Use(std::move(transaction));
  }

  history::Recorder* history() { return history_ ? &*history_ : nullptr; }

  void Begin() override { unit_->Begin(); }
  void SetTitle(const messages::Message& title) override { unit_->SetTitle(title); }
  void Commit() override { unit_->Commit(); }
  void Rollback() noexcept override { unit_->Rollback(); }
  bool IsOpen() const override { return unit_ && unit_->IsOpen(); }
  std::vector<messages::Message> NotUndone() const override {
    std::vector<messages::Message> left = unit_->NotUndone();
    if (transaction_ && !transaction_->not_restored().empty()) {
      left.push_back({message::kRowsNotRestored, {{"<Cause>", transaction_->not_restored()}}});
    }
    if (environment_) {
      const auto& modules = environment_->not_restored();
      left.insert(left.end(), modules.begin(), modules.end());
    }
    return left;
  }

 private:
  // The database comes last: its transaction ends when all else has been collected.
  void Use(std::unique_ptr<files::Participant> database) {
    assert(!IsOpen());
    history_.reset();
    unit_.emplace(*options_.files, options_.path);
    database_ = std::move(database);
    if (environment_) unit_->Enlist(*environment_);
    unit_->Enlist(*database_);
  }

  const Options& options_;
  HostVbe* environment_;
  std::unique_ptr<files::Participant> database_;
  project::TransactionParticipant* transaction_ = nullptr;  // is database_, where rows are in one
  std::optional<files::JournalledUnitOfWork> unit_;
  std::optional<history::Recorder> history_;  // of our engine
};

HostDatabase::HostDatabase(Options options, HostVbe* environment)
    : options_(std::move(options)), unit_(std::make_unique<Unit>(options_, environment)) {}

HostDatabase::~HostDatabase() = default;

platform::UnitOfWork& HostDatabase::unit() { return *unit_; }

history::Recorder* HostDatabase::history() { return unit_->history(); }

void HostDatabase::Log(const messages::Message& message) const {
  if (options_.log) options_.log(message);
}

std::shared_ptr<platform::Connection> HostDatabase::Connect() {
  if (auto provided = TryProvider()) {
    unit_->UseTransactions(provided);
    return provided;
  }
  auto own = std::make_shared<recordset::JetConnection>(*options_.files);
  unit_->UseEngine(own);
  return own;
}

// Null when our engine is to take its place.
std::shared_ptr<platform::Connection> HostDatabase::TryProvider() {
  if (options_.provider == project::Provider::kOwn) return nullptr;
  try {
    // The provider would take half of a change for the whole.
    files::Recover(*options_.files, options_.path, {});
    auto connection = std::make_shared<AdoConnection>(options_.objects);
    connection->Open(options_.connection_string);
    connection->Close();
    Log({message::kProviderUsed,
         {{"<File>", options_.path}, {"<Provider>", options_.objects.provider}}});
    return connection;
  } catch (const std::exception& error) {
    if (options_.provider == project::Provider::kJet) RaiseDemanded(error);
    Log({message::kOwnEngineUsed,
         {{"<File>", options_.path}, {"<Cause>", messages::MessageOf(error)}}});
    return nullptr;
  }
}

}  // namespace com
