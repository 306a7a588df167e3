// SPDX-License-Identifier: MIT
#include "cli/place_list.h"

namespace cli {

void WritePlaces(Invocation& invocation, const codegen::FoundPlaces& found) {
  RowWriter writer(invocation.console().out, invocation.ListFormat(),
                   {"File", "Line", "Column", "Kind", "Procedure"});
  const auto kind = [&](const codegen::CodePlace& place) {
    return invocation.ListFormat() == RowFormat::kTerminal
               ? invocation.Text(codegen::KindText(place))
               : std::string(codegen::NameOfKind(place.kind));
  };
  for (const codegen::CodePlace& place : found.places) {
    writer.Write({place.file, std::int64_t{place.line}, std::int64_t{place.column}, kind(place),
                  place.procedure});
  }
  writer.Finish();
  WarnOfUnread(invocation, found.unread);
}

void WarnOfUnread(Invocation& invocation, const std::vector<messages::Message>& unread) {
  for (const messages::Message& problem : unread) {
    invocation.Warn(
        invocation.Text(kTextNotSearched, {{"<Cause>", invocation.texts().Sentence(problem)}}));
  }
}

}  // namespace cli
