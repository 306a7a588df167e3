// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"

namespace check {

// Comments of a module that silence rules: "'check: ignore SUB001, DCL004" behind a statement
// does so for its line, alone on a line also for the next one. By line.
using SilencedLines = std::map<std::int32_t, std::set<const Rule*>>;

// Collects what is found, as far as somebody wants to know it.
class Findings {
 public:
  Findings(Severity least, std::set<const Rule*> silenced)
      : least_(least), silenced_(std::move(silenced)) {}

  bool Wants(const Rule& rule) const {
    return rule.severity <= least_ && !silenced_.contains(&rule);
  }
  void Silence(const std::string& file, SilencedLines lines) {
    if (!lines.empty()) lines_[file] = std::move(lines);
  }
  void Add(Finding finding);
  // By severity, rows before files, these by their lines, otherwise as they were found.
  std::vector<Finding> Take();

 private:
  Severity least_;
  std::set<const Rule*> silenced_;
  std::map<std::string, SilencedLines> lines_;  // by file
  std::deque<Finding> findings_;
};

}  // namespace check
