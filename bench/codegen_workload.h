// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace bench {

// Edits of a large class beside one scan of it, growth with the number of formulas in a class,
// and the renaming of an alias beside single header rebuilds. In memory.
void CompareGenerator();

// Whole operations on files: beside durable transactions of SQLite, and their growth with the
// number of entries.
void CompareOperations();

// Code of a class of about that many lines.
std::string LargeClass(std::size_t lines);

// Median time of the calls in seconds; each call gets the number of the round.
double MedianTime(int rounds, const std::function<void(int round)>& call);

// Ends the program when something that a figure rests on did not happen.
void Expect(bool fine, const std::string& what);

}  // namespace bench
