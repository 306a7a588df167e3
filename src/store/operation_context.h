// SPDX-License-Identifier: MIT
// One operation from begin to commit.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "codegen/code_sync.h"
#include "codegen/touched.h"
#include "messages/error.h"
#include "store/operation_result.h"
#include "store/operations.h"
#include "store/project_rows.h"
#include "texts/text_table.h"

namespace store {

// Raised by a step that the operation cannot carry out; everything is put back.
class OperationRefusal : public messages::Error {
 public:
  OperationRefusal(Outcome outcome, messages::Message message, messages::Message detail = {})
      : messages::Error(std::move(message)), outcome_(outcome), detail_(std::move(detail)) {}

  void FillIn(OperationResult& result) const;

 private:
  Outcome outcome_;
  messages::Message detail_;
};

// What the steps of operations share: rows, code, texts. One for each Operations.
class OperationContext {
 public:
  explicit OperationContext(Operations::Parts parts);

  // The answer to `steps`, which look something up. A failure that is not refused by a step is
  // answered with `failure_text`, its cause as the detail.
  OperationResult Answer(messages::TextNumber failure_text,
                         const std::function<void(OperationResult&)>& steps);
  // The same as one unit of work over rows and code, or as a part of the one that runs.
  OperationResult Run(const OperationOptions& options, messages::TextNumber failure_text,
                      const std::function<void(OperationResult&)>& steps);

  // Names the operation that runs, for the history.
  void SetTitle(const messages::Message& title) { parts_.unit->SetTitle(title); }
  // Calls `steps`, which look into rows and code as an operation does. Raises what they raise.
  void Look(const OperationOptions& options, const std::function<void()>& steps);

  // Of the operation that runs.
  const OperationOptions& options() const { return *options_; }
  // Of the operation that runs, or null when only rows change.
  codegen::CodeSync* code() { return code_ ? &*code_ : nullptr; }
  // What the steps change in the rows; code follows at their end.
  codegen::Touched& touched() { return touched_; }
  // Raises unless there is code to change; for operations that need it.
  void RequireProjects();
  // Of the operation that runs; its parts are not told apart.
  void Progress(std::size_t done, std::size_t total);
  using Values = std::initializer_list<messages::Message::Value>;
  void Warn(messages::TextNumber text, Values values);
  [[noreturn]] static void Refuse(messages::TextNumber text, Values values = {},
                                  messages::Message detail = {});

  ProjectRows& rows() { return rows_; }
  const texts::TextTable& texts() const { return *parts_.texts; }
  const Operations::Parts& parts() const { return parts_; }

 private:
  // How far the operation had come when a part of it began.
  struct PartStart {
    std::size_t formulas, arguments, aliases, declarations, headers, uses, replacements, warnings,
        rows;
  };

  OperationResult RunPart(messages::TextNumber failure_text,
                          const std::function<void(OperationResult&)>& steps);
  void PutPartBack(const PartStart& start);
  OperationResult Answered(messages::TextNumber failure_text,
                           const std::function<void(OperationResult&)>& steps);
  void Begin(const OperationOptions& options);
  void RunUnit(const std::function<void(OperationResult&)>& steps, OperationResult& result);
  void ShowNotUndone(OperationResult& result);

  Operations::Parts parts_;
  ProjectRows rows_;
  const OperationOptions* options_ = nullptr;
  std::optional<codegen::CodeSync> code_;
  codegen::Touched touched_;
  std::vector<messages::Message> warnings_;
  int depth_ = 0;  // of operations that run in each other
};

}  // namespace store
