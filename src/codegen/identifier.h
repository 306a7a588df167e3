// SPDX-License-Identifier: MIT
// Which names Visual Basic takes as identifiers. Names are UTF-8; their letters are judged by
// their codes in the Windows-1252 code page.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace codegen {

inline constexpr std::size_t kMaxIdentifierLength = 255;
// Longest "Project.Class" under which a class can hold formulas.
inline constexpr std::size_t kMaxProgIdLength = 39;

// Why Visual Basic would not take a name. The first that applies, in this order.
enum class IdentifierProblem {
  kNone,
  kEmpty,
  kLeadingDigit,
  kForbiddenCharacter,  // blank, dot, sign, character outside the code page
  kLeadingUnderscore,   // CleanIdentifier lets it stand, Visual Basic does not
  kNotALetter,          // a sign such as the euro's, which CleanIdentifier lets stand
  kReservedWord,
  kTooLong,
  kLoneUnderscore,  // the sign of a line that goes on; CleanIdentifier lets it stand
};

struct IdentifierHint {
  IdentifierProblem problem = IdentifierProblem::kNone;
  std::string character;  // the offending character, where there is one
  explicit operator bool() const { return problem != IdentifierProblem::kNone; }
};

// The cleaning step of VBConformItemName: what is no letter, digit or "_" becomes "_", and so
// does a digit in the first place, with all its further occurrences. The number of characters
// stays.
std::string CleanIdentifier(std::string_view name);

// Judges a name as it stands, whatever its cleaning would make of it.
IdentifierHint CheckIdentifier(std::string_view name);

// The nearest name that CheckIdentifier finds nothing wrong with, short enough for a number
// behind it.
std::string ValidIdentifier(std::string_view name);

// Whether a declaration of this name can be written into a module without changing the meaning
// of any other text: an identifier, save for the signs that CleanIdentifier lets stand.
bool IsDeclarable(std::string_view name);

// Compared without regard to case.
bool IsReservedWord(std::string_view word);

// The name, or the name followed by the first of 1, 2, 3, ... that makes it free.
std::string FirstFreeName(const std::string& name,
                          const std::function<bool(const std::string& candidate)>& is_taken);
// The same from a number on, 0 for the name alone; `number` becomes that of the result.
std::string FirstFreeName(const std::string& name,
                          const std::function<bool(const std::string& candidate)>& is_taken,
                          int& number);

// Number of characters of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);

}  // namespace codegen
