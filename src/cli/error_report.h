// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>

#include "cli/console.h"
#include "texts/text_table.h"

namespace cli {

// "ovformula: <text>" on standard error.
void ReportError(Console& console, const texts::TextTable& texts, const std::string& text);

// Turns whatever was raised into a message on standard error and the exit code.
int ReportException(Console& console, const texts::TextTable& texts, std::exception_ptr error);

}  // namespace cli
