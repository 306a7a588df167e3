// SPDX-License-Identifier: MIT
#include "com/collection.h"

namespace com {

const Member<Collection> Collection::kMembers[2] = {
    {L"Item", &Collection::Item},
    {L"Count", &Collection::Count},
};

Value Collection::Find(const Source& source, const platform::Variant& which) {
  const std::size_t count = source.count();
  std::size_t place = count;
  if (!which.IsText()) {
    const std::int32_t number = which.ToLong();
    if (number >= source.base) place = static_cast<std::size_t>(number - source.base);
  } else if (source.find) {
    place = source.find(which.ToText());
  }
  if (place >= count) Require(ResultOf(source.not_found));
  return source.at(place);
}

Value Collection::Answer(Source source, const Arguments& arguments) {
  if (arguments.size() > 0) return Find(source, arguments.At(0));
  return Value(Make<Collection>(std::move(source)));
}

Value Collection::Item(const Arguments& arguments) {
  arguments.Demand(1);
  return Find(source_, arguments.At(0));
}

std::vector<Value> Collection::Elements() {
  std::vector<Value> elements;
  const std::size_t count = source_.count();
  for (std::size_t place = 0; place < count; ++place) elements.push_back(source_.at(place));
  return elements;
}

}  // namespace com
