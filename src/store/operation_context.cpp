// SPDX-License-Identifier: MIT
#include "store/operation_context.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "codegen/refused.h"
#include "codegen/vb_formula_code.h"
#include "messages/text_number.h"
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
  result.message = message();
  result.detail = detail_;
}

OperationContext::OperationContext(Operations::Parts parts)
    : parts_(std::move(parts)), rows_(parts_.connection) {}

void OperationContext::RequireProjects() {
  if (options_->with_rows_only) return;
  if (!code_ || parts_.code->context().vbe->VBProjects().empty()) Refuse(kTextNoProject);
}

void OperationContext::Progress(std::size_t done, std::size_t total) {
  if (depth_ == 1 && options_->progress && !options_->progress(done, total)) {
    throw OperationRefusal(Outcome::kCancelled, messages::Message({kTextCancelled}));
  }
}

void OperationContext::Warn(messages::TextNumber text, Values values) {
  warnings_.push_back(messages::Message({text}, values));
}

void OperationContext::Refuse(messages::TextNumber text, Values values, messages::Message detail) {
  throw OperationRefusal(Outcome::kRefused, messages::Message({text}, values), std::move(detail));
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
    result.message = messages::Message({kTextNotUndone});
    if (!result.detail.Contains(message)) result.detail = messages::Lines(result.detail, message);
  }
}

OperationResult OperationContext::Answer(messages::TextNumber failure_text,
                                         const std::function<void(OperationResult&)>& steps) {
  if (depth_ == 0) warnings_.clear();
  OperationResult result = Answered(failure_text, steps);
  if (depth_ == 0 && result.success()) result.warnings = std::exchange(warnings_, {});
  return result;
}

OperationResult OperationContext::Answered(messages::TextNumber failure_text,
                                           const std::function<void(OperationResult&)>& steps) {
  OperationResult result;
  const auto fail = [&](Outcome outcome, const std::exception& cause) {
    result.outcome = outcome;
    result.message = messages::Message({failure_text});
    result.detail = messages::MessageOf(cause);
  };
  try {
    steps(result);
  } catch (const OperationRefusal& refusal) {
    refusal.FillIn(result);
  } catch (const codegen::Refused& refused) {
    // It names itself; all else is the cause of the general failure.
    result.outcome = Outcome::kRefused;
    result.message = refused.message();
  } catch (const platform::Error& error) {
    fail(OutcomeOf(error.kind()), error);
  } catch (const std::exception& error) {
    fail(Outcome::kFileProblem, error);
  }
  if (!result.success()) result.ids.clear();
  return result;
}

void OperationContext::Begin(const OperationOptions& options) {
  options_ = &options;
  touched_ = {};
  const bool has_code = parts_.code && parts_.code->context().vbe && !options.with_rows_only;
  if (has_code) code_.emplace(parts_.code->context());
}

void OperationContext::Look(const OperationOptions& options, const std::function<void()>& steps) {
  struct Scope {
    OperationContext& context;
    ~Scope() {
      context.code_.reset();
      context.options_ = nullptr;
    }
  } scope{*this};
  // Within a unit of work files and database are looked at once. Nothing is committed.
  std::optional<platform::UnitOfWorkScope> unit;
  try {
    if (!parts_.unit->IsOpen()) unit.emplace(*parts_.unit);
  } catch (const platform::Error&) {
    // Somebody else is writing, or nobody may: each look is one of its own then.
  }
  Begin(options);
  steps();
}

OperationResult OperationContext::Run(const OperationOptions& options,
                                      messages::TextNumber failure_text,
                                      const std::function<void(OperationResult&)>& steps) {
  if (depth_ > 0) return RunPart(failure_text, steps);
  Begin(options);
  rows_.changes().Begin(options.with_rows);
  warnings_.clear();
  ++depth_;
  OperationResult result =
      Answered(failure_text, [&](OperationResult& answer) { RunUnit(steps, answer); });
  --depth_;
  rows_.CloseTables();
  if (result.success()) {
    if (rows_.changes().size() > 0) result.rows = rows_.changes().Take();
    result.warnings = std::exchange(warnings_, {});
    if (code_) std::ranges::move(code_->TakeWarnings(), std::back_inserter(result.warnings));
  } else {
    rows_.changes().TakeBack(0);
    result.rows.clear();
    result.warnings.clear();
    ShowNotUndone(result);
  }
  code_.reset();
  options_ = nullptr;
  return result;
}

// The code follows at the end of the whole, so that only rows have to be put back.
OperationResult OperationContext::RunPart(messages::TextNumber failure_text,
                                          const std::function<void(OperationResult&)>& steps) {
  const PartStart start = {
      touched_.formulas.size(),     touched_.arguments.size(), touched_.aliases.size(),
      touched_.declarations.size(), touched_.headers.size(),   touched_.uses.size(),
      touched_.replacements.size(), warnings_.size(),          rows_.changes().size()};
  parts_.connection->BeginTrans();
  ++depth_;
  OperationResult result = Answered(failure_text, [&](OperationResult& answer) {
    steps(answer);
    parts_.connection->CommitTrans();
  });
  --depth_;
  if (!result.success()) {
    PutPartBack(start);
    return result;
  }
  result.warnings.assign(warnings_.begin() + static_cast<std::ptrdiff_t>(start.warnings),
                         warnings_.end());
  return result;
}

void OperationContext::PutPartBack(const PartStart& start) {
  rows_.CloseTables();
  parts_.connection->RollbackTrans();
  rows_.changes().TakeBack(start.rows);
  touched_.formulas.resize(start.formulas);
  touched_.arguments.resize(start.arguments);
  touched_.aliases.resize(start.aliases);
  touched_.declarations.resize(start.declarations);
  touched_.headers.resize(start.headers);
  touched_.uses.resize(start.uses);
  touched_.replacements.resize(start.replacements);
  warnings_.resize(start.warnings);
}

OperationResult Operations::AsOne(const messages::Message& title,
                                  const std::function<OperationResult()>& steps,
                                  const OperationOptions& options) {
  return context_->Run(options, kTextNothingChanged, [&](OperationResult& result) {
    context_->SetTitle(title);
    OperationResult answer = steps();
    if (!answer.success()) {
      throw OperationRefusal(answer.outcome, answer.message, answer.detail);
    }
    result.ids = std::move(answer.ids);
    result.rows = std::move(answer.rows);
  });
}

}  // namespace store
