// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "codegen/code_places.h"
#include "dialogs/dialog_context.h"
#include "forms/fields.h"

namespace dialogs {

// The check box by which a dialog offers to change the uses of a name in procedures along with the
// name. It shows only while the name is another one and has uses, and is on then.
class UsesOffer {
 public:
  using Find = std::function<codegen::FoundPlaces()>;

  // All of it outlives this object. `find` is called once, when the name is changed first.
  UsesOffer(const DialogContext& context, forms::CheckBox& box, forms::Label& hint, Find find);

  // Whether the name that the dialog shows is another one than the stored.
  void Follow(bool renamed);
  bool Taken() const { return box_.Visible() && box_.Checked(); }

 private:
  void Look();

  const DialogContext& context_;
  forms::CheckBox& box_;
  forms::Label& hint_;
  Find find_;
  bool looked_ = false;
  bool has_uses_ = false;
};

}  // namespace dialogs
