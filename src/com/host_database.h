// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "com/ado_objects.h"
#include "com/host_vbe.h"
#include "files/file_system.h"
#include "history/recorder.h"
#include "messages/message.h"
#include "platform/ado.h"
#include "platform/unit_of_work.h"
#include "project/provider_setting.h"

namespace com {

// The project database in the studio's process, opened by the machine's database provider or by our
// own engine, and the unit of work over it and the environment's modules. With our engine the rows
// are carried by its journal; with the provider they are a transaction of its own. The modules'
// texts are put back when either fails.
class HostDatabase {
 public:
  struct Options {
    files::FileSystem* files = &files::RealFileSystem();
    std::string path;
    std::string connection_string;  // for that path
    project::Provider provider = project::Provider::kAuto;
    AdoObjects objects = AdoObjects::Installed();
    history::Author author = {};  // of the history's records
    bool with_history = true;
    // Told which one was chosen, and why. May be empty.
    std::function<void(const messages::Message&)> log;
  };

  // The environment may be null and must outlive this.
  HostDatabase(Options options, HostVbe* environment);
  ~HostDatabase();
  HostDatabase(const HostDatabase&) = delete;
  HostDatabase& operator=(const HostDatabase&) = delete;

  // Chooses; the connection is closed. The unit of work is over it from now on. Raises
  // platform::Error when the provider is demanded and cannot open the file, or an interrupted
  // change must be settled first. REQUIRES: no unit is open, and what was given before is closed.
  std::shared_ptr<platform::Connection> Connect();
  // Of our engine; null while the provider has the database, or nobody.
  history::Recorder* history();
  // The same object always; nothing can be begun before the first Connect.
  platform::UnitOfWork& unit();

 private:
  class Unit;

  std::shared_ptr<platform::Connection> TryProvider();
  void Log(const messages::Message& message) const;

  const Options options_;
  std::unique_ptr<Unit> unit_;
};

}  // namespace com
