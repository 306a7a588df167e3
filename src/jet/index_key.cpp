// SPDX-License-Identifier: MIT
#include "jet/index_key.h"

#include <cassert>
#include <cstdio>

#include "jet/error.h"
#include "jet/key_encoder.h"

namespace jet {
namespace {

std::string NameOf(char32_t character) {
  char text[16];
  std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(character));
  return text;
}

[[noreturn]] void Refuse(const KeyFault& fault, const Column& column, const std::string& path) {
  switch (fault.reason) {
    case KeyFault::Reason::kWrongKind:
      throw Error(ErrorKind::kInvalid, path, {},
                  {message::kKeyOfOtherKind, {{"<Column>", column.name}}},
                  message::kGiveColumnType);
    case KeyFault::Reason::kOutOfRange:
      throw Error(ErrorKind::kInvalid, path, {},
                  {message::kKeyOutOfRange, {{"<Column>", column.name}}},
                  message::kGiveNumberInRange);
    case KeyFault::Reason::kNoCharacter:
      throw Error(ErrorKind::kInvalid, path, {},
                  {message::kNoSortOrder,
                   {{"<Column>", column.name}, {"<Character>", NameOf(fault.character)}}},
                  message::kReplaceCharacter);
    case KeyFault::Reason::kNoIndex:
      break;
  }
  throw Error(ErrorKind::kUnsupported, path, {},
              {message::kNoIndexKeys, {{"<Column>", column.name}}}, message::kLeaveOutColumn);
}

}  // namespace

void IndexKey::Make(const PhysicalIndex& index, std::span<const Column> columns,
                    std::span<const Value> values, const std::string& path) {
  assert(values.size() <= index.columns.size());
  bytes.clear();
  any_null = false;
  all_null = true;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const IndexColumn& part = index.columns[i];
    const Column& column = columns[part.column];
    const SortOrder order = part.ascending ? SortOrder::kAscending : SortOrder::kDescending;
    if (const auto fault = AppendKeyPart(column.type, order, values[i], bytes)) {
      Refuse(*fault, column, path);
    }
    (values[i].is_null() ? any_null : all_null) = values[i].is_null();
  }
}

}  // namespace jet
