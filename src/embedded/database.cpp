// SPDX-License-Identifier: MIT
#include "embedded/database.h"

#include <utility>

#include "files/file_system.h"

namespace embedded {

// The engine's unit of work; what stayed of the environment's modules is told with it.
class Database::Unit final : public platform::UnitOfWork {
 public:
  Unit(const std::string& path, std::shared_ptr<recordset::JetConnection> connection,
       com::HostVbe* environment)
      : unit_(files::RealFileSystem(), path),
        database_(std::move(connection)),
        environment_(environment) {
    unit_.Enlist(database_);
    if (environment_) unit_.Enlist(*environment_);
  }

  void Begin() override { unit_.Begin(); }
  void SetTitle(const messages::Message& title) override { unit_.SetTitle(title); }
  void Commit() override { unit_.Commit(); }
  void Rollback() noexcept override { unit_.Rollback(); }
  bool IsOpen() const override { return unit_.IsOpen(); }
  std::vector<messages::Message> NotUndone() const override {
    std::vector<messages::Message> left = unit_.NotUndone();
    if (environment_) {
      const auto& modules = environment_->not_restored();
      left.insert(left.end(), modules.begin(), modules.end());
    }
    return left;
  }

 private:
  files::JournalledUnitOfWork unit_;
  project::ConnectionParticipant database_;
  com::HostVbe* environment_;
};

Database::Database(const std::string& path, com::HostVbe* environment) {
  auto connection = std::make_shared<recordset::JetConnection>(files::RealFileSystem());
  connection_ = connection;
  unit_ = std::make_unique<Unit>(path, std::move(connection), environment);
}

Database::~Database() = default;

platform::UnitOfWork& Database::unit() { return *unit_; }

}  // namespace embedded
