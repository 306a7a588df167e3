// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "com/host_vbe.h"
#include "files/unit_of_work.h"
#include "messages/message.h"
#include "platform/ado.h"
#include "platform/studio.h"
#include "platform/unit_of_work.h"
#include "project/connection_participant.h"
#include "recordset/jet_connection.h"

namespace embedded {

// The project database in the studio's process, opened by our own engine, and the unit of work over
// it and the environment's modules: rows are carried by the engine's journal; the modules' texts
// are put back when it fails.
class Database {
 public:
  // The environment may be null and must outlive this.
  Database(const std::string& path, com::HostVbe* environment);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Closed: the add-in opens it.
  const std::shared_ptr<platform::Connection>& connection() const { return connection_; }
  platform::UnitOfWork& unit();

 private:
  class Unit;

  std::shared_ptr<platform::Connection> connection_;
  std::unique_ptr<Unit> unit_;
};

}  // namespace embedded
