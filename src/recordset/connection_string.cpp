// SPDX-License-Identifier: MIT
#include "recordset/connection_string.h"

#include <algorithm>

#include "recordset/ascii_text.h"
#include "recordset/connection_state.h"

namespace recordset {
namespace {

constexpr std::string_view kProvider = "Microsoft.Jet.OLEDB.4.0";

[[noreturn]] void Fail(const messages::Message& cause) {
  Refuse(platform::kErrInvalidArgument, cause);
}

// Takes a value in quotes, doubled quotes standing for one, off the front of the text.
std::string TakeQuoted(std::string_view& text) {
  const char quote = text.front();
  std::string value;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == quote) {
      if (i + 1 == text.size() || text[i + 1] != quote) {
        text.remove_prefix(i + 1);
        return value;
      }
      ++i;
    }
    value += text[i];
  }
  Fail(message::kUnclosedValue);
}

// Takes a value off the front of the text, up to and including its semicolon.
std::string TakeValue(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  std::string value;
  if (!text.empty() && (text.front() == '"' || text.front() == '\'')) {
    value = TakeQuoted(text);
    if (!TrimBlanks(text.substr(0, text.find(';'))).empty()) {
      Fail(message::kTextBehindValue);
    }
  } else {
    value = TrimBlanks(text.substr(0, text.find(';')));
  }
  text.remove_prefix(std::min(text.find(';'), text.size()));
  if (!text.empty()) text.remove_prefix(1);
  return value;
}

bool IsReadOnly(std::string_view mode) {
  bool read = false, write = false;
  while (!mode.empty()) {
    const std::size_t end = std::min(mode.find('|'), mode.size());
    const std::string_view part = TrimBlanks(mode.substr(0, end));
    mode.remove_prefix(std::min(end + 1, mode.size()));
    read = read || SameName(part, "Read");
    write = write || SameName(part, "Write") || SameName(part, "ReadWrite");
  }
  return read && !write;
}

}  // namespace

ConnectionSettings ParseConnectionString(std::string_view text) {
  ConnectionSettings settings;
  while (!TrimBlanks(text).empty()) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) Fail(message::kPartWithoutEquals);
    const std::string_view name = TrimBlanks(text.substr(0, equals));
    text.remove_prefix(equals + 1);
    const std::string value = TakeValue(text);
    if (SameName(name, "Provider")) {
      if (!SameName(value, kProvider)) {
        Fail({message::kOtherProvider, {{"<Name>", value}, {"<Provider>", kProvider}}});
      }
    } else if (SameName(name, "Data Source")) {
      settings.data_source = value;
    } else if (SameName(name, "Mode")) {
      settings.read_only = IsReadOnly(value);
    }
  }
  if (settings.data_source.empty()) Fail(message::kNoDataSource);
  return settings;
}

}  // namespace recordset
