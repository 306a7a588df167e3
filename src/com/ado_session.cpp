// SPDX-License-Identifier: MIT
#include "com/ado_session.h"

#include <utility>

#include "com/ado_recordset.h"
#include "com/provider_messages.h"
#include "recordset/messages.h"

namespace com {

namespace {

using platform::ErrorKind;

constexpr std::int32_t kProviderNotFound = 3706;
constexpr const char* kDuplicateState = "3022";  // Jet's number of a key that is there already

// Before anything was opened.
bool IsMissing(const Failure& failure) {
  return failure.kind() == ErrorKind::kNotFound || failure.number() == kProviderNotFound ||
         HRESULT_FACILITY(failure.result()) == FACILITY_DISPATCH;
}

ErrorKind KindOf(std::int32_t number) {
  constexpr std::uint32_t kProviderErrors = 0x80040E00;
  switch (number) {
    case platform::kErrWriteConflict:
    case platform::kErrRowDeleted:
      return ErrorKind::kConflict;
    case platform::kErrItemNotFound:
    case platform::kErrNoSuchTable:
    case platform::kErrNoSuchIndex:
      return ErrorKind::kNotFound;
    default: {
      const bool told =
          number > 0 || (static_cast<std::uint32_t>(number) & 0xFFFFFF00) == kProviderErrors;
      return told ? ErrorKind::kRefused : ErrorKind::kIo;
    }
  }
}

messages::Message RemedyOf(ErrorKind kind) {
  switch (kind) {
    case ErrorKind::kConflict:
      return recordset::message::kReadAgain;
    case ErrorKind::kIo:
      return message::kLookAtFile;
    default:
      return message::kOpenAnew;
  }
}

}  // namespace

void Refuse(std::int32_t number, const messages::Message& description) {
  throw platform::Error(ErrorKind::kRefused, number, description);
}

const LateBound& AdoSession::OpenConnection() const {
  if (!connection) Refuse(platform::kErrObjectClosed, recordset::message::kConnectionClosed);
  return connection;
}

void AdoSession::Register(const std::shared_ptr<AdoRecordset>& recordset) {
  std::erase_if(recordsets_, [&](const auto& other) {
    const auto alive = other.lock();
    return !alive || alive->State() == platform::ObjectState::kClosed || alive == recordset;
  });
  recordsets_.push_back(recordset);
}

std::vector<std::shared_ptr<AdoRecordset>> AdoSession::OpenRecordsets() {
  std::vector<std::shared_ptr<AdoRecordset>> open;
  for (const auto& recordset : recordsets_) {
    auto alive = recordset.lock();
    if (alive && alive->State() == platform::ObjectState::kOpen) open.push_back(std::move(alive));
  }
  return open;
}

bool AdoSession::ReadErrors() try {
  std::vector<platform::ProviderError> told;
  bool duplicate = false;
  if (!connection) return false;
  const LateBound collection = connection.Object(L"Errors");
  const std::int32_t count = collection.Get(L"Count").ToLong();
  for (std::int32_t i = 0; i < count; ++i) {
    const LateBound error = collection.Object(L"Item", {Value(i)});
    const std::string native = error.Get(L"NativeError").ToText();
    const std::string state = error.Has(L"SQLState") ? error.Get(L"SQLState").ToText() : native;
    duplicate = duplicate || state == kDuplicateState;
    told.push_back({error.Get(L"Number").ToLong(), error.Get(L"NativeError").ToLong(),
                    error.Get(L"Description").ToText()});
  }
  errors = std::move(told);
  duplicate_ = duplicate;
  return !errors.empty();
} catch (const Failure&) {
  return false;  // the failure that led here is the one to report
}

void AdoSession::Raise(const Failure& failure) {
  if (IsMissing(failure) && !connection) {
    constexpr int kBits = sizeof(void*) * 8;
    throw platform::Error(
        ErrorKind::kNotFound, failure.number(),
        messages::Message(
            message::kProviderMissing,
            {{"<Provider>", provider()}, {"<Bits>", kBits}, {"<Cause>", failure.message()}}));
  }
  std::int32_t number = failure.number();
  // Numbers above 0 are those of the objects: nothing that the provider would know of.
  const bool has_errors = number < 0 && ReadErrors();
  if (has_errors && duplicate_) number = platform::kErrErrorsOccurred;
  const ErrorKind kind = KindOf(number);
  const messages::Message said(
      message::kProviderSays,
      {{"<Provider>", provider()}, {"<Number>", number}, {"<Text>", failure.message()}});
  throw platform::Error(kind, number, messages::Joined(said, RemedyOf(kind)));
}

}  // namespace com
