// SPDX-License-Identifier: MIT
#include "dialogs/outcome.h"

#include "messages/text_number.h"

namespace dialogs {

store::OperationResult RunOperation(const DialogContext& context,
                                    const std::function<store::OperationResult()>& operation) {
  store::OperationResult result;
  {
    const BusyPointer busy(context.toolkit);
    result = operation();
  }
  context.ShowWarnings(result.warnings);
  return result;
}

store::OperationResult RunListOperation(
    const DialogContext& context, messages::TextNumber task,
    const std::function<store::OperationResult(const store::OperationOptions&)>& operation) {
  const MessageBoxes::Guard guard(context.messages);
  const auto progress = context.toolkit.StartProgress(context.Text(task));
  store::OperationOptions options;
  options.progress = [&](std::size_t done, std::size_t total) {
    return progress->Show(done, total);
  };
  return RunOperation(context, [&] { return operation(options); });
}

void WarnFailure(const DialogContext& context, const store::OperationResult& result,
                 messages::TextNumber text) {
  if (result.outcome == store::Outcome::kCancelled) {
    if (context.studio) context.studio->ShowWarnings({{context.texts.Sentence(result.message)}});
    return;
  }
  const auto sentence = [&](const messages::Message& message) {
    return context.texts.Sentence(message);
  };
  if (text == messages::kNoText || text == result.message.number()) {
    context.messages.Warn(sentence(result.message), sentence(result.detail));
  } else {
    context.messages.Warn(context.Text(text), sentence(Explanation(result)));
  }
}

messages::Message Explanation(const store::OperationResult& result) {
  return messages::Lines(result.message, result.detail);
}

}  // namespace dialogs
