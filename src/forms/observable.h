// SPDX-License-Identifier: MIT
// Change notification of models.
#pragma once

#include <functional>
#include <list>
#include <memory>

namespace forms {

// What changed in a model.
enum class Property {
  kCaption,
  kText,
  kValue,  // checked
  kEnabled,
  kVisible,
  kFont,
  kBounds,
  kWindowState,
  kToolTip,
  kInvalid,
  kPicture,
  kFocus,   // the control wants the keyboard
  kZOrder,  // the control went to the front of its container
  kControls,
  kItems,
  kListIndex,
  kRows,        // all rows may differ, also in number
  kCells,       // values of rows differ, their number and order do not
  kCurrentRow,  // or the current column
  kSelection,
  kColumns,
  kEditState,
  kEditValue,  // of the cell that is being edited
  kTools,
  kPanels,
};

// Keeps an observer registered while it lives. It may outlive the observed object.
class Subscription {
 public:
  Subscription() = default;

 private:
  friend class Observable;
  explicit Subscription(std::shared_ptr<void> token) : token_(std::move(token)) {}
  std::shared_ptr<void> token_;
};

// An object that tells its observers which property changed, after it changed. Observers may
// subscribe, unsubscribe and change the object while they are told.
class Observable {
 public:
  using Observer = std::function<void(Property)>;

  Observable() = default;
  virtual ~Observable() = default;
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;

  [[nodiscard]] Subscription Observe(Observer observer) {
    auto token = std::make_shared<Observer>(std::move(observer));
    observers_.push_back(token);
    return Subscription(token);
  }

 protected:
  void Notify(Property property) {
    observers_.remove_if([](const auto& observer) { return observer.expired(); });
    auto told = observers_;
    for (const auto& observer : told) {
      if (auto call = observer.lock()) (*call)(property);
    }
  }

  // Assigns and notifies when the value differs; returns whether it did.
  template <class T>
  bool Assign(T& field, T value, Property property) {
    if (field == value) return false;
    field = std::move(value);
    Notify(property);
    return true;
  }

 private:
  std::list<std::weak_ptr<Observer>> observers_;
};

}  // namespace forms
