// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "com/ado_objects.h"
#include "com/failure.h"
#include "platform/ado.h"

namespace com {

class AdoRecordset;

// What a connection over ADO's objects shares with its recordsets.
class AdoSession {
 public:
  explicit AdoSession(AdoObjects objects) : objects_(std::move(objects)) {}

  const std::string& provider() const { return objects_.provider; }
  LateBound Make(const std::string& kind) const { return objects_.make(kind); }

  // None while the connection is closed.
  LateBound connection;
  std::vector<platform::ProviderError> errors;

  // Raises kErrObjectClosed while the connection is closed.
  const LateBound& OpenConnection() const;

  // Keeps track of a recordset that was opened, until it is closed or gone.
  void Register(const std::shared_ptr<AdoRecordset>& recordset);
  std::vector<std::shared_ptr<AdoRecordset>> OpenRecordsets();

  // Calls what drives the objects; what they raise becomes platform::Error with the provider's
  // number and words and a remedy.
  template <class Action>
  decltype(auto) Driving(Action&& action) {
    try {
      return action();
    } catch (const Failure& failure) {
      Raise(failure);
    }
  }

 private:
  [[noreturn]] void Raise(const Failure& failure);
  // Reads the connection's error collection. False when it has nothing to say.
  bool ReadErrors();

  AdoObjects objects_;
  bool duplicate_ = false;  // the errors tell of a key that is there already
  std::vector<std::weak_ptr<AdoRecordset>> recordsets_;
};

// Raises a platform::Error for a call that the object's state or the arguments forbid.
[[noreturn]] void Refuse(std::int32_t number, const messages::Message& description);

}  // namespace com
