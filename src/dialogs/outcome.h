// SPDX-License-Identifier: MIT
// From an operation's result to what the user sees of it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "dialogs/dialog_context.h"
#include "messages/text_number.h"
#include "store/operation_result.h"

namespace dialogs {

// Carries an operation out under the hourglass and shows its warnings.
store::OperationResult RunOperation(const DialogContext& context,
                                    const std::function<store::OperationResult()>& operation);

// The same for a list of objects that may take long: shows how far it is, and the user may stop
// it, which leaves everything as it was.
store::OperationResult RunListOperation(
    const DialogContext& context, messages::TextNumber task,
    const std::function<store::OperationResult(const store::OperationOptions&)>& operation);

// Says why an operation failed. With a text number that text is the message, and the operation's
// own goes to the detail line. What the user stopped is told in the studio's status line.
void WarnFailure(const DialogContext& context, const store::OperationResult& result,
                 messages::TextNumber text = messages::kNoText);

// Message and detail in one, each on its line.
messages::Message Explanation(const store::OperationResult& result);

}  // namespace dialogs
