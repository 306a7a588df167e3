// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "dialogs/dialog_context.h"
#include "exchange/contents.h"
#include "exchange/import_plan.h"
#include "messages/message.h"
#include "store/formula_records.h"

namespace dialogs {

// New aliases whose item or name is a series, such as "Tank{1..20}.Level": planned as a list is, so
// that they can be shown before they are made.
class AliasSeries {
 public:
  static bool IsSeries(const store::AliasValues& values);

  // Plans it. Raises platform::Error when the project cannot be read.
  AliasSeries(const DialogContext& context, const store::AliasValues& values);
  AliasSeries(const AliasSeries&) = delete;
  AliasSeries& operator=(const AliasSeries&) = delete;

  // Why it cannot be added; empty when it can.
  const messages::Message& refusal() const { return refusal_; }
  // How many they are, and which.
  std::string Text() const;
  // Adds them as one operation. The answer has the ID of the first.
  store::OperationResult Add(const store::OperationOptions& options);

 private:
  void Plan(const store::AliasValues& values);

  const DialogContext& context_;
  std::string name_;
  exchange::Contents contents_;
  exchange::ImportPlan plan_;
  messages::Message refusal_;
};

// The first ones and the last one of many names.
std::string EndsOfSeries(std::size_t count, const std::function<std::string(std::size_t)>& name);

}  // namespace dialogs
