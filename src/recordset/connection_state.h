// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "jet/database.h"
#include "platform/ado.h"
#include "recordset/messages.h"

namespace recordset {

class JetRecordset;

// The open database of a connection, shared with its recordsets.
class ConnectionState {
 public:
  // Null while the connection is closed.
  std::unique_ptr<jet::Database> database;
  std::vector<platform::ProviderError> errors;

  // Raises kErrObjectClosed while the connection is closed.
  jet::Database& OpenDatabase();

  // Keeps track of a recordset that was opened, until it is closed or gone.
  void Register(const std::shared_ptr<JetRecordset>& recordset);
  std::vector<std::shared_ptr<JetRecordset>> OpenRecordsets();

  // Calls what reaches the engine; its failures become platform::Error and entries of `errors`.
  template <class Action>
  decltype(auto) Guarded(Action&& action) {
    try {
      return action();
    } catch (const platform::Error& error) {
      Keep(error);
      throw;
    } catch (const std::exception&) {
      Rethrow();
    }
  }

  // The same for what only reads: one look at the file serves all of it.
  template <class Action>
  decltype(auto) Reading(Action&& action) {
    return Guarded([&]() -> decltype(auto) {
      const jet::Database::ReadGuard guard(OpenDatabase());
      return action();
    });
  }

 private:
  void Keep(const platform::Error& error);
  // Raises the engine's exception that is being handled as platform::Error.
  [[noreturn]] void Rethrow();

  std::vector<std::weak_ptr<JetRecordset>> recordsets_;
};

// Raises a platform::Error for a call that the object's state or the arguments forbid.
[[noreturn]] void Refuse(std::int32_t number, const messages::Message& description);

}  // namespace recordset
