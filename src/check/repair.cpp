// SPDX-License-Identifier: MIT
#include "check/repair.h"

#include <map>
#include <set>
#include <string>
#include <utility>

#include "messages/error.h"
#include "messages/text_number.h"
#include "platform/text.h"
#include "store/operation_context.h"
#include "store/operation_texts.h"

namespace check {
namespace {

using store::OperationResult;
using store::Operations;

constexpr messages::Pattern kTitle{messages::TextNumber{3208}};

class Repairing {
 public:
  explicit Repairing(Operations& operations) : operations_(operations) {}

  // Takes the finding over; false when nothing is to be done about it.
  bool Take(const Finding& finding) {
    if (!finding.IsRepairable()) return false;
    const Subject& subject = *finding.subject;
    const Rule* rule = finding.rule;
    if (rule == &rule::kNoFormulaOfArgument || rule == &rule::kNoAliasOfArgument) {
      mending_.arguments.push_back(finding.where.id);
    } else if (rule == &rule::kSameArgument) {
      Join(subject.argument_id, finding.where.id);
    } else if (rule == &rule::kNoSub) {
      mending_.code.formulas.push_back({{}, {{subject.prog_id, subject.formula}}});
    } else if (rule == &rule::kNoFormulaOfSub) {
      adopted_.push_back(&finding);
    } else if (rule == &rule::kNoHeader || rule == &rule::kOtherHeader) {
      mending_.code.headers.push_back({subject.prog_id, subject.formula});
    } else if (rule == &rule::kLooseDeclaration) {
      Declare(subject, {});
    } else if (rule == &rule::kNoDeclaration || rule == &rule::kOtherType ||
               rule == &rule::kOtherItem) {
      Declare(subject, subject.item);
    } else {
      return false;
    }
    return true;
  }

  // Those that cannot be adopted are added to `left`. A file that cannot be read ends it all: half
  // of what a header tells would be lost with the header.
  OperationResult Run(std::set<const Finding*>& left) {
    for (const Finding* finding : adopted_) {
      OperationResult formula = AddFormula(*finding->subject);
      if (formula.outcome == store::Outcome::kRefused) {
        left.insert(finding);
        continue;
      }
      if (!formula.success()) return formula;
      OperationResult arguments = AddArguments(formula.id(), *finding->subject);
      if (!arguments.success()) return arguments;
    }
    return operations_.Mend(mending_);
  }

 private:
  // What the class is to declare the alias as; nothing without an item.
  void Declare(const Subject& subject, std::string_view item) {
    mending_.code.declarations.push_back(
        {subject.prog_id, subject.alias, std::string(item), subject.old_item});
  }

  // Of two arguments of the same formula and alias the first becomes what both are.
  void Join(std::int32_t first_id, std::int32_t second_id) {
    const auto second = operations_.FindArgument(second_id);
    const auto first = operations_.FindArgument(first_id);
    if (!first || !second) return;
    auto [both, is_new] = joined_.try_emplace(first_id, *first);
    both->second.in |= second->in;
    both->second.out |= second->out;
    mending_.arguments.push_back(second_id);
    if (both->second != *first) mending_.changed.emplace_back(first_id, both->second);
  }

  // Makes the formula that the procedure's header tells of. It does not run until somebody enables
  // it: call type and direction of the arguments are known to nobody.
  OperationResult AddFormula(const Subject& subject) {
    store::FormulaValues values{subject.formula, subject.prog_id};
    values.enabled = false;
    return operations_.AddFormula(values);
  }
  OperationResult AddArguments(std::int32_t formula_id, const Subject& subject) {
    std::vector<store::ArgumentValues> arguments;
    std::set<std::int32_t> known;
    for (const std::string& name : subject.aliases) {
      const auto alias = operations_.FindAliasByName(name);
      if (alias && known.insert(alias->id).second) arguments.push_back({alias->id, true, false});
    }
    return arguments.empty() ? OperationResult() : operations_.AddArguments(formula_id, arguments);
  }

  Operations& operations_;
  store::Mending mending_;
  std::map<std::int32_t, store::ArgumentValues> joined_;  // by ID
  std::vector<const Finding*> adopted_;
};

// Rows that a damaged file does not show look as if they had never been there, and what belongs to
// them would be removed.
OperationResult LookAtFile(const Parts& parts) {
  OperationResult result;
  try {
    const std::size_t count = parts.count_faults ? parts.count_faults() : 0;
    if (count == 0) return result;
    const Finding damage(rule::kDamage, {}, {{"<Count>", count}});
    result.outcome = store::Outcome::kRefused;
    result.message = damage.message;
    result.detail = damage.Remedy();
  } catch (const messages::Error& error) {
    result.outcome = store::Outcome::kFileProblem;
    result.message = error.message();
  }
  return result;
}

}  // namespace

RepairResult Repair(const Parts& parts, const std::vector<Finding>& findings,
                    const Options& options, store::OperationOptions operation) {
  RepairResult result{LookAtFile(parts), {}, {}};
  if (!result.operation.success()) return result;
  Repairing repairing(parts.operations);
  std::vector<const Finding*> taken;
  std::set<const Finding*> refused;
  const auto inspect = std::move(operation.inspect);
  Options again{options.least, options.silenced, {}};
  again.progress = [&](std::size_t done, std::size_t total) {
    if (!operation.progress || operation.progress(done, total)) return;
    throw store::OperationRefusal(store::Outcome::kCancelled,
                                  messages::Message({store::kTextCancelled}));
  };
  operation.inspect = [&] {
    if (inspect) inspect();
    // The file itself is as it was: without a fault.
    Parts rest = parts;
    rest.count_faults = {};
    result.left = Find(rest, again);
  };
  result.operation = parts.operations.AsOne(
      {kTitle, {{"<Count>", findings.size()}}},
      [&] {
        for (const Finding& finding : findings) {
          if (repairing.Take(finding)) taken.push_back(&finding);
        }
        return repairing.Run(refused);
      },
      operation);
  if (!result.operation.success()) return result;
  for (const Finding* finding : taken) {
    if (!refused.contains(finding)) result.mended.push_back(*finding);
  }
  return result;
}

}  // namespace check
