// SPDX-License-Identifier: MIT
#include "dialogs/uses_offer.h"

#include <string>
#include <string_view>
#include <utility>

#include "messages/text_number.h"
#include "platform/error.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kChangeUses{4260};
constexpr messages::TextNumber kUnsureUses{4261};
constexpr std::size_t kNamedPlaces = 3;

std::string_view FileName(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

UsesOffer::UsesOffer(const DialogContext& context, forms::CheckBox& box, forms::Label& hint,
                     Find find)
    : context_(context), box_(box), hint_(hint), find_(std::move(find)) {
  box_.SetVisible(false);
  hint_.SetHint(true);
  hint_.SetVisible(false);
}

void UsesOffer::Follow(bool renamed) {
  if (!context_.offers_uses) return;
  if (renamed && !std::exchange(looked_, true)) Look();
  box_.SetVisible(renamed && has_uses_);
  hint_.SetVisible(renamed && !hint_.Caption().empty());
}

// A class that cannot be read is told by the operation.
void UsesOffer::Look() try {
  const BusyPointer busy(context_.toolkit);
  std::size_t sure = 0, unsure = 0;
  std::string places;
  for (const codegen::CodePlace& place : find_().places) {
    if (place.is_sure) {
      ++sure;
    } else if (++unsure <= kNamedPlaces) {
      places += (places.empty() ? "" : ", ") + std::string(FileName(place.file)) + ":" +
                std::to_string(place.line);
    }
  }
  if (unsure > kNamedPlaces) places += ", ...";
  has_uses_ = sure > 0;
  box_.SetCaption(context_.texts.Text(kChangeUses, {{"<Count>", std::to_string(sure)}}));
  box_.SetChecked(has_uses_);
  if (unsure > 0) hint_.SetCaption(context_.texts.Text(kUnsureUses, {{"<Places>", places}}));
} catch (const platform::Error&) {
  has_uses_ = false;
}

}  // namespace dialogs
