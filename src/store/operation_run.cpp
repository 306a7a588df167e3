// SPDX-License-Identifier: MIT
#include "store/operation_run.h"

#include <iterator>

#include "store/text_numbers.h"

namespace store {
namespace {

Outcome OutcomeOf(platform::ErrorKind kind) {
  switch (kind) {
    case platform::ErrorKind::kRefused:
    case platform::ErrorKind::kNotFound:
    case platform::ErrorKind::kConflict:
      return Outcome::kRefused;
    case platform::ErrorKind::kIo:
    case platform::ErrorKind::kInternal:
      break;
  }
  return Outcome::kFileProblem;
}

// The generator's batch, with the operation's own answer to NeedFunctionName.
class CodeBatch {
 public:
  CodeBatch(codegen::CVBFormulaCode* code, codegen::NeedFunctionName answer) : code_(code) {
    if (!code_) return;
    code_->TakeWarnings();
    code_->TakeFailure();
    window_answer_ = code_->SetNeedFunctionName(std::move(answer));
    code_->BeginBatch();
  }
  ~CodeBatch() {
    if (!code_) return;
    if (open_) code_->CancelBatch();
    code_->DropComponents();
    code_->SetNeedFunctionName(std::move(window_answer_));
  }
  CodeBatch(const CodeBatch&) = delete;
  CodeBatch& operator=(const CodeBatch&) = delete;

  void End() {
    open_ = false;
    if (code_) code_->EndBatch();
  }

 private:
  codegen::CVBFormulaCode* code_;
  codegen::NeedFunctionName window_answer_;
  bool open_ = true;
};

}  // namespace

void Refusal::FillIn(OperationResult& result) const {
  result.outcome = outcome_;
  result.text_id = text_id_;
  result.message = what();
  result.detail = detail_;
}

OperationRun::OperationRun(Operations::Parts parts)
    : parts_(std::move(parts)), rows_(parts_.connection) {}

codegen::CVBFormulaCode* OperationRun::code() {
  const bool has_code = parts_.code && parts_.code->HasEnvironment();
  return has_code && !options_->with_rows_only ? parts_.code : nullptr;
}

void OperationRun::RequireProjects() {
  if (options_->with_rows_only) return;
  if (!code() || !code()->HasProjects()) Refuse(kTextNoProject);
}

void OperationRun::Progress(std::size_t done, std::size_t total) {
  if (options_->progress && !options_->progress(done, total)) {
    throw Refusal(Outcome::kCancelled, kTextCancelled, texts().Text(kTextCancelled), {});
  }
}

void OperationRun::CheckCode() {
  if (!parts_.code) return;
  if (const auto failure = parts_.code->TakeFailure()) throw platform::Error(*failure);
}

void OperationRun::Warn(std::int32_t text, Replacements values) {
  warnings_.push_back({text, texts().Text(text, values)});
}

void OperationRun::Refuse(std::int32_t text, Replacements values, std::string detail) {
  throw Refusal(Outcome::kRefused, text, texts().Text(text, values), std::move(detail));
}

void OperationRun::TakeWarnings() {
  if (!parts_.code) return;
  std::vector<codegen::Warning> more = parts_.code->TakeWarnings();
  warnings_.insert(warnings_.end(), std::make_move_iterator(more.begin()),
                   std::make_move_iterator(more.end()));
}

void OperationRun::RunUnit(const std::function<void(OperationResult&)>& steps,
                           OperationResult& result) {
  platform::UnitOfWorkScope unit(*parts_.unit);
  CodeBatch batch(code(), [this](std::string& name) { name = function_name_; });
  steps(result);
  batch.End();
  CheckCode();
  TakeWarnings();
  rows_.CloseTables();
  if (options_->inspect) options_->inspect();
  // A scope that is not committed puts everything back.
  if (options_->dry_run) return;
  unit.Commit();
  if (code()) code()->CommitComponents();
}

// What could not be put back was changed, whatever the cause says.
void OperationRun::TellNotUndone(OperationResult& result) {
  for (const messages::Message& message : parts_.unit->NotUndone()) {
    result.text_id = kTextNotUndone;
    result.message = texts().Text(kTextNotUndone);
    const std::string text = texts().Sentence(message);
    if (result.detail.find(text) != std::string::npos) continue;
    result.detail += (result.detail.empty() ? "" : "\r\n") + text;
  }
}

OperationResult OperationRun::Run(const OperationOptions& options, std::int32_t failure_text,
                                  const std::function<void(OperationResult&)>& steps) {
  options_ = &options;
  function_name_.clear();
  warnings_.clear();
  rows_.TakeChanges();
  OperationResult result;
  const auto fail = [&](Outcome outcome, std::int32_t number, const std::exception& cause) {
    // Refusals of the generator name themselves; all else is the cause of the general failure.
    const bool named = outcome == Outcome::kRefused && number >= 1100 && number < 1200;
    result.outcome = outcome;
    result.text_id = named ? number : failure_text;
    result.message = named ? cause.what() : texts().Text(failure_text);
    result.detail = named ? "" : texts().Sentence(cause);
  };
  try {
    RunUnit(steps, result);
    result.rows = rows_.TakeChanges();
  } catch (const Refusal& refusal) {
    refusal.FillIn(result);
  } catch (const platform::Error& error) {
    fail(OutcomeOf(error.kind()), error.number(), error);
  } catch (const std::exception& error) {
    fail(Outcome::kFileProblem, 0, error);
  }
  rows_.CloseTables();
  TakeWarnings();
  result.warnings = std::exchange(warnings_, {});
  if (!result.success()) {
    result.rows.clear();
    result.ids.clear();
    result.warnings.clear();
    if (parts_.code) parts_.code->TakeFailure();
    TellNotUndone(result);
  }
  options_ = nullptr;
  return result;
}

}  // namespace store
