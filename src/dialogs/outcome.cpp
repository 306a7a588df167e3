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

store::OperationResult CarryList(
    const Surroundings& surroundings, std::int32_t task,
    const std::function<store::OperationResult(const store::OperationOptions&)>& operation) {
  const MessageBoxes::Guard guard(surroundings.messages);
  const auto progress = surroundings.toolkit.StartProgress(surroundings.Text(task));
  store::OperationOptions options;
  options.progress = [&](std::size_t done, std::size_t total) {
    return progress->Show(done, total);
  };
  return Carry(surroundings, [&] { return operation(options); });
}

void WarnFailure(const Surroundings& surroundings, const store::OperationResult& result,
                 std::int32_t text) {
  if (result.outcome == store::Outcome::kCancelled) {
    if (surroundings.studio) surroundings.studio->ShowWarnings({result.message});
    return;
  }
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
