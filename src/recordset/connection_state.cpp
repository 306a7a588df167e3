// SPDX-License-Identifier: MIT
#include "recordset/connection_state.h"

#include <utility>

#include "files/error.h"
#include "jet/error.h"
#include "recordset/jet_recordset.h"

namespace recordset {
namespace {

using platform::ErrorKind;

constexpr std::int32_t kNativeDuplicate = 3022;  // the engine's own number for a duplicate key

platform::Error FromEngine(const jet::Error& error) {
  const messages::Message& message = error.message();
  switch (error.kind()) {
    case jet::ErrorKind::kDuplicate:
      return {ErrorKind::kRefused, platform::kErrErrorsOccurred, message};
    case jet::ErrorKind::kRequired:
      return {ErrorKind::kRefused, platform::kErrNullNotAllowed, message};
    case jet::ErrorKind::kInvalid:
      return {ErrorKind::kRefused, platform::kErrDataOverflow, message};
    case jet::ErrorKind::kExists:
      return {ErrorKind::kRefused, platform::kErrObjectExists, message};
    case jet::ErrorKind::kNotFound:
      return {ErrorKind::kNotFound, platform::kErrItemNotFound, message};
    case jet::ErrorKind::kConflict:
      return {ErrorKind::kConflict, platform::kErrWriteConflict, message};
    case jet::ErrorKind::kReadOnly:
      return {ErrorKind::kRefused, platform::kErrPermissionDenied, message};
    default:
      return {ErrorKind::kIo, platform::kErrUnspecified, message};
  }
}

platform::Error FromFiles(const files::Error& error) {
  switch (error.kind()) {
    case files::ErrorKind::kConflict:
      return {ErrorKind::kConflict, platform::kErrWriteConflict, error.message()};
    case files::ErrorKind::kReadOnly:
      return {ErrorKind::kIo, platform::kErrPermissionDenied, error.message()};
    case files::ErrorKind::kExists:
      return {ErrorKind::kRefused, platform::kErrObjectExists, error.message()};
    default:
      return {ErrorKind::kIo, platform::kErrUnspecified, error.message()};
  }
}

}  // namespace

jet::Database& ConnectionState::OpenDatabase() {
  if (!database) Refuse(platform::kErrObjectClosed, message::kConnectionClosed);
  return *database;
}

void ConnectionState::Register(const std::shared_ptr<JetRecordset>& recordset) {
  std::erase_if(recordsets_, [&](const auto& other) {
    const auto alive = other.lock();
    return !alive || alive->State() == platform::ObjectState::kClosed || alive == recordset;
  });
  recordsets_.push_back(recordset);
}

std::vector<std::shared_ptr<JetRecordset>> ConnectionState::OpenRecordsets() {
  std::vector<std::shared_ptr<JetRecordset>> open;
  for (const auto& recordset : recordsets_) {
    auto alive = recordset.lock();
    if (alive && alive->State() == platform::ObjectState::kOpen) open.push_back(std::move(alive));
  }
  return open;
}

void ConnectionState::Keep(const platform::Error& error) {
  if (error.number() > 0) return;  // not from the engine: a misuse of the object
  const bool duplicate = error.number() == platform::kErrErrorsOccurred;
  errors = {{error.number(), duplicate ? kNativeDuplicate : 0, error.description()}};
}

void ConnectionState::Rethrow() {
  auto raise = [this](const platform::Error& error) {
    Keep(error);
    throw error;
  };
  try {
    throw;
  } catch (const jet::Error& error) {
    raise(FromEngine(error));
  } catch (const files::Error& error) {
    raise(FromFiles(error));
  } catch (const std::exception& error) {
    raise({ErrorKind::kInternal, platform::kErrUnspecified, messages::MessageOf(error)});
  }
  std::terminate();
}

void Refuse(std::int32_t number, const messages::Message& description) {
  throw platform::Error(platform::ErrorKind::kRefused, number, description);
}

}  // namespace recordset
