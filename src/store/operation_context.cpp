// SPDX-License-Identifier: MIT
#include "store/operation_context.h"

#include <algorithm>
#include <iterator>

#include "codegen/refused.h"
#include "codegen/vb_formula_code.h"
#include "store/operation_texts.h"

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

}  // namespace

void OperationRefusal::FillIn(OperationResult& result) const {
  result.outcome = outcome_;
  result.text_id = text_id_;
  result.message = what();
  result.detail = detail_;
}

OperationContext::OperationContext(Operations::Parts parts)
    : parts_(std::move(parts)), rows_(parts_.connection) {}

void OperationContext::RequireProjects() {
  if (options_->with_rows_only) return;
  if (!code_ || parts_.code->context().vbe->VBProjects().empty()) Refuse(kTextNoProject);
}

void OperationContext::Progress(std::size_t done, std::size_t total) {
  if (options_->progress && !options_->progress(done, total)) {
    throw OperationRefusal(Outcome::kCancelled, kTextCancelled, texts().Text(kTextCancelled), {});
  }
}

void OperationContext::Warn(std::int32_t text, Replacements values) {
  warnings_.push_back({text, texts().Text(text, values)});
}

void OperationContext::Refuse(std::int32_t text, Replacements values, std::string detail) {
  throw OperationRefusal(Outcome::kRefused, text, texts().Text(text, values), std::move(detail));
}

void OperationContext::RunUnit(const std::function<void(OperationResult&)>& steps,
                               OperationResult& result) {
  platform::UnitOfWorkScope unit(*parts_.unit);
  steps(result);
  if (code_) code_->Follow(touched_);
  rows_.CloseTables();
  if (options_->inspect) options_->inspect();
  // A scope that is not committed puts everything back.
  if (options_->dry_run) return;
  unit.Commit();
  if (code_) code_->CommitComponents();
}

// What could not be put back was changed, whatever the cause says.
void OperationContext::ShowNotUndone(OperationResult& result) {
  for (const messages::Message& message : parts_.unit->NotUndone()) {
    result.text_id = kTextNotUndone;
    result.message = texts().Text(kTextNotUndone);
    const std::string text = texts().Sentence(message);
    if (result.detail.find(text) != std::string::npos) continue;
    result.detail += (result.detail.empty() ? "" : "\r\n") + text;
  }
}

OperationResult OperationContext::Answer(std::int32_t failure_text,
                                         const std::function<void(OperationResult&)>& steps) {
  warnings_.clear();
  OperationResult result;
  const auto fail = [&](Outcome outcome, const std::exception& cause) {
    result.outcome = outcome;
    result.text_id = failure_text;
    result.message = texts().Text(failure_text);
    result.detail = texts().Sentence(cause);
  };
  try {
    steps(result);
  } catch (const OperationRefusal& refusal) {
    refusal.FillIn(result);
  } catch (const codegen::Refused& refused) {
    // It names itself; all else is the cause of the general failure.
    result.outcome = Outcome::kRefused;
    result.text_id = refused.number();
    result.message = refused.what();
  } catch (const platform::Error& error) {
    fail(OutcomeOf(error.kind()), error);
  } catch (const std::exception& error) {
    fail(Outcome::kFileProblem, error);
  }
  if (result.success()) {
    result.warnings = std::exchange(warnings_, {});
  } else {
    result.ids.clear();
  }
  return result;
}

OperationResult OperationContext::Run(const OperationOptions& options, std::int32_t failure_text,
                                      const std::function<void(OperationResult&)>& steps) {
  options_ = &options;
  touched_ = {};
  const bool has_code = parts_.code && parts_.code->context().vbe && !options.with_rows_only;
  if (has_code) code_.emplace(parts_.code->context());
  rows_.TakeChanges();
  OperationResult result =
      Answer(failure_text, [&](OperationResult& answer) { RunUnit(steps, answer); });
  rows_.CloseTables();
  if (result.success()) {
    result.rows = rows_.TakeChanges();
    if (code_) std::ranges::move(code_->TakeWarnings(), std::back_inserter(result.warnings));
  } else {
    ShowNotUndone(result);
  }
  code_.reset();
  options_ = nullptr;
  return result;
}

}  // namespace store
