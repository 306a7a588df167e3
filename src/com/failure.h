// SPDX-License-Identifier: MIT
// Failures between exceptions and the results of COM.
#pragma once

#include <string>

#include "com/ole.h"
#include "platform/error.h"

namespace com {

// A call of the system or of a host that failed with this result; `description` is what it said.
class Failure : public platform::Error {
 public:
  Failure(HRESULT result, const std::string& description);
  HRESULT result() const { return result_; }

 private:
  HRESULT result_;
};

// Raises Failure for a result that is none of success.
void Require(HRESULT result);

// The result that a number of an error object is known by: negative numbers are results
// themselves, others those of Visual Basic and ADO.
HRESULT ResultOf(std::int32_t number);
// The number of a result, the other way round.
std::int32_t NumberOf(HRESULT result);

// What is being caught, as a result; with `details` its number, source and sentence for the caller.
// To be called in a catch clause. Never raises.
HRESULT ResultOfException(EXCEPINFO* details, const wchar_t* source) noexcept;

// Runs what is called from outside: no exception leaves it.
template <class Action>
HRESULT Guarded(const Action& action, EXCEPINFO* details = nullptr,
                const wchar_t* source = L"OVFormulaEditor") noexcept {
  try {
    return action();
  } catch (...) {
    return ResultOfException(details, source);
  }
}

}  // namespace com
