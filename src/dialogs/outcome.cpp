// SPDX-License-Identifier: MIT
#include "dialogs/outcome.h"

namespace dialogs {

store::OperationResult Carry(const Surroundings& surroundings,
                             const std::function<store::OperationResult()>& operation) {
  store::OperationResult result;
  {
    const BusyPointer busy(surroundings.toolkit);
    result = operation();
  }
  surroundings.ShowWarnings(result.warnings);
  return result;
}

void WarnFailure(const Surroundings& surroundings, const store::OperationResult& result,
                 std::int32_t text) {
  if (text == 0 || text == result.text_id) {
    surroundings.messages.Warn(result.message, result.detail);
  } else {
    surroundings.messages.Warn(surroundings.Text(text), Explanation(result));
  }
}

std::string Explanation(const store::OperationResult& result) {
  if (result.message.empty() || result.detail.empty()) return result.message + result.detail;
  return result.message + "\n" + result.detail;
}

}  // namespace dialogs
