// SPDX-License-Identifier: MIT
// The partner of the adapter over ADO's objects: our own objects, behind a wrapper that counts the
// calls and can let them fail.
#pragma once

#include <functional>
#include <limits>
#include <memory>
#include <string>

#include "com/ado_objects.h"
#include "platform/ado.h"

namespace com_tests {

// Lives as long as objects of it are made.
class Partner : public std::enable_shared_from_this<Partner> {
 public:
  // Connections of the partner show what this makes.
  using MakeEngine = std::function<std::shared_ptr<platform::Connection>()>;
  explicit Partner(MakeEngine make) : make_(std::move(make)) {}
  Partner(const Partner&) = delete;
  Partner& operator=(const Partner&) = delete;

  com::AdoObjects Objects();

  // Calls raise an error from the n-th on (1: the next), so many of them.
  void FailAt(int n, int count = 1) {
    fail_from_ = calls_ + n;
    fail_count_ = count;
    fired_ = false;
  }
  static constexpr int kForEver = std::numeric_limits<int>::max();
  void Recover() { fail_from_ = 0; }
  bool fired() const { return fired_; }
  int calls() const { return calls_; }
  // What the error says, and its number.
  static constexpr const char* kWords = "The line is dead.";
  long failure = static_cast<long>(0x80004005);

  // As Access' provider may be: it counts no rows, tells no places, and has no mode of editing and
  // no searching behind the ends.
  bool is_strict = false;

  // For the wrappers: counts a call; true when it is to fail.
  bool Fails();

 private:
  MakeEngine make_;
  int calls_ = 0;
  int fail_from_ = 0;  // 0: never
  int fail_count_ = 0;
  bool fired_ = false;
};

// Wrappers that are alive.
int WrappersAlive();

}  // namespace com_tests
